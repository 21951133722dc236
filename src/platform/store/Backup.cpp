// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/DatabaseImpl.h"
#include "platform/store/NewFile.h"

#include <QFile>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** Pages between two looks at whether to go on: a few milliseconds. */
constexpr int PagesAtOnce = 1024;

/** Steps of SQLite's machine between two looks. */
constexpr int StepsAtOnce = 200'000;

struct FinishBackup
{
    void operator()(sqlite3_backup *backup) const { sqlite3_backup_finish(backup); }
};

/** False when it was given up. */
bool copyPages(Connection &from, Connection &to, const GoesOn &progress)
{
    const std::unique_ptr<sqlite3_backup, FinishBackup> backup(
        sqlite3_backup_init(to.handle(), "main", from.handle(), "main"));
    if (!backup)
        throwDaoError(to.handle(), sqlite3_extended_errcode(to.handle()));
    int code = SQLITE_OK;
    while (code != SQLITE_DONE) {
        const int all = sqlite3_backup_pagecount(backup.get());
        if (progress && !progress(all - sqlite3_backup_remaining(backup.get()), all))
            return false;
        code = sqlite3_backup_step(backup.get(), PagesAtOnce);
        if (code != SQLITE_OK && code != SQLITE_DONE)
            throwDaoError(to.handle(), code);
    }
    return true;
}

/** Asks between the steps of a statement whether it is to go on. */
class Interruptible final
{
public:
    Interruptible(Connection &connection, const GoesOn &progress)
        : m_connection(connection), m_progress(progress)
    {
        if (m_progress)
            sqlite3_progress_handler(m_connection.handle(), StepsAtOnce, &Interruptible::look, this);
    }
    ~Interruptible() { sqlite3_progress_handler(m_connection.handle(), 0, nullptr, nullptr); }
    Interruptible(const Interruptible &) = delete;
    Interruptible &operator=(const Interruptible &) = delete;
    [[nodiscard]] bool wasGivenUp() const { return m_givenUp; }

private:
    static int look(void *self)
    {
        auto *statement = static_cast<Interruptible *>(self);
        statement->m_givenUp = !statement->m_progress(0, 0);
        return statement->m_givenUp ? 1 : 0;
    }

    Connection &m_connection;
    const GoesOn &m_progress;
    bool m_givenUp = false;
};

/** A file that is only looked at: nothing is left beside it, whatever is found. */
class Unchanging final
{
public:
    Unchanging(const QString &path, const Schema &schema)
        : m_path(CatalogueFile::examine(path, schema).path),
          m_connection(unchangingLocation(path), Connection::Mode::ReadOnly)
    {}
    ~Unchanging() { QFile::remove(m_path + u".damaged"_s); }
    Unchanging(const Unchanging &) = delete;
    Unchanging &operator=(const Unchanging &) = delete;
    [[nodiscard]] Connection &connection() { return m_connection; }

private:
    QString m_path;
    Connection m_connection;
};

/** Indexes in another order than the present one are made anew at the opening: they are no damage. */
QByteArray checkFor(Connection &connection)
{
    return isInPresentOrder(connection) ? "PRAGMA integrity_check(1)" : "PRAGMA quick_check(1)";
}

QString verdictOn(Connection &connection)
{
    try {
        return connection.scalar(checkFor(connection)).toString();
    } catch (const DaoError &error) {
        return error.description;
    }
}

} // namespace

bool DatabaseImpl::cloneTo(const QString &target)
{
    // Tried at once: only where blocks can be shared is it worth bringing the log home.
    if (!m_file.writable || !m_cloneSource.cloneTo(target))
        return false;
    m_walks.finish();
    try {
        const QVariant before = m_connection->scalar("PRAGMA data_version");
        Statement home = m_connection->prepare("PRAGMA wal_checkpoint(PASSIVE)");
        const bool complete = home.step() && home.integer(1) == home.integer(2);
        home.reset();
        // Nobody may write while the file is cloned, nor have written since.
        const WriteTransaction alone(*m_connection);
        if (complete && m_connection->scalar("PRAGMA data_version") == before &&
            m_cloneSource.cloneTo(target))
            return true;
    } catch (const DaoError &) {
        // Another program writes: page by page it can be copied all the same.
    }
    QFile::remove(target);
    return false;
}

bool Database::backupTo(const QString &path, const GoesOn &progress)
{
    if (workspace().depth() > 0)
        throw DaoError(InvalidOperation, u"Invalid operation: a transaction is open."_s);
    m_impl->commitPhysically();
    refuseExisting(path);
    NewFile part(path + u".part"_s);
    QFile::remove(part.path());
    if (progress && !progress(0, 0))
        return false;
    if (!m_impl->cloneTo(part.path())) {
        Connection target(part.path(), Connection::Mode::Create);
        // A copy that is not finished goes; no journal need keep it whole.
        target.execute("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
        if (!copyPages(m_impl->connection(), target, progress))
            return false;
    }
    part.putOnDisk();
    if (QFile file(part.path()); !file.rename(path))
        throw DaoError(PathFileAccess, u"Path/File access error: '%1'.  %2"_s.arg(path, file.errorString()));
    part.keep();
    return true;
}

bool DBEngine::verify(const QString &path, const GoesOn &progress) const
{
    Unchanging file(path, m_schema);
    Connection &connection = file.connection();
    const Interruptible reading(connection, progress);
    const QString verdict = verdictOn(connection);
    if (reading.wasGivenUp())
        return false;
    if (verdict != "ok"_L1)
        throw DaoError(CannotOpenFile, u"'%1' is damaged.  %2"_s.arg(path, verdict));
    return true;
}

qint64 DBEngine::countRows(const QString &path, const QString &table) const
{
    Unchanging file(path, m_schema);
    Connection &connection = file.connection();
    if (connection.scalar("SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = " + quotedText(table))
            .isNull())
        throw DaoError(UnknownTable,
                       u"The database engine cannot find the input table or query '%1'."_s.arg(table));
    return connection.scalar("SELECT count(*) FROM " + quotedName(table)).toLongLong();
}

} // namespace dao
