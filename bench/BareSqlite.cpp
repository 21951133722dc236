// SPDX-License-Identifier: GPL-3.0-or-later
#include "BareSqlite.h"

#include "platform/store/Collation.h"
#include "platform/store/SqlFunctions.h"

#include <QFile>

#include <sqlite3.h>

#include <stdexcept>

namespace bench {

BareSqlite::BareSqlite(const QString &path, Collate collate, Access access)
{
    sqlite3 *db = nullptr;
    const int mode = access == Access::Write ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
    sqlite3_open_v2(QFile::encodeName(path).constData(), &db, mode | SQLITE_OPEN_NOMUTEX, nullptr);
    m_db.reset(db);
    if (collate == Collate::AsTheStore) {
        dao::registerCollation(db);
        dao::registerFunctions(db);
    }
    sqlite3_exec(db, "PRAGMA cache_size = -16000", nullptr, nullptr, nullptr);
}

void BareSqlite::walk(const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    sqlite3_prepare_v2(m_db.get(), sql, -1, &statement, nullptr);
    m_keys.clear();
    while (sqlite3_step(statement) == SQLITE_ROW)
        m_keys.push_back(sqlite3_column_int64(statement, 0));
    sqlite3_finalize(statement);
}

void BareSqlite::execute(const char *sql)
{
    if (sqlite3_exec(m_db.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(m_db.get()));
}

void BareSqlite::Close::operator()(sqlite3 *db) const
{
    sqlite3_close(db);
}

} // namespace bench
