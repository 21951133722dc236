// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ChangedRowsModel.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Rows kept in memory: some screens full. */
constexpr int CachedRows = 500;
/** In a change of so many entries, those that show nothing (a Null and an empty text) are left out. */
constexpr qint64 LookedThrough = 500;
/** Of a long text, this much stands in a cell. */
constexpr qsizetype ShownCharacters = 300;

} // namespace

ChangedRowsModel::ChangedRowsModel(dao::Database &database, QObject *parent)
    : QAbstractTableModel(parent), m_texts(database), m_rows(CachedRows)
{}

void ChangedRowsModel::show(const std::optional<dao::Change> &change)
{
    beginResetModel();
    m_change = change;
    m_rows.clear();
    m_places.reset();
    if (m_change && dao::History::valueCount(*m_change) <= LookedThrough)
        leaveOutWhatLooksTheSame();
    endResetModel();
}

void ChangedRowsModel::leaveOutWhatLooksTheSame()
{
    m_places.emplace();
    for (qint64 place = 0; place < dao::History::valueCount(*m_change); ++place) {
        const ChangedRowTexts texts = m_texts.row(*m_change, place);
        if (texts.before != texts.after)
            m_places->push_back(place);
    }
}

int ChangedRowsModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid() || !m_change || m_change->state == dao::Change::State::CopyOnly)
        return 0;
    if (m_places)
        return static_cast<int>(m_places->size());
    return static_cast<int>(
        std::min<qint64>(dao::History::valueCount(*m_change), std::numeric_limits<int>::max()));
}

int ChangedRowsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

const ChangedRowTexts &ChangedRowsModel::row(int row) const
{
    if (const ChangedRowTexts *known = m_rows.object(row))
        return *known;
    const qint64 place = m_places ? (*m_places)[static_cast<std::size_t>(row)] : row;
    auto *read = new ChangedRowTexts(m_texts.row(*m_change, place));
    m_rows.insert(row, read);
    return *read;
}

QVariant ChangedRowsModel::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const ChangedRowTexts &texts = row(index.row());
    const QString *const columns[] = {&texts.record, &texts.field, &texts.before, &texts.after};
    QString text = columns[index.column()]->left(ShownCharacters);
    return role == Qt::DisplayRole ? text.replace(u'\n', u' ') : text;
}

QVariant ChangedRowsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QString headings[] = {u"Record"_s, u"Field"_s, u"Before"_s, u"After"_s};
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return headings[section];
    return {};
}

} // namespace quaverly
