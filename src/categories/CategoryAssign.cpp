// SPDX-License-Identifier: GPL-3.0-or-later
#include "categories/CategoryAssign.h"

#include "catalogue/Options.h"
#include "catalogue/SettingsRows.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "songlist/DisplayedSet.h"
#include "ui_CategoryAssign.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr QSize FirstSize(760, 460);

QList<CategoryGrid::Head> headsOf(const QString &names)
{
    return {{CategoryGrid::Shows::Name, names},
            {CategoryGrid::Shows::Number, u"Category Number (cannot update)"_s}};
}

} // namespace

CategoryAssign::CategoryAssign(const CategoryParts &parts, QWidget *parent)
    : ModalScreen(parent),
      handle(
          parts.services.desktop, [this] { return windowTitle(); }, {}, [this] { refresh(); }),
      m_ui(std::make_unique<Ui::CategoryAssign>()), m_parts(parts), m_store(parts.services.catalogue),
      m_names(parts.services.desktop, m_store, CategoryNames::Screen::Assign),
      m_song(parts.services.desktop, m_store, parts.set.Data1().Recordset().value(u"RecordID"_s).toLongLong())
{
    m_ui->setupUi(this);
    Form_Load();
    wire();
}

CategoryAssign::~CategoryAssign() = default;

void CategoryAssign::wire()
{
    connect(m_ui->CatgGrid, &CategoryGrid::chosen, this, &CategoryAssign::cmdRtArrow_Click);
    connect(m_ui->CatgGrid, &CategoryGrid::letterTyped, this, &CategoryAssign::CatgGrid_KeyPress);
    connect(m_ui->CatgIdGrid, &CategoryGrid::chosen, this, &CategoryAssign::cmdLfArrow_Click);
    connect(m_ui->cmdRtArrow, &QPushButton::clicked, this, &CategoryAssign::cmdRtArrow_Click);
    connect(m_ui->cmdLfArrow, &QPushButton::clicked, this, &CategoryAssign::cmdLfArrow_Click);
    connect(m_ui->cmdAdd, &QPushButton::clicked, this, &CategoryAssign::cmdAdd_Click);
    connect(m_ui->cmdChange, &QPushButton::clicked, this, &CategoryAssign::cmdChange_Click);
    connect(m_ui->cbAssignCatgOnAdd, &QCheckBox::clicked, this, &CategoryAssign::cbAssignCatgOnAdd_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, &CategoryAssign::cmdExit_Click);
}

void CategoryAssign::Form_Load()
{
    m_ui->CatgGrid->setHeads(headsOf(u"List Of All Categories"_s));
    m_ui->CatgIdGrid->setHeads(headsOf(u"Category Assigned To This Song"_s));
    m_ui->cbAssignCatgOnAdd->setChecked(m_parts.services.options.AssignCategoryOnAdd == 1);
    scaleFont(*m_ui->lblName, HeadingScale, true);
    showText(*m_ui->lblName, m_parts.set.Data1().currentText(u"SongName"_s));
    if (m_parts.services.options.TabletActive) {
        sizeForFingers(*this);
        m_ui->CatgGrid->sizeForFingers();
        m_ui->CatgIdGrid->sizeForFingers();
    }
    refresh();
    resize(FirstSize.boundedTo(roomFor(*this)));
    m_ui->CatgGrid->setFocus();
}

void CategoryAssign::refresh()
{
    m_ui->CatgGrid->setCategories(m_store.categories());
    m_ui->CatgIdGrid->setCategories(m_song.categories());
}

void CategoryAssign::CatgGrid_KeyPress(QChar letter)
{
    handle([&] {
        if (const auto number = m_store.firstWith(letter))
            m_ui->CatgGrid->makeCurrent(*number);
    });
}

void CategoryAssign::cmdRtArrow_Click()
{
    handle([this] {
        const Category *category = m_ui->CatgGrid->current();
        if (category == nullptr)
            return;
        m_song.assign(category->CategoryNumber);
        refresh();
    });
}

void CategoryAssign::cmdLfArrow_Click()
{
    handle([this] {
        const Category *category = m_ui->CatgIdGrid->current();
        if (category == nullptr)
            return;
        m_song.remove(category->CategoryNumber);
        refresh();
    });
}

void CategoryAssign::cmdAdd_Click()
{
    handle([this] {
        if (const auto number = m_names.add()) {
            refresh();
            m_ui->CatgGrid->makeCurrent(*number);
        }
    });
}

void CategoryAssign::cmdChange_Click()
{
    handle([this] {
        if (m_names.change(m_ui->CatgGrid->current()))
            refresh();
    });
}

void CategoryAssign::cbAssignCatgOnAdd_Click()
{
    handle([this] {
        // What is not stored must not be shown as if it were.
        const bool ticked = m_ui->cbAssignCatgOnAdd->isChecked();
        m_ui->cbAssignCatgOnAdd->setChecked(!ticked);
        m_parts.settings.storeAssignCategoryOnAdd(ticked ? 1 : 0);
        m_parts.services.options.AssignCategoryOnAdd = ticked ? 1 : 0;
        m_ui->cbAssignCatgOnAdd->setChecked(ticked);
    });
}

void CategoryAssign::cmdExit_Click()
{
    reject();
}

} // namespace quaverly
