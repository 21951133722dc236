// SPDX-License-Identifier: GPL-3.0-or-later
#include "categories/CategoryForm.h"

#include "catalogue/Options.h"
#include "catalogue/SettingsRows.h"
#include "categories/CategoryRemoval.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"
#include "ui_CategoryForm.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr QSize FirstSize(620, 460);

} // namespace

CategoryForm::CategoryForm(const CategoryParts &parts, QWidget *parent)
    : ModalScreen(parent),
      handle(
          parts.services.desktop, [this] { return windowTitle(); }, {}, [this] { refresh(); }),
      m_ui(std::make_unique<Ui::CategoryForm>()), m_parts(parts), m_store(parts.services.catalogue),
      m_names(parts.services.desktop, m_store, CategoryNames::Screen::Form)
{
    m_ui->setupUi(this);
    Form_Load();
    wire();
}

CategoryForm::~CategoryForm() = default;

void CategoryForm::wire()
{
    connect(m_ui->CatgGrid, &CategoryGrid::chosen, this, &CategoryForm::cmdSelected_Click);
    connect(m_ui->CatgGrid, &CategoryGrid::letterTyped, this, &CategoryForm::CatgGrid_KeyPress);
    connect(m_ui->cbDefaultCatg, &QCheckBox::clicked, this, &CategoryForm::cbDefaultCatg_Click);
    connect(m_ui->cmdAdd, &QPushButton::clicked, this, &CategoryForm::cmdAdd_Click);
    connect(m_ui->cmdChange, &QPushButton::clicked, this, &CategoryForm::cmdChange_Click);
    connect(m_ui->cmdDelete, &QPushButton::clicked, this, &CategoryForm::cmdDelete_Click);
    connect(m_ui->cmdSelected, &QPushButton::clicked, this, &CategoryForm::cmdSelected_Click);
    connect(m_ui->cmdShowAll, &QPushButton::clicked, this, &CategoryForm::cmdShowAll_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, &CategoryForm::cmdExit_Click);
}

void CategoryForm::Form_Load()
{
    m_ui->CatgGrid->setHeads({{CategoryGrid::Shows::Name, u"List Of All Categories"_s}});
    m_ui->cbDefaultCatg->setChecked(m_parts.settings.categoryStartupBox() == 1);
    if (m_parts.services.options.TabletActive) {
        sizeForFingers(*this);
        m_ui->CatgGrid->sizeForFingers();
    }
    refresh();
    showCurrentCategory();
    resize(FirstSize.boundedTo(roomFor(*this)));
    m_ui->CatgGrid->setFocus();
}

void CategoryForm::showCurrentCategory()
{
    const ShownCategory &shown = m_parts.set.view().category;
    if (!shown.name.isEmpty())
        m_ui->CatgGrid->makeCurrent(shown.number);
}

void CategoryForm::refresh()
{
    m_ui->CatgGrid->setCategories(m_store.categories());
}

void CategoryForm::CatgGrid_KeyPress(QChar letter)
{
    handle([&] {
        if (const auto number = m_store.firstWith(letter))
            m_ui->CatgGrid->makeCurrent(*number);
    });
}

void CategoryForm::cbDefaultCatg_Click()
{
    handle([this] {
        // What is not stored must not be shown as if it were.
        const bool ticked = m_ui->cbDefaultCatg->isChecked();
        m_ui->cbDefaultCatg->setChecked(!ticked);
        m_parts.settings.storeCategoryStartupBox(ticked ? 1 : 0);
        m_ui->cbDefaultCatg->setChecked(ticked);
    });
}

void CategoryForm::cmdAdd_Click()
{
    handle([this] {
        if (!m_names.add())
            return;
        refresh();
        m_ui->CatgGrid->makeRowCurrent(static_cast<int>(m_ui->CatgGrid->categories().size()) - 1);
    });
}

void CategoryForm::cmdChange_Click()
{
    handle([this] {
        if (m_names.change(m_ui->CatgGrid->current()))
            refresh();
    });
}

void CategoryForm::cmdDelete_Click()
{
    handle([this] {
        const int row = m_ui->CatgGrid->currentIndex().row();
        if (!removeCategory(m_parts, m_store, m_ui->CatgGrid->current()))
            return;
        refresh();
        m_ui->CatgGrid->makeRowCurrent(
            std::min(row, static_cast<int>(m_ui->CatgGrid->categories().size()) - 1));
    });
}

void CategoryForm::cmdSelected_Click()
{
    handle([this] { showCategory(m_ui->CatgGrid->current()); });
}

void CategoryForm::showCategory(const Category *current)
{
    if (current == nullptr) {
        m_parts.services.desktop.MessageBox(
            u"There are no Categories.  You must create one and select it before you "
            "can perform this action."_s,
            u"No Categories"_s, Icon::Stop);
        return;
    }
    m_store.requireCategory(current->CategoryNumber);
    m_parts.set.categoryChosen(current->CategoryNumber, current->CategoryDesc);
    accept();
}

void CategoryForm::cmdShowAll_Click()
{
    handle([this] {
        m_parts.set.categoryCleared();
        accept();
    });
}

void CategoryForm::cmdExit_Click()
{
    reject();
}

} // namespace quaverly
