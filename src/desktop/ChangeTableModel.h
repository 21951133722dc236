// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Preview.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QPalette>

class QTableView;

namespace quaverly {

/** Rows of before and after; each is fetched when it is looked at. */
class ChangeTableModel : public QAbstractTableModel
{
public:
    enum Column { Record, Field, Before, After, ColumnCount };

    explicit ChangeTableModel(QObject *parent = nullptr);

    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

protected:
    /** May throw dao::DaoError: the row then says so. */
    [[nodiscard]] virtual ChangedRowTexts fetch(int row) const = 0;
    /** All rows are fetched anew. */
    void forget() { m_rows.clear(); }

private:
    [[nodiscard]] const ChangedRowTexts &row(int row) const;

    mutable QCache<int, ChangedRowTexts> m_rows;
};

/** Between the text and its ground, nearer to the text; not every desktop's palette has such a colour. */
[[nodiscard]] QColor quietText(const QPalette &palette);

/** What the tables of changes share of their looks, and the widths of such a model's columns. */
void layOutTable(QTableView &table);
void layOutChanges(QTableView &table);

} // namespace quaverly
