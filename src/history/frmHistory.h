// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ModalScreen.h"
#include "history/ChangeListModel.h"
#include "history/ChangedRowsModel.h"

#include <memory>

namespace Ui {
class frmHistory;
}

namespace quaverly {

class HistoryCommands;

/** Lists the changes of the catalogue with what each did, and goes back to before one or forth to one. */
class frmHistory final : public ModalScreen
{
    Q_OBJECT

public:
    /** The references outlive the screen. @throws dao::DaoError for a journal that can't be read */
    frmHistory(Desktop &desktop, dao::Database &database, HistoryCommands &commands,
               QWidget *parent = nullptr);
    ~frmHistory() override;

private:
    void wire();
    void layOutColumns();
    void showChanges();
    void listChanges_Click();
    void txtFilter_Change();
    void cmdTakeBack_Click();
    void cmdMakeAgain_Click();
    [[nodiscard]] const dao::Change *chosen() const;
    [[nodiscard]] QString messageFor(const dao::Change *change, bool blocked) const;
    [[nodiscard]] std::size_t countBetween(dao::Change::State state, const dao::Change &last) const;
    [[nodiscard]] bool confirms(std::size_t changes, const QString &what);

    std::unique_ptr<Ui::frmHistory> m_ui;
    Desktop &m_desktop;
    HistoryCommands &m_commands;
    /** False for a database that can't be written to. */
    bool m_isKept;
    ChangeListModel m_changes;
    ChangedRowsModel m_rows;
};

} // namespace quaverly
