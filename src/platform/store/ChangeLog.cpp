// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/ChangeLog.h"

#include "platform/store/DaoError.h"
#include "platform/store/FileMark.h"

#include <QDateTime>

#include <algorithm>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** Changes with more rows of the log are counted once, at their end, and not before every commit. */
constexpr qint64 CountedAtCommit = 1000;

/** What the journal may hold: so many bytes or a quarter of the catalogue, whichever is more, and so long. */
constexpr qint64 SmallestLimit = 256LL * 1024 * 1024;
constexpr int LimitDays = 90;

/** What a row of the log takes beside its two values. */
constexpr int BytesOfRow = 16;

void changeLogFunction(sqlite3_context *context, int /*arguments*/, sqlite3_value **values)
{
    const auto *log = static_cast<const ChangeLog *>(sqlite3_user_data(context));
    sqlite3_result_int(context, log->keeps(sqlite3_value_int(values[0]), sqlite3_value_int(values[1]) != 0));
}

QByteArray isState(ChangeState state)
{
    return "State = " + QByteArray::number(static_cast<int>(state));
}

QByteArray whenKept(std::size_t number, bool added, const QString &condition, const QByteArray &row)
{
    QByteArray when = " WHEN change_log(" + QByteArray::number(number) + ", " + (added ? "1)" : "0)");
    if (!condition.isEmpty())
        when += " AND (" + QString(condition).replace(u"row."_s, QString::fromLatin1(row)).toUtf8() + ")";
    return when;
}

/** Statements take texts alone. */
QString asText(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

} // namespace

QByteArray LogTable::images(std::size_t number)
{
    return "sysRow" + QByteArray::number(number);
}

QByteArray LogTable::imageColumn(const Kept &column)
{
    return "c" + QByteArray::number(column.place);
}

QByteArray LogTable::names(const QByteArray &prefix) const
{
    QByteArray all;
    for (const Kept &column : columns)
        all += ", " + prefix + quotedName(column.name);
    return all;
}

QByteArray LogTable::imageNames(const QByteArray &prefix) const
{
    QByteArray all;
    for (const Kept &column : columns)
        all += ", " + prefix + imageColumn(column);
    return all;
}

ChangeLog::ChangeLog(Connection &connection, const Schema &schema) : m_connection(connection)
{
    try {
        for (const LoggedTable &logged : schema.logged) {
            LogTable table{logged.name, {}};
            Statement columns = connection.prepare("SELECT cid, name, pk FROM pragma_table_info(" +
                                                   quotedText(logged.name) + ")");
            while (columns.step()) {
                if (columns.integer(2) == 0 && !logged.passedOver.contains(columns.text(1)))
                    table.columns.push_back({columns.text(1), static_cast<int>(columns.integer(0))});
            }
            m_tables.push_back(std::move(table));
        }
        sqlite3_create_function_v2(connection.handle(), "change_log", 2, SQLITE_UTF8, this, changeLogFunction,
                                   nullptr, nullptr, nullptr);
        makeTables();
        for (std::size_t number = 0; number < m_tables.size(); ++number)
            makeTriggers(number, schema.logged[static_cast<qsizetype>(number)]);
        m_usable = true;
    } catch (const DaoError &) {
        // The catalogue opens all the same; the history then says that it can't be read.
        if (connection.inTransaction())
            connection.execute("ROLLBACK");
        m_keeping = false;
    }
}

// Nothing is written, and no lock waited for, where all is there already.
void ChangeLog::makeTables()
{
    const QByteArray missing = missingTables();
    if (!missing.isEmpty())
        m_connection.execute("BEGIN IMMEDIATE;" + missing + "COMMIT");
    // A last page that can't be read would stop every change later on.
    static_cast<void>(lastSeq());
    static_cast<void>(integerOf("SELECT max(First + Last + State) FROM sysChange"));
    static_cast<void>(integerOf("SELECT max(Seq + Inode + Size) FROM sysFile"));
}

QByteArray ChangeLog::missingTables()
{
    const auto columnsOf = [this](const QByteArray &table) {
        QByteArrayList names;
        Statement columns = m_connection.prepare("SELECT name FROM pragma_table_info('" + table + "')");
        while (columns.step())
            names.append(columns.text(0).toUtf8());
        return names;
    };
    QByteArray statements;
    const QByteArrayList changes = columnsOf("sysChange");
    if (changes.isEmpty())
        statements +=
            "CREATE TABLE sysChange (First INTEGER PRIMARY KEY, Last INTEGER, Made TEXT, Sentence TEXT, "
            "State INTEGER, RowCount INTEGER, Bytes INTEGER, Told TEXT);";
    else if (!changes.contains("Told"))
        statements += "ALTER TABLE sysChange ADD COLUMN Told TEXT;";
    if (columnsOf("sysFile").isEmpty())
        statements += "CREATE TABLE sysFile (Seq INTEGER PRIMARY KEY, Inode INTEGER, Size INTEGER);";
    if (columnsOf("sysLog").isEmpty())
        statements +=
            "CREATE TABLE sysLog (Seq INTEGER PRIMARY KEY, Tab INTEGER, RowKey INTEGER, Col INTEGER, Old, "
            "New);";
    if (columnsOf("sysTags").isEmpty())
        statements +=
            "CREATE TABLE sysTags (Seq INTEGER PRIMARY KEY, Song INTEGER, Path TEXT, Back TEXT, Again TEXT);";
    for (std::size_t number = 0; number < m_tables.size(); ++number) {
        const QByteArray images = LogTable::images(number);
        const QByteArrayList present = columnsOf(images);
        if (present.isEmpty())
            statements += "CREATE TABLE " + images + " (Seq INTEGER PRIMARY KEY);";
        for (const LogTable::Kept &column : m_tables[number].columns) {
            if (!present.contains(LogTable::imageColumn(column)))
                statements += "ALTER TABLE " + images + " ADD COLUMN " + LogTable::imageColumn(column) + ";";
        }
    }
    return statements;
}

void ChangeLog::makeTriggers(std::size_t number, const LoggedTable &logged)
{
    const LogTable &table = m_tables[number];
    const QByteArray tab = QByteArray::number(number);
    const QByteArray on = " ON main." + quotedName(table.name);
    const QByteArray insert = " BEGIN INSERT INTO sysLog (Tab, RowKey, Col, Old, New) VALUES (" + tab + ", ";
    // A trigger for each column: only those of the columns that a statement sets have work.
    for (const LogTable::Kept &column : table.columns) {
        const QByteArray name = quotedName(column.name);
        const QByteArray place = QByteArray::number(column.place);
        m_connection.execute("CREATE TEMP TRIGGER logU" + tab + "_" + place + " AFTER UPDATE OF " + name +
                             on + whenKept(number, false, logged.condition, "NEW.") + " AND OLD." + name +
                             " IS NOT NEW." + name + " COLLATE BINARY" + insert + "OLD.rowid, " + place +
                             ", OLD." + name + ", NEW." + name + "); END");
    }
    const auto wholeRow = [&](const QByteArray &event, const QByteArray &row, LogMark mark) {
        m_connection.execute("CREATE TEMP TRIGGER log" + event.left(1) + tab + " AFTER " + event + on +
                             whenKept(number, mark == RowAdded, logged.condition, row) + insert + row +
                             "rowid, " + QByteArray::number(mark) + ", NULL, NULL); INSERT INTO " +
                             LogTable::images(number) + " (Seq" + table.imageNames() +
                             ") VALUES (last_insert_rowid()" + table.names(row) + "); END");
    };
    wholeRow("INSERT", "NEW.", RowAdded);
    wholeRow("DELETE", "OLD.", RowDeleted);
}

void ChangeLog::describe(const QString &sentence)
{
    if (m_sentence.isEmpty())
        m_sentence = sentence;
}

void ChangeLog::beforeCommit()
{
    if (!m_usable)
        return;
    noteRun();
    const qint64 last = lastSeq();
    Statement newest =
        m_connection.prepare("SELECT First, Last, State FROM sysChange ORDER BY First DESC LIMIT 1");
    const bool any = newest.step();
    const qint64 noted = any ? newest.integer(1) : 0;
    // Another program's change in between ends ours.
    if (m_first == 0 || !any || newest.integer(0) != m_first)
        m_first = noted + 1;
    if (last < m_first || (last == noted && m_runSeq == 0)) {
        if (last < m_first)
            m_first = 0;
        return;
    }
    // A new change ends what could be done again; that is always the newest of all.
    if (any && newest.integer(2) == static_cast<qint64>(ChangeState::TakenBack))
        forgetChanges(m_connection, m_tables.size(), isState(ChangeState::TakenBack));
    m_uncounted = last - m_first >= CountedAtCommit;
    noteChange(m_first, last, m_uncounted ? Count() : countOf(m_first, last));
}

ChangeLog::Count ChangeLog::countOf(qint64 first, qint64 last)
{
    const QByteArray own =
        " WHERE Seq BETWEEN " + QByteArray::number(first) + " AND " + QByteArray::number(last);
    Statement rows = m_connection.prepare("SELECT count(DISTINCT Tab || ' ' || RowKey), count(*), "
                                          "sum(ifnull(length(Old), 0) + ifnull(length(New), 0)) FROM sysLog" +
                                          own + " AND Col <> " + QByteArray::number(RowsAdded));
    static_cast<void>(rows.step());
    Count count{rows.integer(0), rows.integer(1) * BytesOfRow + rows.integer(2)};
    count.rows += integerOf("SELECT sum(New - Old + 1) FROM sysLog" + own +
                            " AND Col = " + QByteArray::number(RowsAdded));
    for (std::size_t number = 0; number < m_tables.size(); ++number) {
        QByteArray lengths = "0";
        for (const LogTable::Kept &column : m_tables[number].columns)
            lengths += " + ifnull(length(" + LogTable::imageColumn(column) + "), 0) + 1";
        count.bytes += integerOf("SELECT sum(" + lengths + ") FROM " + LogTable::images(number) + own);
    }
    count.bytes +=
        integerOf("SELECT sum(ifnull(length(Back), 0) + ifnull(length(Again), 0)) FROM sysTags" + own);
    return count;
}

void ChangeLog::noteChange(qint64 first, qint64 last, const Count &count)
{
    Statement note = m_connection.prepare(
        "INSERT INTO sysChange (First, Last, Made, Sentence, State, RowCount, Bytes) VALUES (?1, ?2, ?3, ?4, "
        "0, ?5, ?6) ON CONFLICT (First) DO UPDATE SET Last = ?2, Sentence = ?4, RowCount = ?5, Bytes = ?6, "
        "Told = NULL");
    note.bind(1, first);
    note.bind(2, last);
    note.bind(3, QVariant(QDateTime::currentDateTime().toString(Qt::ISODate)));
    note.bind(4, m_sentence.isEmpty() ? QVariant() : QVariant(m_sentence));
    note.bind(5, count.rows);
    note.bind(6, count.bytes);
    static_cast<void>(note.step());
}

void ChangeLog::noteAsRun(const QString &table)
{
    const auto found = std::ranges::find(m_tables, table, &LogTable::name);
    m_runSeq = 0;
    m_runTable = found == m_tables.end() ? -1 : static_cast<int>(found - m_tables.begin());
    if (m_usable && m_runTable >= 0)
        m_runFrom = integerOf("SELECT max(rowid) FROM " + quotedName(table));
}

void ChangeLog::noteRun()
{
    if (m_runTable < 0 || !m_keeping)
        return;
    const qint64 highest = integerOf("SELECT max(rowid) FROM " +
                                     quotedName(m_tables[static_cast<std::size_t>(m_runTable)].name));
    if (highest <= m_runFrom)
        return;
    Statement update = m_connection.prepare("UPDATE sysLog SET New = ?1 WHERE Seq = ?2 AND Col = ?3");
    update.bind(1, highest);
    update.bind(2, m_runSeq);
    update.bind(3, static_cast<qint64>(RowsAdded));
    static_cast<void>(update.step());
    // Not there yet, or rolled back with the rows that it told of.
    if (m_connection.changes() == 0)
        m_runSeq = addRow(RowsAdded, m_runTable, 0, m_runFrom + 1, highest);
}

qint64 ChangeLog::addRow(LogMark mark, int table, qint64 key, const QVariant &before, const QVariant &after)
{
    Statement insert =
        m_connection.prepare("INSERT INTO sysLog (Tab, RowKey, Col, Old, New) VALUES (?1, ?2, ?3, ?4, ?5)");
    insert.bind(1, static_cast<qint64>(table));
    insert.bind(2, key);
    insert.bind(3, static_cast<qint64>(mark));
    insert.bind(4, before);
    insert.bind(5, after);
    static_cast<void>(insert.step());
    return m_connection.lastInsertKey();
}

void ChangeLog::noteFileMoved(LogMark mark, qint64 song, const QString &from, const QString &to)
{
    if (!m_usable || !m_keeping)
        return;
    const qint64 seq = addRow(mark, 0, song, from, to);
    // Pictures are told of before they go.
    noteFileMark(m_connection, seq, markOf(mark == PictureMoved ? from : to).value_or(FileMark()));
}

qint64 ChangeLog::keepFileTags(const FileTagsChange &change)
{
    const qint64 key = std::min<qint64>(0, integerOf("SELECT min(Seq) FROM sysTags")) - 1;
    Statement insert = m_connection.prepare(
        "INSERT INTO sysTags (Seq, Song, Path, Back, Again) VALUES (?1, ?2, ?3, ?4, ?5)");
    insert.bind(1, key);
    insert.bind(2, change.song);
    insert.bind(3, QVariant(change.path));
    insert.bind(4, QVariant(asText(change.back)));
    insert.bind(5, QVariant(asText(change.again)));
    static_cast<void>(insert.step());
    return key;
}

void ChangeLog::noteFileTags(qint64 key)
{
    Statement kept = m_connection.prepare("SELECT Song, Path FROM sysTags WHERE Seq = ?1");
    kept.bind(1, key);
    if (!kept.step())
        return;
    const qint64 seq = addRow(FileTags, 0, kept.integer(0), kept.variant(1), {});
    Statement move = m_connection.prepare("UPDATE sysTags SET Seq = ?1 WHERE Seq = ?2");
    move.bind(1, seq);
    move.bind(2, key);
    static_cast<void>(move.step());
}

FileTagsChange fileTagsOf(const Statement &row)
{
    const auto bytes = [&](int column) { return QByteArray::fromBase64(row.text(column).toLatin1()); };
    return {row.integer(0), row.integer(1), row.text(2), bytes(3), bytes(4)};
}

void ChangeLog::noteCopyOnly(const QString &sentence)
{
    if (!m_usable)
        return;
    m_sentence = sentence;
    m_first = addRow(RowsNotKept, 0, 0, {}, {});
    noteChange(m_first, m_first, {});
    m_connection.execute("UPDATE sysChange SET " + isState(ChangeState::CopyOnly) +
                         " WHERE First = " + QByteArray::number(m_first));
}

void ChangeLog::endChange()
{
    const bool made = m_usable && m_first != 0;
    const bool joins = made && !m_sitting.isEmpty() && m_sitting == m_endedSitting;
    try {
        if (made && (m_uncounted || joins || m_mayRepeat)) {
            m_connection.execute("BEGIN IMMEDIATE");
            if (joins)
                joinSitting();
            if (joins || m_mayRepeat)
                keepWhatCameOfIt();
            if (m_first != 0)
                noteChange(m_first, lastSeq(), countOf(m_first, lastSeq()));
            m_connection.execute("COMMIT");
        }
        // Small changes add up slowly: once in a run is enough for them.
        if (made && (m_uncounted || !m_expired))
            expire();
        m_expired = m_expired || made;
    } catch (const DaoError &) {
        // The change stands and can be taken back; only its count is missing.
        if (m_connection.inTransaction())
            m_connection.execute("ROLLBACK");
    }
    m_uncounted = false;
    m_mayRepeat = false;
    m_ended = made ? m_first : 0;
    if (made) {
        m_endedSitting = m_sitting;
        m_lastMade = m_first;
    }
    m_sitting.clear();
    m_first = 0;
    m_sentence.clear();
}

void ChangeLog::goOnWith(qint64 first)
{
    m_sitting = m_endedSitting = QString::number(first);
    m_lastMade = first;
}

void ChangeLog::joinSitting()
{
    Statement before = m_connection.prepare(
        "SELECT First, Sentence FROM sysChange WHERE First < ?1 ORDER BY First DESC LIMIT 1");
    before.bind(1, m_first);
    // Another program's change in between parts them.
    if (!before.step() || before.integer(0) != m_lastMade)
        return;
    m_connection.execute("DELETE FROM sysChange WHERE First = " + QByteArray::number(m_first));
    m_first = m_lastMade;
    if (m_sentence.isEmpty())
        m_sentence = before.text(1);
}

// A value that was changed several times went from the first text to the last.
void ChangeLog::keepWhatCameOfIt()
{
    const qint64 last = lastSeq();
    const QByteArray own =
        " Seq BETWEEN " + QByteArray::number(m_first) + " AND " + QByteArray::number(last) + " AND ";
    const auto isThere = [this](const QByteArray &where) {
        return integerOf("SELECT EXISTS (SELECT 1 FROM sysLog WHERE" + where + ")") != 0;
    };
    // Whole rows have to be gone along step by step.
    if (last - m_first >= CountedAtCommit || isThere(own + "Col BETWEEN -4 AND -1"))
        return;
    const QByteArray same =
        " l.Tab = sysLog.Tab AND l.RowKey = sysLog.RowKey AND l.Col = sysLog.Col AND l.Seq";
    m_connection.execute("UPDATE sysLog SET New = (SELECT l.New FROM sysLog AS l WHERE" + same +
                         " BETWEEN sysLog.Seq AND " + QByteArray::number(last) +
                         " ORDER BY l.Seq DESC LIMIT 1) WHERE" + own + "Col >= 0");
    m_connection.execute("DELETE FROM sysLog WHERE" + own +
                         "Col >= 0 AND (EXISTS (SELECT 1 FROM sysLog AS l WHERE" + same + " BETWEEN " +
                         QByteArray::number(m_first) +
                         " AND sysLog.Seq - 1) OR (Old IS New AND typeof(Old) = typeof(New)))");
    if (!isThere(own + "1"))
        forgetCurrent();
}

void ChangeLog::forgetCurrent()
{
    if (m_first == 0)
        return;
    forgetChanges(m_connection, m_tables.size(), "First = " + QByteArray::number(m_first));
    m_first = 0;
}

// The oldest first; what is kept of one change alone may be too much as well.
void ChangeLog::expire()
{
    const qint64 catalogue = integerOf("PRAGMA page_count") * integerOf("PRAGMA page_size");
    const qint64 limit = std::max(SmallestLimit, catalogue / 4);
    const QByteArray oldest =
        quotedText(QDateTime::currentDateTime().addDays(-LimitDays).toString(Qt::ISODate));
    const qint64 newest = integerOf("SELECT max(First) FROM sysChange");
    const qint64 firstKept = integerOf("SELECT min(First) FROM (SELECT First, Made, sum(Bytes) OVER (ORDER "
                                       "BY First DESC) AS Held FROM sysChange) "
                                       "WHERE Held <= " +
                                       QByteArray::number(limit) + " AND Made >= " + oldest);
    const qint64 from = firstKept == 0 ? newest + 1 : firstKept;
    const QByteArray gone = "First < " + QByteArray::number(from);
    if (integerOf("SELECT EXISTS (SELECT 1 FROM sysChange WHERE " + gone + ")") == 0)
        return;
    const QString sentence = m_sentence;
    m_connection.execute("BEGIN IMMEDIATE");
    forgetChanges(m_connection, m_tables.size(), gone);
    if (from > newest)
        noteCopyOnly(sentence);
    m_connection.execute("COMMIT");
}

void forgetChanges(Connection &connection, std::size_t tables, const QByteArray &condition)
{
    std::vector<std::pair<qint64, qint64>> ranges;
    Statement changes = connection.prepare("SELECT First, Last FROM sysChange WHERE " + condition);
    while (changes.step())
        ranges.emplace_back(changes.integer(0), changes.integer(1));
    for (const auto &[first, last] : ranges) {
        const QByteArray own =
            " WHERE Seq BETWEEN " + QByteArray::number(first) + " AND " + QByteArray::number(last);
        const QByteArray runs =
            "SELECT Tab, Old, New FROM sysLog" + own + " AND Col = " + QByteArray::number(RowsAdded);
        for (Statement run = connection.prepare(runs); run.step();)
            connection.execute("DELETE FROM " + LogTable::images(static_cast<std::size_t>(run.integer(0))) +
                               " WHERE Seq BETWEEN " + QByteArray::number(-run.integer(2)) + " AND " +
                               QByteArray::number(-run.integer(1)));
        for (std::size_t number = 0; number < tables; ++number)
            connection.execute("DELETE FROM " + LogTable::images(number) + own);
        connection.execute("DELETE FROM sysFile" + own);
        connection.execute("DELETE FROM sysTags" + own);
        connection.execute("DELETE FROM sysLog" + own);
    }
    if (!ranges.empty())
        connection.execute("DELETE FROM sysChange WHERE " + condition);
}

} // namespace dao
