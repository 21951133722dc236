// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Dao.h"
#include "platform/store/FileMark.h"

#include <QDateTime>
#include <QSet>
#include <QString>
#include <QVariant>

#include <optional>
#include <vector>

namespace dao {

/** A change of the catalogue, as the journal keeps it. */
struct Change
{
    enum class State {
        Done,
        TakenBack,
        /** Its rows are not kept: it can't be taken back row by row, nor can any before it. */
        CopyOnly
    };

    /** Grows from change to change. */
    qint64 id = 0;
    /** Its last row in the journal; the first is `id`. */
    qint64 last = 0;
    /** Local time, to the second. */
    QDateTime made;
    /** As it was described; empty when nobody did. */
    QString sentence;
    State state = State::Done;
    /** Different rows; -1 when the program was ended before it had counted. */
    qint64 rows = -1;
    /** What people read of it, where that was noted. */
    QString told;
};

/** What a change did to one value, or to a whole row. */
struct ChangedValue
{
    enum class Kind { Value, RowAdded, RowDeleted, RowsAdded, FileMoved, PictureMoved, FileTags };

    Kind kind = Kind::Value;
    QString table;
    /** The row's key; the first of them for RowsAdded, the song's for files and pictures. */
    qint64 key = 0;
    /** For Kind::Value alone. */
    QString field;
    /** Of RowsAdded the first and last key, of files the two paths, of FileTags the path alone, of whole rows
     * Null. */
    QVariant before;
    QVariant after;
};

/** A file that a change moved. */
struct MovedFile
{
    /** Names the move; see History::fileIsNow. */
    qint64 entry = 0;
    /** 0 for a picture of no song. */
    qint64 song = 0;
    bool isPicture = false;
    QString from;
    QString to;
    /** The file as it was left where it is now. */
    FileMark mark;
};

/** A file whose tags were written, or are being written; the store knows nothing of what it keeps of them. */
struct FileTagsChange
{
    /** Place in the journal; below zero while they are being written. */
    qint64 key = 0;
    qint64 song = 0;
    QString path;
    /** What makes the version of before from the new one, and the new one again. */
    QByteArray back;
    QByteArray again;
};

/** A row that stands in the way, since it is not as the change left it. */
struct ChangedRow
{
    QString table;
    qint64 key = 0;
    bool operator==(const ChangedRow &) const = default;
};

/**
 * The journal of an open catalogue, to be read and to be gone along: back from the newest change, and again
 * until there is another new one. Every operation may throw DaoError; a journal that can't be read throws
 * 3049.
 */
class History final
{
public:
    /** @p database outlives this object. */
    explicit History(Database &database) : m_database(database) {}

    /** All, the newest first. */
    [[nodiscard]] std::vector<Change> changes() const;
    /** The change that would be taken back next, and the one that would be made again next. */
    [[nodiscard]] std::optional<Change> undoable() const;
    [[nodiscard]] std::optional<Change> redoable() const;

    /** Entries of the journal for a change; valueAt() takes a place among them, in the order they were made.
     */
    [[nodiscard]] static qint64 valueCount(const Change &change) { return change.last - change.id + 1; }
    [[nodiscard]] std::optional<ChangedValue> valueAt(const Change &change, qint64 place) const;
    /** Some fields of a whole row that a change added or deleted, in the order asked for. */
    [[nodiscard]] QStringList rowTexts(const Change &change, qint64 place, const QStringList &fields) const;

    /** Different rows of one table that the change is about. */
    [[nodiscard]] qint64 rowCount(const Change &change, const QString &table) const;

    /** The files' moves among its entries, in the order they were made; and how many there are. */
    [[nodiscard]] std::vector<MovedFile> fileMoves(const Change &change) const;
    [[nodiscard]] qint64 fileCount(const Change &change) const;
    /** A file that was moved by a change is another now, to the system, than when it was left. */
    void fileIsNow(const MovedFile &file, const FileMark &mark);
    /** The rows of @p table in which the change put one of @p texts into @p field, or took it out. */
    [[nodiscard]] std::vector<ChangedRow> rowsWith(const Change &change, const QString &table,
                                                   const QString &field, const QSet<QString> &texts) const;
    /** The places of the files whose tags it wrote, in the order they were written. */
    [[nodiscard]] std::vector<qint64> taggedFiles(const Change &change) const;
    [[nodiscard]] FileTagsChange taggedFile(qint64 key) const;
    /** Some fields of a row as it is now; nothing when it is gone. */
    [[nodiscard]] std::optional<QStringList> presentTexts(const QString &table, qint64 key,
                                                          const QStringList &fields) const;

    enum class Conflicts { Stop, LeaveOut };
    /**
     * Takes back the change that is next, or makes it again: all in one transaction, or with Stop nothing
     * when a row stands in the way. Returns these rows. Those of @p leftAlone stay as they are and are not
     * told. @throws 3219 for another change than the next.
     */
    std::vector<ChangedRow> takeBack(const Change &change, Conflicts conflicts = Conflicts::Stop,
                                     const std::vector<ChangedRow> &leftAlone = {});
    std::vector<ChangedRow> makeAgain(const Change &change, Conflicts conflicts = Conflicts::Stop,
                                      const std::vector<ChangedRow> &leftAlone = {});

    /** The change that the last Database::endChange ended, unless nothing was changed. */
    [[nodiscard]] std::optional<Change> ended() const;
    /** Notes what people are to read of a change from now on, whatever becomes of its rows. */
    void tell(const Change &change, const QString &sentence);
    /** The change that is being made is one with the last one, where that was said to be of the same sitting:
     * many saves of one text are one change. */
    void ofSitting(const QString &sitting);
    /** The change that is being made is one with @p newest, which an earlier run did not end. */
    void goOnWith(const Change &newest);
    /** Notes, before it goes, that a picture goes elsewhere; and that nothing came of the change after all.
     */
    void notePictureMoved(qint64 song, const QString &from, const QString &to);
    void forgetCurrent();

private:
    [[nodiscard]] bool isKept() const;
    std::vector<ChangedRow> replay(const Change &change, bool back, Conflicts conflicts,
                                   const std::vector<ChangedRow> &leftAlone);
    [[nodiscard]] int numberOf(const QString &table) const;
    [[nodiscard]] std::optional<Change> one(const QByteArray &where) const;

    Database &m_database;
};

} // namespace dao
