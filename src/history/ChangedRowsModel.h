// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ChangeTableModel.h"
#include "history/ChangeTexts.h"

#include <optional>
#include <vector>

namespace quaverly {

/** What one change did, entry by entry; each is read when it is looked at. */
class ChangedRowsModel final : public ChangeTableModel
{
public:
    /** @p database outlives the model. */
    explicit ChangedRowsModel(dao::Database &database, QObject *parent = nullptr);

    void show(const std::optional<dao::Change> &change);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;

protected:
    [[nodiscard]] ChangedRowTexts fetch(int row) const override;

private:
    void leaveOutWhatLooksTheSame();

    ChangeTexts m_texts;
    std::optional<dao::Change> m_change;
    /** Of the entries that are shown; all of them without it. */
    std::optional<std::vector<qint64>> m_places;
};

} // namespace quaverly
