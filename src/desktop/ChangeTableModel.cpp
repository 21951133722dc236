// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ChangeTableModel.h"

#include "platform/store/DaoError.h"

#include <QHeaderView>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Rows kept in memory: some screens full. */
constexpr int CachedRows = 500;
/** Of a long text, this much stands in a cell. */
constexpr qsizetype ShownCharacters = 300;
/** Pixels of a row beside its text. */
constexpr int RowMargin = 8;

} // namespace

ChangeTableModel::ChangeTableModel(QObject *parent) : QAbstractTableModel(parent), m_rows(CachedRows)
{}

int ChangeTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

const ChangedRowTexts &ChangeTableModel::row(int row) const
{
    if (const ChangedRowTexts *known = m_rows.object(row))
        return *known;
    auto read = std::make_unique<ChangedRowTexts>();
    try {
        *read = fetch(row);
    } catch (const dao::DaoError &error) {
        read->record = error.description;
    }
    auto *kept = read.release();
    m_rows.insert(row, kept);
    return *kept;
}

QVariant ChangeTableModel::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const ChangedRowTexts &texts = row(index.row());
    const QString *const columns[] = {&texts.record, &texts.field, &texts.before, &texts.after};
    QString text = columns[index.column()]->left(ShownCharacters);
    return role == Qt::DisplayRole ? text.replace(u'\n', u' ') : text;
}

QVariant ChangeTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QString headings[] = {u"Record"_s, u"Field"_s, u"Before"_s, u"After"_s};
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return headings[section];
    return {};
}

QColor quietText(const QPalette &palette)
{
    const QColor text = palette.color(QPalette::Text);
    const QColor ground = palette.color(QPalette::Base);
    const auto between = [](int near, int far) { return (3 * near + 2 * far) / 5; };
    return {between(text.red(), ground.red()), between(text.green(), ground.green()),
            between(text.blue(), ground.blue())};
}

void layOutTable(QTableView &table)
{
    table.verticalHeader()->hide();
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + RowMargin);
    table.horizontalHeader()->setHighlightSections(false);
    table.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void layOutChanges(QTableView &table)
{
    layOutTable(table);
    const int character = table.fontMetrics().averageCharWidth();
    QHeaderView &columns = *table.horizontalHeader();
    columns.resizeSection(ChangeTableModel::Record, 34 * character);
    columns.resizeSection(ChangeTableModel::Field, 18 * character);
    columns.setSectionResizeMode(ChangeTableModel::Before, QHeaderView::Stretch);
    columns.setSectionResizeMode(ChangeTableModel::After, QHeaderView::Stretch);
    // Of two paths, the names at their ends tell more than the folders in between.
    table.setTextElideMode(Qt::ElideMiddle);
}

} // namespace quaverly
