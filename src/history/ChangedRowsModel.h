// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "history/ChangeTexts.h"

#include <QAbstractTableModel>
#include <QCache>

#include <optional>
#include <vector>

namespace quaverly {

/** What one change did, entry by entry; each is read when it is looked at. */
class ChangedRowsModel final : public QAbstractTableModel
{
public:
    enum Column { Record, Field, Before, After, ColumnCount };

    /** @p database outlives the model. */
    explicit ChangedRowsModel(dao::Database &database, QObject *parent = nullptr);

    void show(const std::optional<dao::Change> &change);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void leaveOutWhatLooksTheSame();
    [[nodiscard]] const ChangedRowTexts &row(int row) const;

    ChangeTexts m_texts;
    std::optional<dao::Change> m_change;
    /** Of the entries that are shown; all of them without it. */
    std::optional<std::vector<qint64>> m_places;
    mutable QCache<int, ChangedRowTexts> m_rows;
};

} // namespace quaverly
