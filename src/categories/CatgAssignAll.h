// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "categories/CategoryBulk.h"

#include <QDialog>

#include <memory>

namespace Ui {
class CatgAssignAll;
}

namespace quaverly {

/** Puts every displayed song into a category, or takes every one out of it. */
class CatgAssignAll final : public QDialog
{
    Q_OBJECT

public:
    /** @throws dao::DaoError when the categories can't be read. */
    explicit CatgAssignAll(const CategoryParts &parts, QWidget *parent = nullptr);
    ~CatgAssignAll() override;

    /** Not while a command works: it lets events run. */
    void reject() override;

    /** Shows the screen over its owner and returns; it deletes itself when it is closed. */
    void showModally();

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
    bool m_busy = false;
};

} // namespace quaverly
