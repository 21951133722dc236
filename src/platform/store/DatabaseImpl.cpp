// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/DatabaseImpl.h"

#include "platform/store/Collation.h"
#include "platform/store/Password.h"
#include "platform/store/ProbeConnection.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

const QString MetaCollation = u"collation"_s;
const QString MetaPassword = u"password"_s;

quint64 inodeOf(const QString &path)
{
    struct stat info = {};
    return ::stat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_ino : 0;
}

FieldType fieldTypeOf(const QString &declared)
{
    if (declared.startsWith("INTEGER"_L1))
        return FieldType::Long;
    if (declared.startsWith("DOUBLE"_L1))
        return FieldType::Double;
    if (declared.startsWith("DATETIME"_L1))
        return FieldType::Date;
    return declared.startsWith("MEMO"_L1) ? FieldType::Memo : FieldType::Text;
}

int sizeOf(const QString &declared)
{
    const qsizetype open = declared.indexOf(u'(');
    return open < 0 ? 0 : declared.mid(open + 1, declared.indexOf(u')') - open - 1).toInt();
}

TableInfo tableInfo(Connection &connection, const QString &name)
{
    TableInfo info;
    info.name = name;
    info.keyColumn = u"rowid"_s;
    Statement columns =
        connection.prepare("SELECT name, type, pk FROM pragma_table_info(" + quotedText(name) + ")");
    while (columns.step()) {
        const QString declared = columns.text(1).toUpper();
        Column column{columns.text(0), fieldTypeOf(declared), sizeOf(declared), name, columns.text(0)};
        if (columns.integer(2) > 0)
            info.keyColumn = column.name;
        info.columns.append(column);
    }
    return info;
}

QString locationOf(const CatalogueFile &file)
{
    if (file.writable)
        return file.path;
    // Nothing can be written beside the file, so nobody else can either.
    return unchangingLocation(file.path);
}

} // namespace

QString unchangingLocation(const QString &path)
{
    QString escaped = path;
    escaped.replace(u"%"_s, u"%25"_s).replace(u"?"_s, u"%3f"_s).replace(u"#"_s, u"%23"_s);
    return u"file:"_s + escaped + u"?immutable=1"_s;
}

QString metaValue(Connection &connection, const QString &name)
{
    return connection.scalar("SELECT Value FROM sysMeta WHERE Name = " + quotedText(name)).toString();
}

void setMetaValue(Connection &connection, const QString &name, const QString &value)
{
    connection.execute("INSERT OR REPLACE INTO sysMeta (Name, Value) VALUES (" + quotedText(name) + ", " +
                       quotedText(value) + ")");
}

bool isInPresentOrder(Connection &connection)
{
    return metaValue(connection, MetaCollation) == collationVersion();
}

void createTables(Connection &connection, const Schema &schema, bool withIndexes)
{
    WriteTransaction transaction(connection);
    connection.execute(
        "CREATE TABLE sysMeta (Name TEXT PRIMARY KEY, Value TEXT) WITHOUT ROWID;"
        "CREATE TABLE sysQueries (Name TEXT PRIMARY KEY COLLATE NOCASE, SQL TEXT) WITHOUT ROWID;");
    connection.execute("PRAGMA application_id = " + QByteArray::number(schema.applicationId));
    for (const QString &migration : schema.migrations)
        connection.execute(migration.toUtf8());
    connection.execute("PRAGMA user_version = " + QByteArray::number(schema.version()));
    setMetaValue(connection, MetaCollation, collationVersion());
    for (const QString &index : schema.indexes) {
        if (withIndexes)
            connection.execute(index.toUtf8());
    }
    transaction.commit();
}

DatabaseImpl::DatabaseImpl(const QString &path, const Schema &schema, Workspace &workspace,
                           const QString &password)
    : m_schema(schema), m_workspace(workspace), m_file(CatalogueFile::examine(path, schema)),
      m_cloneSource(path)
{
    const auto mode = m_file.writable ? Connection::Mode::ReadWrite : Connection::Mode::ReadOnly;
    m_connection = std::make_unique<Connection>(locationOf(m_file), mode);
    m_tuning.emplace(*m_connection, schema);
    m_inode = inodeOf(path);
    prepareConnection();
    checkPassword(password);
    if (m_file.writable) {
        migrate();
        refreshCollation();
        m_tuning->buildMissingIndexes();
        m_changeLog = std::make_unique<ChangeLog>(*m_connection, schema);
    }
    loadNames();
}

DatabaseImpl::~DatabaseImpl()
{
    try {
        putInOneFile();
    } catch (const std::exception &) {
        // What was committed is safe in the log; the next opening takes it from there.
    }
}

void DatabaseImpl::putInOneFile()
{
    m_walks.abandon();
    // While one is open, the log stays beside the file.
    for (const auto &probe : m_probes) {
        if (const auto open = probe.lock())
            open->close();
    }
    m_probes.clear();
    commitPhysically();
    try {
        endBulk();
    } catch (const DaoError &) {
        // Only indexes are missing.
    }
    if (!m_file.writable)
        return;
    try {
        m_connection->execute("PRAGMA wal_checkpoint(TRUNCATE)");
    } catch (const DaoError &error) {
        throw DaoError(
            error.number,
            error.description +
                u"  The database is now in two files, '%1' and '%1-wal'.  Nothing is lost: keep both "
                "together, and they become one again when it is opened and closed with room on the "
                "disk."_s.arg(m_file.path));
    }
}

void DatabaseImpl::prepareConnection()
{
    if (QFile::exists(m_file.path + u".damaged"_s)) {
        const QString verdict = m_connection->scalar("PRAGMA integrity_check(1)").toString();
        if (verdict != "ok"_L1)
            throw DaoError(CannotOpenFile,
                           u"Cannot open database '%1'.  It may be damaged."_s.arg(m_file.path));
        QFile::remove(m_file.path + u".damaged"_s);
    }
    if (m_file.writable) {
        m_connection->execute("PRAGMA journal_mode = WAL");
        m_connection->execute("PRAGMA synchronous = FULL");
    }
    m_connection->execute("PRAGMA cache_size = -16000");
}

void DatabaseImpl::migrate()
{
    const int present = m_connection->scalar("PRAGMA user_version").toInt();
    for (int version = present + 1; version <= m_schema.version(); ++version) {
        WriteTransaction transaction(*m_connection);
        m_connection->execute(m_schema.migrations[version - 1].toUtf8());
        m_connection->execute("PRAGMA user_version = " + QByteArray::number(version));
        transaction.commit();
    }
}

void DatabaseImpl::checkPassword(const QString &password)
{
    const QString hash = metaValue(*m_connection, MetaPassword);
    if (!hash.isEmpty() && !passwordMatches(hash, password))
        throw DaoError(InvalidPassword, u"Not a valid password."_s);
}

bool DatabaseImpl::hasPassword()
{
    return !metaValue(*m_connection, MetaPassword).isEmpty();
}

void DatabaseImpl::setPassword(const QString &oldPassword, const QString &newPassword)
{
    checkPassword(oldPassword);
    change([&] {
        setMetaValue(*m_connection, MetaPassword,
                     newPassword.isEmpty() ? QString() : passwordHash(newPassword));
    });
}

void DatabaseImpl::learnTable(const QString &name)
{
    m_names.tables[name.toLower()] = tableInfo(*m_connection, name);
}

void DatabaseImpl::refreshCollation()
{
    if (isInPresentOrder(*m_connection))
        return;
    WriteTransaction transaction(*m_connection);
    m_connection->execute("REINDEX DAO");
    setMetaValue(*m_connection, MetaCollation, collationVersion());
    transaction.commit();
}

void DatabaseImpl::loadNames()
{
    Statement tables = m_connection->prepare("SELECT name FROM sqlite_schema WHERE type = 'table' AND name "
                                             "NOT LIKE 'sys%' AND name NOT LIKE 'sqlite%'");
    while (tables.step())
        learnTable(tables.text(0));
    Statement queries = m_connection->prepare("SELECT Name, SQL FROM sysQueries");
    while (queries.step())
        m_names.queries.insert(queries.text(0), queries.text(1));
}

void DatabaseImpl::addQuery(const QString &name, const QString &sql)
{
    if (query(name) || table(name) != nullptr)
        throw DaoError(ObjectExists, u"Object '%1' already exists."_s.arg(name));
    change([&] {
        Statement insert = m_connection->prepare("INSERT INTO sysQueries (Name, SQL) VALUES (?1, ?2)");
        insert.bind(1, QVariant(name));
        insert.bind(2, QVariant(sql));
        insert.step();
    });
    m_names.queries.insert(name, sql);
}

std::unique_ptr<Connection> DatabaseImpl::frozenReader()
{
    if (m_connection->inTransaction() && m_workspace.depth() == 0)
        commitPhysically();
    // Nor can one be opened on a file that is no longer there under its name.
    if (m_connection->inTransaction() || inodeOf(m_file.path) != m_inode)
        return nullptr;
    auto reader = std::make_unique<Connection>(locationOf(m_file), Connection::Mode::ReadOnly);
    reader->execute("BEGIN");
    // The moment is only fixed by the first read.
    static_cast<void>(reader->scalar("SELECT 1 FROM sqlite_schema"));
    return reader;
}

std::shared_ptr<ProbeConnection> DatabaseImpl::newProbe()
{
    assertPresent();
    auto probe = std::make_shared<ProbeConnection>(
        std::make_unique<Connection>(locationOf(m_file), Connection::Mode::ReadOnly), m_names);
    std::erase_if(m_probes, [](const auto &earlier) { return earlier.expired(); });
    m_probes.push_back(probe);
    return probe;
}

void DatabaseImpl::assertWritable() const
{
    if (!m_file.writable)
        throw DaoError(ReadOnly, u"Cannot update.  Database or object is read-only."_s);
    assertPresent();
}

void DatabaseImpl::assertPresent() const
{
    if (inodeOf(m_file.path) != m_inode)
        throw DaoError(
            CatalogueNotFound,
            u"Could not find file '%1'.  It was moved or deleted while it was open."_s.arg(m_file.path));
}

void DatabaseImpl::change(const std::function<void()> &run)
{
    // A statement in the middle of its rows may or may not come upon what its own connection changes.
    m_walks.finish();
    std::optional<WriteTransaction> own;
    if (!m_connection->inTransaction()) {
        assertWritable();
        own.emplace(*m_connection);
    }
    // Within another's transaction a statement that fails undoes itself.
    run();
    if (own && !m_bulk.isOn()) {
        noteChange();
        return own->commit();
    }
    if (own)
        own->leaveOpen();
    if (m_workspace.depth() == 0)
        commitWhenDue();
}

void DatabaseImpl::begin(int depth)
{
    m_walks.finish();
    std::optional<WriteTransaction> outermost;
    if (!m_connection->inTransaction()) {
        assertWritable();
        outermost.emplace(*m_connection);
    }
    Level &level = levelAt(depth);
    level.begin.step();
    level.begin.reset();
    if (outermost)
        outermost->leaveOpen();
}

DatabaseImpl::Level &DatabaseImpl::levelAt(int depth)
{
    const auto index = static_cast<std::size_t>(depth);
    if (m_levels.size() <= index)
        m_levels.resize(index + 1);
    Level &level = m_levels[index];
    if (!level.begin) {
        const QByteArray name = "level" + QByteArray::number(depth);
        level.begin = m_connection->prepare("SAVEPOINT " + name, true);
        level.release = m_connection->prepare("RELEASE " + name, true);
    }
    return level;
}

void DatabaseImpl::commit(int depth)
{
    if (m_connection->inTransaction()) {
        Level &level = levelAt(depth);
        level.release.step();
        level.release.reset();
    }
    if (depth == 1)
        commitWhenDue();
}

void DatabaseImpl::rollback(int depth)
{
    m_walks.finish();
    m_stamps.everythingTouched();
    if (!m_connection->inTransaction())
        return;
    const QByteArray name = "level" + QByteArray::number(depth);
    m_connection->execute("ROLLBACK TO " + name + "; RELEASE " + name);
    if (depth == 1)
        commitWhenDue();
}

void DatabaseImpl::commitWhenDue()
{
    if (!m_bulk.mayWait(m_connection->totalChanges()))
        commitPhysically();
}

// What the journal tells of a change is committed with it, or neither is.
void DatabaseImpl::noteChange()
{
    if (m_changeLog)
        m_changeLog->beforeCommit();
}

void DatabaseImpl::commitPhysically()
{
    m_bulk.committed(m_connection->totalChanges());
    if (!m_connection->inTransaction())
        return;
    m_walks.finish();
    try {
        noteChange();
        WriteTransaction::commitPending(*m_connection);
    } catch (...) {
        if (m_connection->inTransaction())
            m_connection->execute("ROLLBACK");
        m_stamps.everythingTouched();
        throw;
    }
}

void DatabaseImpl::startBulk(const QString &table)
{
    commitPhysically();
    m_walks.finish();
    assertWritable();
    m_tuning->prepare(this->table(table));
    if (m_changeLog)
        m_changeLog->noteAsRun(table);
    m_bulk.start();
}

bool DatabaseImpl::bulkStep()
{
    commitPhysically();
    if (!m_tuning->lacksIndexes())
        return false;
    m_walks.finish();
    m_tuning->buildNextIndex();
    return true;
}

void DatabaseImpl::endBulk()
{
    if (!m_bulk.isOn())
        return;
    m_bulk.stop();
    // A disk that has no room for an index must not leave the commits of a whole run less durable.
    const auto durable = qScopeGuard([this] {
        m_tuning->makeDurable();
        if (m_changeLog)
            m_changeLog->noteAsRun({});
    });
    while (bulkStep()) {
    }
    static_cast<void>(m_connection->scalar("PRAGMA wal_checkpoint(PASSIVE)"));
}

} // namespace dao
