// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/DatabaseImpl.h"
#include "platform/store/NewFile.h"
#include "platform/store/Salvage.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

void rename(const QString &from, const QString &to)
{
    QFile file(from);
    if (!file.rename(to))
        throw DaoError(PathFileAccess, u"Path/File access error: '%1'.  %2"_s.arg(to, file.errorString()));
}

} // namespace

DBEngine::DBEngine(Schema schema) : m_schema(std::move(schema)), m_workspace(std::make_unique<Workspace>())
{}

DBEngine::~DBEngine() = default;

std::unique_ptr<Database> DBEngine::OpenDatabase(const QString &path, const QString &connect)
{
    static const QString word = u";pwd="_s;
    const QString password =
        connect.startsWith(word, Qt::CaseInsensitive) ? connect.mid(word.size()) : QString();
    return std::make_unique<Database>(std::make_unique<DatabaseImpl>(path, m_schema, *m_workspace, password));
}

int DBEngine::versionOf(const QString &path) const
{
    return CatalogueFile::examine(path, m_schema).version;
}

Workspace &DBEngine::Workspaces(int index)
{
    if (index != 0)
        throw DaoError(ItemNotFound, u"Item not found in this collection."_s);
    return *m_workspace;
}

void DBEngine::CreateEmpty(const QString &path)
{
    refuseExisting(path);
    NewFile file(path);
    Connection connection(path, Connection::Mode::Create);
    createTables(connection, m_schema, true);
    file.keep();
}

void DBEngine::CompactDatabase(const QString &source, const QString &target)
{
    refuseExisting(target);
    static_cast<void>(CatalogueFile::examine(source, m_schema));
    NewFile file(target);
    {
        Connection connection(source, Connection::Mode::ReadWrite);
        connection.execute("VACUUM INTO " + quotedText(target));
    }
    // The source is about to go: its copy must be on the disk by then.
    file.putOnDisk();
    file.keep();
}

RepairReport DBEngine::RepairDatabase(const QString &path)
{
    bool writable = true;
    try {
        writable = CatalogueFile::examine(path, m_schema).writable;
    } catch (const DaoError &e) {
        // A file that is shorter than it says is what repair is for.
        if (e.number != CannotOpenFile)
            throw;
    }
    if (!writable)
        throw DaoError(ReadOnly, u"Cannot update.  Database or object is read-only."_s);
    const QString fresh = path + u".repair"_s;
    for (const QString &ending : {u""_s, u"-wal"_s, u"-shm"_s, u"-journal"_s})
        QFile::remove(fresh + ending);
    NewFile file(fresh);
    RepairReport report;
    {
        Connection target(fresh, Connection::Mode::Create);
        createTables(target, m_schema, false);
        report.tables = salvage(path, target, m_schema);
    }
    const QFileInfo info(path);
    const QString stamp = QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH.mm.ss"_s);
    const QString kept =
        info.absolutePath() + u'/' + info.completeBaseName() + u" damaged "_s + stamp + u'.' + info.suffix();
    rename(path, kept);
    for (const QString &ending : {u"-wal"_s, u"-shm"_s}) {
        if (QFile::exists(path + ending))
            rename(path + ending, kept + ending);
    }
    rename(fresh, path);
    file.keep();
    QFile::remove(path + u".damaged"_s);
    report.damagedFile = kept;
    return report;
}

} // namespace dao
