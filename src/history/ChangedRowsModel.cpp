// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ChangedRowsModel.h"

#include <algorithm>
#include <limits>

namespace quaverly {

namespace {

/** In a change of so many entries, those that show nothing (a Null and an empty text) are left out. */
constexpr qint64 LookedThrough = 500;

} // namespace

ChangedRowsModel::ChangedRowsModel(dao::Database &database, QObject *parent)
    : ChangeTableModel(parent), m_texts(database)
{}

void ChangedRowsModel::show(const std::optional<dao::Change> &change)
{
    beginResetModel();
    m_change = change;
    forget();
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

ChangedRowTexts ChangedRowsModel::fetch(int row) const
{
    return m_texts.row(*m_change, m_places ? (*m_places)[static_cast<std::size_t>(row)] : row);
}

} // namespace quaverly
