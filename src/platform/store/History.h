// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Dao.h"

#include <QDateTime>
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
};

/** What a change did to one value, or to a whole row. */
struct ChangedValue
{
    enum class Kind { Value, RowAdded, RowDeleted, RowsAdded, FileMoved };

    Kind kind = Kind::Value;
    QString table;
    /** The row's key; the first of them for RowsAdded, the song's for FileMoved. */
    qint64 key = 0;
    /** For Kind::Value alone. */
    QString field;
    /** Of RowsAdded the first and last key, of FileMoved the two paths, of whole rows Null. */
    QVariant before;
    QVariant after;
};

/** A row that stands in the way, since it is not as the change left it. */
struct ChangedRow
{
    QString table;
    qint64 key = 0;
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

    /** The files' moves among its entries, in the order they were made. */
    [[nodiscard]] std::vector<ChangedValue> fileMoves(const Change &change) const;
    /** Some fields of a row as it is now; nothing when it is gone. */
    [[nodiscard]] std::optional<QStringList> presentTexts(const QString &table, qint64 key,
                                                          const QStringList &fields) const;

    enum class Conflicts { Stop, LeaveOut };
    /**
     * Takes back the change that is next, or makes it again: all in one transaction, or with Stop nothing
     * when a row stands in the way. Returns these rows. @throws 3219 for another change than the next.
     */
    std::vector<ChangedRow> takeBack(const Change &change, Conflicts conflicts = Conflicts::Stop);
    std::vector<ChangedRow> makeAgain(const Change &change, Conflicts conflicts = Conflicts::Stop);

private:
    [[nodiscard]] bool isKept() const;
    std::vector<ChangedRow> replay(const Change &change, bool back, Conflicts conflicts);
    [[nodiscard]] std::optional<Change> one(const QByteArray &where) const;

    Database &m_database;
};

} // namespace dao
