// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "update/UpdateList.h"

#include <QAbstractTableModel>

#include <optional>

namespace quaverly {

/** What an update found, as a table with a tick at each row, of one kind or of all. */
class UpdateModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Kind, Song, Artist, Field, Before, After, Remark, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void setList(UpdateList list);
    [[nodiscard]] const UpdateList &list() const { return m_list; }
    /** Nothing for all kinds. */
    void show(std::optional<UpdateKind> kind);
    [[nodiscard]] std::optional<UpdateKind> shownKind() const { return m_kind; }

    /** Of the rows on show. Deletions are ticked only where they alone are shown. */
    void tickAll(bool isTicked);
    /** The first one's tick is turned over, and the others get the same. */
    void turnTicks(const QModelIndexList &rows);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    void ticksChanged();

private:
    void ticksAnew();

    UpdateList m_list;
    std::optional<UpdateKind> m_kind;
    /** Places of the rows on show. */
    std::vector<std::size_t> m_shown;
};

/** The table as comma separated values, with a heading. */
[[nodiscard]] QByteArray updateCsv(const UpdateList &list);

} // namespace quaverly
