// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/Sqlite.h"

#include "platform/store/Collation.h"
#include "platform/store/DaoError.h"
#include "platform/store/SqlFunctions.h"

#include <QDateTime>
#include <QFile>
#include <QStringEncoder>

#include <algorithm>
#include <cerrno>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** Waits this long for another process's lock before it is an error, in milliseconds. */
constexpr int BusyTimeout = 2000;

/** A statement keeps the memory of texts up to this length, in characters. */
constexpr qsizetype LargestKeptText = 16 * 1024;

struct Mapping
{
    int sqliteCode;
    int number;
    const char *text;
};

constexpr Mapping Mappings[] = {
    {SQLITE_CONSTRAINT, DuplicateKey,
     "The changes you requested to the table were not successful because they would create duplicate values "
     "in the index or primary key."},
    {SQLITE_FULL, DiskFull, "The disk is full."},
    {SQLITE_READONLY, ReadOnly, "Cannot update.  Database or object is read-only."},
    {SQLITE_BUSY, Locked, "The database is currently locked by another program.  Try again."},
    {SQLITE_LOCKED, Locked, "The database is currently locked.  Try again."},
    {SQLITE_CORRUPT, CannotOpenFile, "The database file is damaged."},
    {SQLITE_NOTADB, UnrecognisedFormat, "Unrecognized database format."},
    {SQLITE_PERM, PermissionDenied, "Permission denied."},
    {SQLITE_AUTH, PermissionDenied, "Permission denied."},
    {SQLITE_CANTOPEN, PathFileAccess, "The database file can't be opened."},
    {SQLITE_IOERR, PathFileAccess, "The disk reported an error."},
    {SQLITE_TOOBIG, TooComplex, "The text is too long for the query."},
    {SQLITE_NOMEM, TooComplex, "There is not enough memory for the query."},
    {SQLITE_MISMATCH, TypeMismatch, "Data type mismatch."},
};

/** The next opening looks the file over when its mark lies beside it. */
void leaveDamageMark(sqlite3 *db)
{
    const char *path = db != nullptr ? sqlite3_db_filename(db, "main") : nullptr;
    if (path == nullptr || *path == '\0')
        return;
    QFile mark(QFile::decodeName(path) + u".damaged"_s);
    static_cast<void>(mark.open(QIODevice::WriteOnly));
}

/** A quota or the largest file that the disk takes is as good as its end. */
bool isOutOfSpace(int systemError)
{
    return systemError == EFBIG || systemError == EDQUOT || systemError == ENOSPC;
}

} // namespace

void throwDaoError(sqlite3 *db, int code)
{
    if ((code & 0xFF) == SQLITE_CORRUPT)
        leaveDamageMark(db);
    const QString detail = db != nullptr ? QString::fromUtf8(sqlite3_errmsg(db)) : QString();
    if ((code & 0xFF) == SQLITE_ERROR) {
        static constexpr const char *limits[] = {"too large", "overflow", "too many", "at most"};
        if (std::ranges::any_of(limits, [&](const char *l) { return detail.contains(QLatin1StringView(l)); }))
            throw DaoError(TooComplex, u"Query is too complex."_s);
        throw DaoError(SyntaxError, u"Syntax error in query expression.  "_s + detail);
    }
    if (code == SQLITE_IOERR_WRITE && isOutOfSpace(errno))
        throw DaoError(DiskFull, u"The disk is full."_s);
    for (const Mapping &mapping : Mappings) {
        if (mapping.sqliteCode == (code & 0xFF))
            throw DaoError(mapping.number, QString::fromLatin1(mapping.text));
    }
    throw DaoError(Internal, u"The store could not run the statement: "_s + detail);
}

QByteArray quotedName(const QString &name)
{
    return '"' + name.toUtf8().replace('"', "\"\"") + '"';
}

QByteArray quotedText(const QString &text)
{
    return '\'' + text.toUtf8().replace('\'', "''") + '\'';
}

void Statement::Finalise::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

Statement::Statement(sqlite3 *db, const QByteArray &sql, bool persistent)
{
    sqlite3_stmt *statement = nullptr;
    const unsigned flags = persistent ? SQLITE_PREPARE_PERSISTENT : 0;
    const int code =
        sqlite3_prepare_v3(db, sql.constData(), static_cast<int>(sql.size()), flags, &statement, nullptr);
    m_statement.reset(statement);
    if (code != SQLITE_OK)
        throwDaoError(db, code);
}

void Statement::bind(int parameter, qint64 value)
{
    sqlite3_bind_int64(m_statement.get(), parameter, value);
}

void Statement::bind(int parameter, const QVariant &value)
{
    sqlite3_stmt *s = m_statement.get();
    int code = SQLITE_OK;
    if (value.isNull()) {
        code = sqlite3_bind_null(s, parameter);
    } else if (value.typeId() == QMetaType::Double) {
        code = sqlite3_bind_double(s, parameter, value.toDouble());
    } else if (value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::Int ||
               value.typeId() == QMetaType::Bool) {
        code = sqlite3_bind_int64(s, parameter, value.toLongLong());
    } else {
        code = value.typeId() == QMetaType::QString
                   ? bindText(parameter, *static_cast<const QString *>(value.constData()))
                   : bindText(parameter, value.toString());
    }
    if (code != SQLITE_OK)
        throwDaoError(sqlite3_db_handle(s), code);
}

int Statement::bindText(int parameter, QStringView text)
{
    if (text.size() > LargestKeptText) {
        const QByteArray utf8 = text.toUtf8();
        return sqlite3_bind_text64(m_statement.get(), parameter, utf8.constData(),
                                   static_cast<sqlite3_uint64>(utf8.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    const auto index = static_cast<std::size_t>(parameter);
    if (m_texts.size() <= index)
        m_texts.resize(index + 1);
    QByteArray &utf8 = m_texts[index];
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    if (const qsizetype needed = encoder.requiredSpace(text.size()); utf8.size() < needed)
        utf8.resize(needed);
    const qsizetype size = encoder.appendToBuffer(utf8.data(), text) - utf8.constData();
    return sqlite3_bind_text64(m_statement.get(), parameter, utf8.constData(),
                               static_cast<sqlite3_uint64>(size), SQLITE_STATIC, SQLITE_UTF8);
}

bool Statement::step()
{
    const int code = sqlite3_step(m_statement.get());
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE)
        return false;
    sqlite3 *db = sqlite3_db_handle(m_statement.get());
    const int extended = sqlite3_extended_errcode(db);
    sqlite3_reset(m_statement.get());
    throwDaoError(db, extended);
}

void Statement::reset()
{
    sqlite3_reset(m_statement.get());
}

int Statement::columnCount() const
{
    return sqlite3_column_count(m_statement.get());
}

qint64 Statement::integer(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

QString Statement::text(int column) const
{
    const auto *bytes = reinterpret_cast<const char *>(sqlite3_column_text(m_statement.get(), column));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(m_statement.get(), column));
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

bool Statement::isText(int column) const
{
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_TEXT;
}

bool Statement::isNumber(int column) const
{
    const int type = sqlite3_column_type(m_statement.get(), column);
    return type == SQLITE_INTEGER || type == SQLITE_FLOAT;
}

QByteArrayView Statement::utf8(int column) const
{
    const auto *bytes = reinterpret_cast<const char *>(sqlite3_column_text(m_statement.get(), column));
    return {bytes, bytes == nullptr ? 0 : sqlite3_column_bytes(m_statement.get(), column)};
}

QVariant Statement::variant(int column) const
{
    switch (sqlite3_column_type(m_statement.get(), column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return integer(column);
    case SQLITE_FLOAT:
        return sqlite3_column_double(m_statement.get(), column);
    default:
        return text(column);
    }
}

void Connection::CloseDb::operator()(sqlite3 *db) const
{
    sqlite3_close_v2(db);
}

Connection::Connection(const QString &path, Mode mode)
{
    int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_URI;
    flags |= mode == Mode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    if (mode == Mode::Create)
        flags |= SQLITE_OPEN_CREATE;
    sqlite3 *db = nullptr;
    const int code = sqlite3_open_v2(QFile::encodeName(path).constData(), &db, flags, nullptr);
    m_db.reset(db);
    if (code != SQLITE_OK)
        throwDaoError(db, code);
    sqlite3_busy_timeout(db, BusyTimeout);
    // What is missing at a damaged file's end or in its schema is passed over in that mode alone.
    const int damaged = mode == Mode::Damaged ? 1 : 0;
    sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1 - damaged, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_WRITABLE_SCHEMA, damaged, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 1, nullptr);
    registerCollation(db);
    registerFunctions(db);
}

void Connection::execute(const QByteArray &sql)
{
    const int code = sqlite3_exec(m_db.get(), sql.constData(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        throwDaoError(m_db.get(), code);
}

Statement Connection::prepare(const QByteArray &sql, bool persistent)
{
    return {m_db.get(), sql, persistent};
}

QVariant Connection::scalar(const QByteArray &sql)
{
    Statement statement = prepare(sql);
    return statement.step() ? statement.variant(0) : QVariant();
}

qint64 Connection::changes() const
{
    return sqlite3_changes64(m_db.get());
}

qint64 Connection::totalChanges() const
{
    return sqlite3_total_changes64(m_db.get());
}

qint64 Connection::lastInsertKey() const
{
    return sqlite3_last_insert_rowid(m_db.get());
}

bool Connection::inTransaction() const
{
    return sqlite3_get_autocommit(m_db.get()) == 0;
}

namespace {

void rollBack(Connection &connection)
{
    // A full disk may have done so already.
    if (connection.inTransaction())
        sqlite3_exec(connection.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

} // namespace

WriteTransaction::~WriteTransaction()
{
    if (m_open)
        rollBack(m_connection);
}

void WriteTransaction::commit()
{
    m_open = false;
    commitPending(m_connection);
}

void WriteTransaction::commitPending(Connection &connection)
{
    try {
        connection.execute("COMMIT");
    } catch (...) {
        rollBack(connection);
        throw;
    }
}

} // namespace dao
