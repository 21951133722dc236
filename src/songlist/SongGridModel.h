// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SongFields.h"
#include "songlist/DataControl.h"

#include <QAbstractTableModel>

#include <vector>

namespace quaverly {

/** A column of the grid. */
struct GridColumn
{
    QString caption;
    QString dataField;
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
    /** Exchanges what two columns show. */
    void swapColumns(int first, int second);

Q_SIGNALS:
    /** The current row of the displayed set moved, or its values changed. */
    void currentRowChanged();

private:
    void setRebuilt() override;
    void rowChanged() override;
    [[nodiscard]] QVariant value(int row, int column) const;

    DataControl &m_data;
    std::vector<GridColumn> m_columns;
    /** Place of each column's field in the recordset of the moment. */
    mutable std::vector<int> m_places;
};

} // namespace quaverly
