// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/LoadTuning.h"

#include "platform/store/DaoError.h"
#include "platform/store/Scope.h"

#include <algorithm>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace dao {

QString indexNameOf(const QString &statement)
{
    const qsizetype start = statement.indexOf(u'"') + 1;
    return statement.mid(start, statement.indexOf(u'"', start) - start);
}

void LoadTuning::prepare(const TableInfo *table)
{
    m_connection.execute("PRAGMA synchronous = NORMAL; PRAGMA wal_autocheckpoint = 20000");
    if (table == nullptr ||
        m_connection.scalar("SELECT EXISTS (SELECT 1 FROM " + quotedName(table->name) + ")").toBool())
        return;
    WriteTransaction transaction(m_connection);
    for (const QString &statement : m_schema.indexes) {
        // Unique ones stay: they are what keeps a file from coming in twice.
        if (indexNameOf(statement).startsWith(table->name + u'.') &&
            !statement.startsWith("CREATE UNIQUE"_L1))
            m_connection.execute("DROP INDEX IF EXISTS " + quotedName(indexNameOf(statement)));
    }
    transaction.commit();
}

void LoadTuning::makeDurable()
{
    sqlite3_exec(m_connection.handle(), "PRAGMA synchronous = FULL; PRAGMA wal_autocheckpoint = 1000",
                 nullptr, nullptr, nullptr);
}

void LoadTuning::buildNextIndex()
{
    m_connection.execute(nextMissingIndex());
}

void LoadTuning::buildMissingIndexes()
{
    try {
        while (lacksIndexes())
            buildNextIndex();
    } catch (const DaoError &error) {
        // They only make things fast; with a full disk the songs can be looked at all the same.
        if (error.number != DiskFull)
            throw;
    }
}

QByteArray LoadTuning::nextMissingIndex()
{
    QStringList present;
    Statement names = m_connection.prepare("SELECT name FROM sqlite_schema WHERE type = 'index'");
    while (names.step())
        present.append(names.text(0));
    const auto missing = std::ranges::find_if(m_schema.indexes, [&](const QString &statement) {
        return !present.contains(indexNameOf(statement));
    });
    return missing == m_schema.indexes.end() ? QByteArray() : missing->toUtf8();
}

} // namespace dao
