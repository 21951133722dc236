// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "categories/CategoryBulk.h"
#include "desktop/ModalScreen.h"

#include <memory>

namespace Ui {
class CatgAssignAll;
}

namespace quaverly {

/** Puts every displayed song into a category, or takes every one out of it. */
class CatgAssignAll final : public ModalScreen
{
    Q_OBJECT

public:
    /** @throws dao::DaoError when the categories can't be read. */
    explicit CatgAssignAll(const CategoryParts &parts, QWidget *parent = nullptr);
    ~CatgAssignAll() override;

private:
    void wire();
    void Form_Load();
    void CatgGrid_KeyPress(QChar letter);
    void cmdAssign_Click();
    void cmdDelete_Click();
    void cmdExit_Click();
    void refresh();
    void run(void (CategoryBulk::*command)(const Category *));

    std::unique_ptr<Ui::CatgAssignAll> m_ui;
    CategoryParts m_parts;
    CategoryStore m_store;
    CategoryBulk m_bulk;
};

} // namespace quaverly
