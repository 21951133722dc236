// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "categories/CategoryNames.h"
#include "categories/CategoryParts.h"
#include "categories/SongCategories.h"
#include "desktop/Guard.h"
#include "desktop/ModalScreen.h"

#include <memory>

namespace Ui {
class CategoryAssign;
}

namespace quaverly {

/** The categories of the displayed set's current song. */
class CategoryAssign final : public ModalScreen
{
    Q_OBJECT

public:
    /** @throws dao::DaoError when the song or the categories can't be read. */
    explicit CategoryAssign(const CategoryParts &parts, QWidget *parent = nullptr);
    ~CategoryAssign() override;

private:
    void wire();
    void Form_Load();
    void CatgGrid_KeyPress(QChar letter);
    void cmdRtArrow_Click();
    void cmdLfArrow_Click();
    void cmdAdd_Click();
    void cmdChange_Click();
    void cbAssignCatgOnAdd_Click();
    void cmdExit_Click();

    void refresh();

    /** Behind an error both lists are read anew. */
    GuardedHandler handle;
    std::unique_ptr<Ui::CategoryAssign> m_ui;
    CategoryParts m_parts;
    CategoryStore m_store;
    CategoryNames m_names;
    SongCategories m_song;
};

} // namespace quaverly
