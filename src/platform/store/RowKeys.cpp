// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/RowKeys.h"

#include "platform/store/DatabaseImpl.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

void fill(DatabaseImpl &database, const std::vector<qint64> &keys)
{
    const QByteArray table = "temp." + quotedName(QString::fromUtf16(RowKeyTable));
    Connection &connection = database.connection();
    database.change([&] {
        connection.execute("CREATE TABLE IF NOT EXISTS " + table + " (" +
                           quotedName(QString::fromUtf16(RowKeyField)) +
                           " INTEGER PRIMARY KEY); DELETE FROM " + table);
        Statement insert = connection.prepare("INSERT INTO " + table + " VALUES (?1)", true);
        for (const qint64 key : keys) {
            insert.bind(1, key);
            insert.step();
            insert.reset();
        }
    });
    database.learnTable(QString::fromUtf16(RowKeyTable));
}

void sortOnce(std::vector<qint64> &keys)
{
    std::ranges::sort(keys);
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
}

} // namespace

std::vector<qint64> keysOf(Recordset &rows)
{
    std::vector<qint64> keys;
    const qint64 count = rows.RecordCount();
    keys.reserve(static_cast<std::size_t>(count));
    for (qint64 position = 0; position < count; ++position)
        keys.push_back(rows.bookmarkAt(position).key);
    sortOnce(keys);
    return keys;
}

RowKeys::RowKeys(Database &database, std::vector<qint64> keys) : m_database(database), m_keys(std::move(keys))
{
    sortOnce(m_keys);
    fill(m_database.impl(), m_keys);
}

RowKeys::RowKeys(Database &database, Recordset &rows) : RowKeys(database, keysOf(rows))
{}

RowKeys::~RowKeys()
{
    try {
        fill(m_database.impl(), {});
    } catch (const std::exception &) {
        // The next one empties it first.
    }
}

std::vector<std::pair<qint64, qint64>> RowKeys::portions(qsizetype rows) const
{
    std::vector<std::pair<qint64, qint64>> made;
    for (qsizetype first = 0; first < count(); first += rows) {
        const qsizetype last = std::min(first + rows, count()) - 1;
        made.emplace_back(m_keys[static_cast<std::size_t>(first)], m_keys[static_cast<std::size_t>(last)]);
    }
    return made;
}

} // namespace dao
