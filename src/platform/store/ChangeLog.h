// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/History.h"
#include "platform/store/Schema.h"
#include "platform/store/Sqlite.h"

#include <QString>

#include <vector>

namespace dao {

/** What a row of the log says; a number from 0 on is the place of the column that changed. */
enum LogMark : int {
    RowAdded = -1,
    RowDeleted = -2,
    /** A run of keys; Old and New are the first and the last. */
    RowsAdded = -3,
    /** Nothing is kept of the change. */
    RowsNotKept = -4,
    /** A file of that song went from Old to New. */
    FileMoved = -5,
    /** A picture of that song did; 0 for a picture of no song. */
    PictureMoved = -6,
    /** The tags of that song's file, at the path Old, went to another version: a row of sysTags. */
    FileTags = -7,
};

/** How the state of a change is stored. */
enum class ChangeState : int {
    Done = 0,
    TakenBack = 1,
    /** Its rows are not kept: a dated copy of the catalogue stands in. */
    CopyOnly = 2,
};

/** A logged table, with those of its columns that are kept. */
struct LogTable
{
    struct Kept
    {
        QString name;
        int place = 0;
    };
    QString name;
    std::vector<Kept> columns;

    /** "sysRow" and the table's number: where its whole rows are kept. */
    [[nodiscard]] static QByteArray images(std::size_t number);
    /** "c" and the column's place. */
    [[nodiscard]] static QByteArray imageColumn(const Kept &column);
    /** The kept columns' names in the table, and in the images; both begin with ", ". */
    [[nodiscard]] QByteArray names(const QByteArray &prefix = {}) const;
    [[nodiscard]] QByteArray imageNames(const QByteArray &prefix = {}) const;
};

/**
 * The journal of an open catalogue: what statements did to the rows, written by triggers in the transaction
 * of the change itself. The triggers are temporary, so that other programs write as before.
 *
 *   sysChange (First, Last, Made, Sentence, State, RowCount, Bytes, Told): one row a change, with the first
 *      and the last row of sysLog that are its own; Sentence is what its command said, Told what people read.
 *   sysLog (Seq, Tab, RowKey, Col, Old, New): a column that changed, or a LogMark.
 *   sysFile (Seq, Inode, Size): the file that row Seq of the log moved, as it was left.
 *   sysRow<n> (Seq, c<place>...): the whole row of table n that row Seq of the log added or deleted. Rows of
 *      a RowsAdded are kept once it is taken back, under their keys below zero.
 *   sysTags (Seq, Song, Path, Back, Again): of a file whose tags were written, what makes the version of
 *      before of it and what makes the new one again. Below zero stand those that are being written.
 *
 * A journal that can't be used makes no difference to the catalogue: nothing is kept then.
 */
class ChangeLog final
{
public:
    /** Makes what is missing of the journal's tables, and the triggers. Never throws. */
    ChangeLog(Connection &connection, const Schema &schema);
    ChangeLog(const ChangeLog &) = delete;
    ChangeLog &operator=(const ChangeLog &) = delete;

    [[nodiscard]] bool usable() const { return m_usable; }
    [[nodiscard]] const std::vector<LogTable> &tables() const { return m_tables; }

    /** Sentence of the change that is being made; the first one said holds. */
    void describe(const QString &sentence);
    /** Notes the change in the transaction that is about to be committed. */
    void beforeCommit();
    /** What comes next is another change. Not for use within a transaction. */
    void endChange();
    /** The change that is being made goes on with the one before it, where that was of the same sitting. */
    void ofSitting(const QString &sitting) { m_sitting = sitting; }
    /** The change that is being made goes on with the newest one, which an earlier run did not end. */
    void goOnWith(qint64 first);
    /** The change that is being made may go to and fro: what came of it in the end is kept. */
    void mayRepeat() { m_mayRepeat = true; }
    /** Nothing came of the change that is being made, which has no rows yet. In the pending transaction. */
    void forgetCurrent();
    /** First row of the change that ended last; 0 when nothing was changed. */
    [[nodiscard]] qint64 ended() const { return m_ended; }
    /** Notes a change of which no row is kept, in the pending transaction. */
    void noteCopyOnly(const QString &sentence);
    /** Notes a file's move as part of the change that is being made, in the pending transaction. */
    void noteFileMoved(LogMark mark, qint64 song, const QString &from, const QString &to);
    /** Keeps what a file's tags are about to become, in the pending transaction. @returns its key */
    qint64 keepFileTags(const FileTagsChange &change);
    /** They became it, as part of the change that is being made; in the pending transaction. */
    void noteFileTags(qint64 key);

    /** From here on the rows added to @p table are noted as one run of keys; an empty name ends that. */
    void noteAsRun(const QString &table);

    /** While it lives, nothing is kept. */
    class Silence final
    {
    public:
        explicit Silence(ChangeLog &log) : m_log(log), m_before(log.m_keeping) { log.m_keeping = false; }
        ~Silence() { m_log.m_keeping = m_before; }
        Silence(const Silence &) = delete;
        Silence &operator=(const Silence &) = delete;

    private:
        ChangeLog &m_log;
        bool m_before;
    };

    /** What the triggers ask: whether a row of that table is kept. */
    [[nodiscard]] bool keeps(int table, bool added) const
    {
        return m_keeping && (!added || table != m_runTable);
    }

private:
    void makeTables();
    [[nodiscard]] QByteArray missingTables();
    void makeTriggers(std::size_t number, const LoggedTable &logged);
    void noteRun();
    [[nodiscard]] qint64 integerOf(const QByteArray &sql) { return m_connection.scalar(sql).toLongLong(); }
    [[nodiscard]] qint64 lastSeq() { return integerOf("SELECT max(Seq) FROM sysLog"); }
    struct Count
    {
        qint64 rows = -1;
        qint64 bytes = 0;
    };
    [[nodiscard]] Count countOf(qint64 first, qint64 last);
    void noteChange(qint64 first, qint64 last, const Count &count);
    void joinSitting();
    void keepWhatCameOfIt();
    qint64 addRow(LogMark mark, int table, qint64 key, const QVariant &before, const QVariant &after);
    void expire();

    Connection &m_connection;
    std::vector<LogTable> m_tables;
    bool m_usable = false;
    bool m_keeping = true;
    QString m_sentence;
    /** First row of the change that is being made; 0 before it has one. */
    qint64 m_first = 0;
    /** Its rows were too many to count before the commit. */
    bool m_uncounted = false;
    bool m_mayRepeat = false;
    QString m_sitting;
    /** The sitting of the change that was made last, and that change. */
    QString m_endedSitting;
    qint64 m_lastMade = 0;
    qint64 m_ended = 0;
    /** What is too old or too much has been looked for in this run. */
    bool m_expired = false;
    int m_runTable = -1;
    /** The highest key before the run, and the log's row that tells of it. */
    qint64 m_runFrom = 0;
    qint64 m_runSeq = 0;
};

/** What of sysTags a statement reads, in the order of FileTagsChange. */
inline constexpr char FileTagsColumns[] = "Seq, Song, Path, Back, Again";
[[nodiscard]] FileTagsChange fileTagsOf(const Statement &row);

/** Deletes changes with all that is kept of them; @p condition is over sysChange. In the pending transaction.
 */
void forgetChanges(Connection &connection, std::size_t tables, const QByteArray &condition);

} // namespace dao
