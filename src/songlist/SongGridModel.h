// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "songlist/ColumnFile.h"
#include "songlist/DataControl.h"

#include <QAbstractTableModel>

#include <functional>
#include <vector>

namespace quaverly {

/** A column of the grid. */
struct GridColumn
{
    QString caption;
    QString dataField;
    CellAlignment alignment = CellAlignment::Left;
};

/**
 * The displayed set as a table. It holds no row: each value comes from the recordset's row cache when
 * it is painted. The mark column stands first and stays there.
 */
class SongGridModel final : public QAbstractTableModel, private DataListener
{
    Q_OBJECT

public:
    /** @p data outlives the model. */
    explicit SongGridModel(DataControl &data, QObject *parent = nullptr);
    ~SongGridModel() override;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    [[nodiscard]] const GridColumn &column(int index) const
    {
        return m_columns[static_cast<std::size_t>(index)];
    }
    void setColumn(int index, const GridColumn &column);
    /** Takes a column out and puts it in at @p to, as counted without it. */
    void moveColumn(int from, int to);

    /** Lets cells be typed into, all but the marks. */
    void setEditable(bool editable) { m_editable = editable; }
    [[nodiscard]] bool isEditable() const { return m_editable; }
    /** @p finish writes the cell that is being typed into; false when its text is refused, and that was told.
     */
    void setFinishTyping(std::function<bool()> finish) { m_finishTyping = std::move(finish); }
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    /** Emits cellTyped; the cell shows what the store holds in the end. */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

Q_SIGNALS:
    /** The current row of the displayed set moved, or its values changed. */
    void currentRowChanged();
    void cellTyped(int row, const QString &field, const QString &text);

private:
    void finishTyping() override;
    void setRebuilt() override;
    void rowChanged() override;
    [[nodiscard]] QVariant value(int row, int column) const;

    DataControl &m_data;
    void columnsExchanged(int first, int last);
    std::vector<GridColumn> m_columns;
    bool m_editable = false;
    std::function<bool()> m_finishTyping;
    /** Place of each column's field in the recordset of the moment. */
    mutable std::vector<int> m_places;
};

} // namespace quaverly
