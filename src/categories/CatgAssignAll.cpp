// SPDX-License-Identifier: GPL-3.0-or-later
#include "categories/CatgAssignAll.h"

#include "catalogue/Options.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "ui_CatgAssignAll.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr QSize FirstSize(620, 440);

} // namespace

CatgAssignAll::CatgAssignAll(const CategoryParts &parts, QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::CatgAssignAll>()), m_parts(parts),
      m_store(parts.services.catalogue), m_bulk(m_parts, m_store)
{
    m_ui->setupUi(this);
    Form_Load();
    wire();
}

CatgAssignAll::~CatgAssignAll() = default;

void CatgAssignAll::wire()
{
    connect(m_ui->CatgGrid, &CategoryGrid::letterTyped, this, &CatgAssignAll::CatgGrid_KeyPress);
    connect(m_ui->cmdAssign, &QPushButton::clicked, this, &CatgAssignAll::cmdAssign_Click);
    connect(m_ui->cmdDelete, &QPushButton::clicked, this, &CatgAssignAll::cmdDelete_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, &CatgAssignAll::cmdExit_Click);
}

void CatgAssignAll::Form_Load()
{
    // The odd heading is meant.
    m_ui->CatgGrid->setHeads({{CategoryGrid::Shows::Number, u"CategoryNumber"_s},
                              {CategoryGrid::Shows::Name, u"List Of All Bands"_s}});
    if (m_parts.services.options.TabletActive) {
        sizeForFingers(*this);
        m_ui->CatgGrid->sizeForFingers();
    }
    refresh();
    resize(FirstSize.boundedTo(roomFor(*this)));
    m_ui->CatgGrid->setFocus();
}

void CatgAssignAll::refresh()
{
    m_ui->CatgGrid->setCategories(m_store.categories());
}

void CatgAssignAll::CatgGrid_KeyPress(QChar letter)
{
    guarded(m_parts.services.desktop, windowTitle(), [&] {
        if (const auto number = m_store.firstWith(letter))
            m_ui->CatgGrid->makeCurrent(*number);
    });
}

void CatgAssignAll::run(void (CategoryBulk::*command)(const Category *))
{
    work(m_parts.services.desktop, [&] {
        (m_bulk.*command)(m_ui->CatgGrid->current());
        // Another program may have changed the categories meanwhile.
        refresh();
        return false;
    });
}

void CatgAssignAll::cmdAssign_Click()
{
    run(&CategoryBulk::assignAll);
}

void CatgAssignAll::cmdDelete_Click()
{
    run(&CategoryBulk::removeAll);
}

void CatgAssignAll::cmdExit_Click()
{
    reject();
}

} // namespace quaverly
