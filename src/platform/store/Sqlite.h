// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace dao {

/** One prepared statement. Columns and parameters count from 0 and 1, as SQLite has them. */
class Statement final
{
public:
    Statement() = default;
    Statement(sqlite3 *db, const QByteArray &sql, bool persistent = false);

    void bind(int parameter, qint64 value);
    void bind(int parameter, const QVariant &value);
    /** True while there is a row. @throws DaoError */
    bool step();
    void reset();

    [[nodiscard]] int columnCount() const;
    [[nodiscard]] qint64 integer(int column) const;
    [[nodiscard]] QString text(int column) const;
    /** Of the row stepped to last, until the next step; empty for a Null. */
    [[nodiscard]] QByteArrayView utf8(int column) const;
    /** QString, qint64, double or a Null, as the value is stored. */
    [[nodiscard]] QVariant variant(int column) const;
    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] bool isText(int column) const;
    [[nodiscard]] bool isNumber(int column) const;
    explicit operator bool() const { return m_statement != nullptr; }

private:
    struct Finalise
    {
        void operator()(sqlite3_stmt *statement) const;
    };
    [[nodiscard]] int bindText(int parameter, QStringView text);

    /** What text parameters point to, in SQLite's encoding; used again for the next ones. */
    std::vector<QByteArray> m_texts;
    std::unique_ptr<sqlite3_stmt, Finalise> m_statement;
};

/** One connection, with the store's collation and functions registered. */
class Connection final
{
public:
    /** Damaged reads as ReadWrite does, as far as it goes. */
    enum class Mode { ReadOnly, ReadWrite, Create, Damaged };

    /** @throws DaoError by the rules of daoErrorOf. */
    Connection(const QString &path, Mode mode);

    void execute(const QByteArray &sql);
    [[nodiscard]] Statement prepare(const QByteArray &sql, bool persistent = false);
    /** First column of the first row; a Null without one. */
    [[nodiscard]] QVariant scalar(const QByteArray &sql);
    [[nodiscard]] qint64 changes() const;
    [[nodiscard]] qint64 totalChanges() const;
    [[nodiscard]] qint64 lastInsertKey() const;
    [[nodiscard]] bool inTransaction() const;
    [[nodiscard]] sqlite3 *handle() const { return m_db.get(); }

private:
    struct CloseDb
    {
        void operator()(sqlite3 *db) const;
    };
    std::unique_ptr<sqlite3, CloseDb> m_db;
};

/** A transaction that writes, for the length of a scope: rolled back unless it was committed or left open. */
class WriteTransaction final
{
public:
    explicit WriteTransaction(Connection &connection) : m_connection(connection)
    {
        m_connection.execute("BEGIN IMMEDIATE");
    }
    ~WriteTransaction();
    WriteTransaction(const WriteTransaction &) = delete;
    WriteTransaction &operator=(const WriteTransaction &) = delete;

    /** What can't be committed is rolled back. @throws DaoError */
    void commit();
    /** For one that is committed later, with others. */
    void leaveOpen() { m_open = false; }
    /** Commits what was left open, or rolls it back. @throws DaoError */
    static void commitPending(Connection &connection);

private:
    Connection &m_connection;
    bool m_open = true;
};

/** The one place where SQLite's errors become the store's. */
[[noreturn]] void throwDaoError(sqlite3 *db, int code);

/** Doubles a quote and puts quotes around: a name or a text in SQLite's own SQL. */
[[nodiscard]] QByteArray quotedName(const QString &name);
[[nodiscard]] QByteArray quotedText(const QString &text);

} // namespace dao
