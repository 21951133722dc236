// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/History.h"
#include "platform/store/Parser.h"
#include "platform/store/ReadProbe.h"
#include "platform/store/RecordsetImpl.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

ast::Statement selectOf(const QString &source, const NameCatalogue &names)
{
    const QString name = source.trimmed();
    QString sql = source;
    if (names.table(name) != nullptr)
        sql = u"SELECT * FROM ["_s + name + u']';
    else if (const auto stored = names.query(name))
        sql = *stored;
    else if (!name.contains(u' ') && !name.contains(u'\n'))
        throw DaoError(UnknownTable,
                       u"The database engine cannot find the input table or query '%1'.  Make sure it "
                       "exists and that its name is spelled correctly."_s.arg(name));
    ast::Statement statement = parseStatement(sql);
    if (statement.kind != ast::Statement::Kind::Select)
        throw DaoError(InvalidOperation,
                       u"Invalid operation: only a query that selects rows can be opened."_s);
    return statement;
}

} // namespace

Workspace::Workspace() = default;

Workspace::~Workspace()
{
    QObject::disconnect(m_settler);
}

void Workspace::BeginTrans()
{
    if (m_database == nullptr)
        throw DaoError(InvalidOperation, u"There is no open database."_s);
    m_database->begin(m_depth + 1);
    ++m_depth;
    // What a command leaves pending must not hang on what the user does next.
    if (auto *dispatcher = QAbstractEventDispatcher::instance(); dispatcher != nullptr && !m_settler) {
        m_settler = QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, dispatcher, [this] {
            if (m_scopes > 0)
                return;
            try {
                settle();
            } catch (const DaoError &e) {
                qWarning("%s", qPrintable(e.description));
            }
        });
    }
}

void Workspace::CommitTrans()
{
    if (m_depth == 0)
        throw DaoError(NoTransaction,
                       u"You tried to commit or roll back a transaction without first beginning one."_s);
    m_database->commit(m_depth--);
}

void Workspace::Rollback()
{
    if (m_depth == 0)
        throw DaoError(NoTransaction,
                       u"You tried to commit or roll back a transaction without first beginning one."_s);
    m_database->rollback(m_depth--);
}

int Workspace::depth() const
{
    return m_depth;
}

bool Workspace::isPending() const
{
    return m_database != nullptr && m_database->connection().inTransaction();
}

void Workspace::settle()
{
    m_depth = 0;
    if (m_settler)
        QObject::disconnect(m_settler);
    m_settler = {};
    if (m_database != nullptr)
        m_database->commitPhysically();
}

Transaction::Transaction(Workspace &workspace) : m_workspace(workspace)
{
    m_workspace.BeginTrans();
    ++m_workspace.m_scopes;
}

Transaction::~Transaction()
{
    if (!m_open)
        return;
    --m_workspace.m_scopes;
    try {
        m_workspace.Rollback();
    } catch (const std::exception &) {
        // The disk has undone it already.
    }
}

void Transaction::commit()
{
    m_open = false;
    --m_workspace.m_scopes;
    m_workspace.CommitTrans();
}

Database::Database(std::unique_ptr<DatabaseImpl> impl) : m_impl(std::move(impl))
{
    m_impl->workspace().m_database = m_impl.get();
}

Database::~Database()
{
    try {
        Close();
    } catch (const std::exception &) {
        // Close says what went wrong to whoever calls it; here nobody listens.
    }
}

void Database::Close()
{
    if (!m_impl)
        return;
    const std::unique_ptr<DatabaseImpl> closing = std::move(m_impl);
    Workspace &workspace = closing->workspace();
    const bool isOwn = workspace.m_database == closing.get();
    const auto forget = qScopeGuard([&] {
        if (isOwn)
            workspace.m_database = nullptr;
    });
    if (isOwn)
        workspace.settle();
    closing->putInOneFile();
}

QString Database::Name() const
{
    return m_impl->path();
}

bool Database::Updatable() const
{
    return m_impl->writable();
}

bool Database::lacksIndexes() const
{
    return m_impl->lacksIndexes();
}

std::unique_ptr<Recordset> Database::OpenRecordset(const QString &source)
{
    const bool isTable = m_impl->table(source.trimmed()) != nullptr;
    return OpenRecordset(source, isTable ? RecordsetType::Table : RecordsetType::Dynaset);
}

std::unique_ptr<Recordset> Database::OpenRecordset(const QString &source, RecordsetType type)
{
    const ast::Statement statement = selectOf(source, *m_impl);
    if (type == RecordsetType::Table && m_impl->table(source.trimmed()) == nullptr)
        throw DaoError(InvalidOperation, u"Invalid operation: only a table opens as a table."_s);
    return std::make_unique<Recordset>(
        std::make_unique<RecordsetImpl>(*m_impl, planSelect(*statement.select, *m_impl), type));
}

std::unique_ptr<Recordset> Database::OpenRecordset(const QString &source, ReadRows rows)
{
    const ast::Statement statement = selectOf(source, *m_impl);
    auto impl = std::make_unique<RecordsetImpl>(*m_impl, planSelect(*statement.select, *m_impl),
                                                RecordsetType::Dynaset);
    impl->adoptRows(std::move(*rows.m_rows));
    return std::make_unique<Recordset>(std::move(impl));
}

void Database::Execute(const QString &sql)
{
    const QByteArray statement = planAction(sql, *m_impl);
    m_impl->change([&] {
        m_impl->connection().execute(statement);
        m_recordsAffected = m_impl->connection().changes();
    });
    m_impl->stamps().everythingTouched();
}

qint64 Database::RecordsAffected() const
{
    return m_recordsAffected;
}

QueryDef Database::QueryDefs(const QString &name) const
{
    const auto sql = m_impl->query(name);
    if (!sql)
        throw DaoError(ItemNotFound, u"Item not found in this collection: '%1'."_s.arg(name));
    return {name, *sql};
}

QStringList Database::queryNames() const
{
    return m_impl->queryNames();
}

void Database::CreateQueryDef(const QString &name, const QString &sql)
{
    m_impl->addQuery(name, sql);
}

QList<Field> Database::TableDefs(const QString &table) const
{
    const TableInfo *info = m_impl->table(table);
    if (info == nullptr)
        throw DaoError(UnknownTable,
                       u"The database engine cannot find the input table or query '%1'."_s.arg(table));
    QList<Field> fields;
    for (const Column &column : info->columns)
        fields.append({column.name, column.type, column.size, column.name});
    return fields;
}

bool Database::hasPassword() const
{
    return m_impl->hasPassword();
}

void Database::NewPassword(const QString &oldPassword, const QString &newPassword)
{
    m_impl->setPassword(oldPassword, newPassword);
}

void Database::describeChange(const QString &sentence)
{
    if (ChangeLog *log = m_impl->changeLog())
        log->describe(sentence);
}

void Database::endChange()
{
    workspace().settle();
    ChangeLog *log = m_impl->changeLog();
    if (log == nullptr)
        return;
    if (m_changeHeld)
        log->mayRepeat();
    else
        log->endChange();
}

void Database::noteFileMoved(qint64 song, const QString &from, const QString &to)
{
    m_impl->change([&] {
        if (ChangeLog *log = m_impl->changeLog())
            log->noteFileMoved(FileMoved, song, from, to);
    });
}

qint64 Database::keepFileTags(const FileTagsChange &change)
{
    ChangeLog *log = m_impl->changeLog();
    if (log == nullptr || !log->usable())
        throw DaoError(ReadOnly, u"Cannot update.  Database or object is read-only."_s);
    qint64 key = 0;
    m_impl->change([&] { key = log->keepFileTags(change); });
    workspace().settle();
    return key;
}

void Database::noteFileTags(qint64 key)
{
    m_impl->change([&] { m_impl->changeLog()->noteFileTags(key); });
}

void Database::dropFileTags(qint64 key)
{
    m_impl->change([&] {
        m_impl->connection().execute("DELETE FROM sysTags WHERE Seq < 0 AND Seq = " +
                                     QByteArray::number(key));
    });
}

std::vector<FileTagsChange> Database::unfinishedFileTags()
{
    std::vector<FileTagsChange> all;
    const ChangeLog *log = m_impl->changeLog();
    if (log == nullptr || !log->usable())
        return all;
    Statement rows =
        m_impl->connection().prepare(QByteArray("SELECT ") + FileTagsColumns + " FROM sysTags WHERE Seq < 0");
    while (rows.step())
        all.push_back(fileTagsOf(rows));
    return all;
}

void Database::ExecuteUnlogged(const QString &sql, const QString &sentence)
{
    endChange();
    Transaction transaction(workspace());
    if (ChangeLog *log = m_impl->changeLog()) {
        const ChangeLog::Silence silence(*log);
        Execute(sql);
        m_impl->change([&] { log->noteCopyOnly(sentence); });
    }
    transaction.commit();
    endChange();
}

std::unique_ptr<ReadProbe> Database::probe()
{
    return std::make_unique<ReadProbe>(m_impl->newProbe());
}

Workspace &Database::workspace()
{
    return m_impl->workspace();
}

BulkLoad::BulkLoad(Database &database, const QString &table) : m_database(database)
{
    m_database.impl().startBulk(table);
}

BulkLoad::~BulkLoad()
{
    try {
        m_database.impl().endBulk();
    } catch (const std::exception &) {
        // What is missing is built at the next opening.
    }
}

bool BulkLoad::finishStep()
{
    return m_database.impl().bulkStep();
}

} // namespace dao
