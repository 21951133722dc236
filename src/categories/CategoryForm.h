// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "categories/CategoryNames.h"
#include "categories/CategoryParts.h"
#include "desktop/Guard.h"
#include "desktop/ModalScreen.h"

#include <memory>

namespace Ui {
class CategoryForm;
}

namespace quaverly {

/** The list of categories: makes, renames and deletes them, and shows the songs of one. */
class CategoryForm final : public ModalScreen
{
    Q_OBJECT

public:
    /** @throws dao::DaoError when the categories can't be read. */
    explicit CategoryForm(const CategoryParts &parts, QWidget *parent = nullptr);
    ~CategoryForm() override;

private:
    void wire();
    void Form_Load();
    void showCurrentCategory();
    void CatgGrid_KeyPress(QChar letter);
    void cbDefaultCatg_Click();
    void cmdAdd_Click();
    void cmdChange_Click();
    void cmdDelete_Click();
    void cmdSelected_Click();
    void cmdShowAll_Click();
    void cmdExit_Click();

    void refresh();
    void showCategory(const Category *current);

    /** Behind an error the list is read anew: another category may be gone. */
    GuardedHandler handle;
    std::unique_ptr<Ui::CategoryForm> m_ui;
    CategoryParts m_parts;
    CategoryStore m_store;
    CategoryNames m_names;
};

} // namespace quaverly
