// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>
#include <vector>

struct sqlite3;

namespace bench {

enum class Collate { AsTheStore, BuiltIn };
enum class Access { Read, Write };

/** A catalogue through SQLite's bare interface, for baselines. */
class BareSqlite final
{
public:
    /** With BuiltIn only statements run that need none of the store's collation and functions. */
    BareSqlite(const QString &path, Collate collate, Access access = Access::Read);

    /** Steps through all rows and keeps the first column, as a key walk does. */
    void walk(const char *sql);
    /** Runs statements that change something. @throws std::runtime_error */
    void execute(const char *sql);

private:
    struct Close
    {
        void operator()(sqlite3 *db) const;
    };
    std::unique_ptr<sqlite3, Close> m_db;
    std::vector<qint64> m_keys;
};

} // namespace bench
