// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/History.h"

#include "platform/store/ChangeReplay.h"
#include "platform/store/DatabaseImpl.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

const QByteArray Columns = "SELECT First, Last, Made, Sentence, State, RowCount, Told FROM sysChange ";

Change changeOf(const Statement &row)
{
    return {row.integer(0),
            row.integer(1),
            QDateTime::fromString(row.text(2), Qt::ISODate),
            row.text(3),
            static_cast<Change::State>(row.integer(4)),
            row.integer(5),
            row.text(6)};
}

ChangedValue::Kind kindOf(qint64 mark)
{
    switch (mark) {
    case RowAdded:
        return ChangedValue::Kind::RowAdded;
    case RowDeleted:
        return ChangedValue::Kind::RowDeleted;
    case RowsAdded:
        return ChangedValue::Kind::RowsAdded;
    case FileMoved:
        return ChangedValue::Kind::FileMoved;
    case PictureMoved:
        return ChangedValue::Kind::PictureMoved;
    case FileTags:
        return ChangedValue::Kind::FileTags;
    default:
        return ChangedValue::Kind::Value;
    }
}

} // namespace

// On ground that can't be written to there is no journal, and nothing to be taken back.
bool History::isKept() const
{
    const ChangeLog *log = m_database.impl().changeLog();
    if (log != nullptr && !log->usable())
        throw DaoError(
            CannotOpenFile,
            u"The history of this database can't be read.  The disk may be full, or the history is damaged."_s);
    return log != nullptr;
}

std::vector<Change> History::changes() const
{
    std::vector<Change> all;
    if (!isKept())
        return all;
    Statement rows = m_database.impl().connection().prepare(Columns + "ORDER BY First DESC");
    while (rows.step())
        all.push_back(changeOf(rows));
    return all;
}

std::optional<Change> History::one(const QByteArray &where) const
{
    if (!isKept())
        return std::nullopt;
    Statement rows = m_database.impl().connection().prepare(Columns + where);
    return rows.step() ? std::optional(changeOf(rows)) : std::nullopt;
}

std::optional<Change> History::undoable() const
{
    const auto newest = one("WHERE State <> 1 ORDER BY First DESC LIMIT 1");
    return newest && newest->state == Change::State::Done ? newest : std::nullopt;
}

std::optional<Change> History::redoable() const
{
    return one("WHERE State = 1 ORDER BY First LIMIT 1");
}

std::optional<ChangedValue> History::valueAt(const Change &change, qint64 place) const
{
    DatabaseImpl &database = m_database.impl();
    Statement row =
        database.connection().prepare("SELECT Tab, RowKey, Col, Old, New FROM sysLog WHERE Seq = ?1");
    row.bind(1, change.id + place);
    if (!row.step())
        return std::nullopt;
    const LogTable &table = database.changeLog()->tables()[static_cast<std::size_t>(row.integer(0))];
    ChangedValue value{kindOf(row.integer(2)), table.name,    row.integer(1), {},
                       row.variant(3),         row.variant(4)};
    const auto column =
        std::ranges::find(table.columns, static_cast<int>(row.integer(2)), &LogTable::Kept::place);
    if (column != table.columns.end())
        value.field = column->name;
    return value;
}

QStringList History::rowTexts(const Change &change, qint64 place, const QStringList &fields) const
{
    DatabaseImpl &database = m_database.impl();
    const auto value = valueAt(change, place);
    if (!value)
        return {};
    const auto &tables = database.changeLog()->tables();
    const auto table = std::ranges::find(tables, value->table, &LogTable::name);
    QByteArray columns = "Seq";
    for (const QString &field : fields) {
        const auto column = std::ranges::find(table->columns, field, &LogTable::Kept::name);
        columns +=
            ", " + (column == table->columns.end() ? QByteArray("''") : LogTable::imageColumn(*column));
    }
    Statement row = database.connection().prepare(
        "SELECT " + columns + " FROM " + LogTable::images(static_cast<std::size_t>(table - tables.begin())) +
        " WHERE Seq = ?1");
    row.bind(1, change.id + place);
    QStringList texts;
    if (row.step()) {
        for (int i = 1; i <= fields.size(); ++i)
            texts.append(row.text(i));
    }
    return texts;
}

std::vector<MovedFile> History::fileMoves(const Change &change) const
{
    std::vector<MovedFile> moves;
    Statement rows = m_database.impl().connection().prepare(
        "SELECT l.Seq, l.RowKey, l.Col, l.Old, l.New, f.Inode, f.Size FROM sysFile AS f, sysLog AS l "
        "WHERE f.Seq BETWEEN ?1 AND ?2 AND l.Seq = f.Seq ORDER BY f.Seq");
    rows.bind(1, change.id);
    rows.bind(2, change.last);
    while (rows.step())
        moves.push_back({rows.integer(0),
                         rows.integer(1),
                         rows.integer(2) == PictureMoved,
                         rows.text(3),
                         rows.text(4),
                         {rows.integer(5), rows.integer(6)}});
    return moves;
}

qint64 History::fileCount(const Change &change) const
{
    Statement count =
        m_database.impl().connection().prepare("SELECT count(*) FROM sysFile WHERE Seq BETWEEN ?1 AND ?2");
    count.bind(1, change.id);
    count.bind(2, change.last);
    return count.step() ? count.integer(0) : 0;
}

void History::fileIsNow(const MovedFile &file, const FileMark &mark)
{
    m_database.impl().change([&] { noteFileMark(m_database.impl().connection(), file.entry, mark); });
}

qint64 History::rowCount(const Change &change, const QString &table) const
{
    Statement count = m_database.impl().connection().prepare(
        "SELECT count(DISTINCT RowKey) FROM sysLog WHERE Seq BETWEEN ?1 AND ?2 AND Tab = ?3");
    count.bind(1, change.id);
    count.bind(2, change.last);
    count.bind(3, static_cast<qint64>(numberOf(table)));
    return count.step() ? count.integer(0) : 0;
}

int History::numberOf(const QString &table) const
{
    const auto &tables = m_database.impl().changeLog()->tables();
    return static_cast<int>(std::ranges::find(tables, table, &LogTable::name) - tables.begin());
}

std::vector<ChangedRow> History::rowsWith(const Change &change, const QString &table, const QString &field,
                                          const QSet<QString> &texts) const
{
    const int number = numberOf(table);
    const auto &columns = m_database.impl().changeLog()->tables()[static_cast<std::size_t>(number)].columns;
    const auto column = std::ranges::find(columns, field, &LogTable::Kept::name);
    std::vector<ChangedRow> found;
    if (column == columns.end())
        return found;
    Statement rows = m_database.impl().connection().prepare(
        "SELECT RowKey, Old, New FROM sysLog WHERE Seq BETWEEN ?1 AND ?2 AND Tab = ?3 AND Col = ?4");
    rows.bind(1, change.id);
    rows.bind(2, change.last);
    rows.bind(3, static_cast<qint64>(number));
    rows.bind(4, static_cast<qint64>(column->place));
    while (rows.step()) {
        if (texts.contains(rows.text(1)) || texts.contains(rows.text(2)))
            found.push_back({table, rows.integer(0)});
    }
    return found;
}

std::vector<qint64> History::taggedFiles(const Change &change) const
{
    std::vector<qint64> keys;
    Statement rows = m_database.impl().connection().prepare(
        "SELECT Seq FROM sysTags WHERE Seq BETWEEN ?1 AND ?2 ORDER BY Seq");
    rows.bind(1, change.id);
    rows.bind(2, change.last);
    while (rows.step())
        keys.push_back(rows.integer(0));
    return keys;
}

FileTagsChange History::taggedFile(qint64 key) const
{
    Statement row = m_database.impl().connection().prepare(QByteArray("SELECT ") + FileTagsColumns +
                                                           " FROM sysTags WHERE Seq = ?1");
    row.bind(1, key);
    return row.step() ? fileTagsOf(row) : FileTagsChange();
}

std::optional<QStringList> History::presentTexts(const QString &table, qint64 key,
                                                 const QStringList &fields) const
{
    QByteArray columns = "rowid";
    for (const QString &field : fields)
        columns += ", " + quotedName(field);
    Statement row = m_database.impl().connection().prepare("SELECT " + columns + " FROM " +
                                                           quotedName(table) + " WHERE rowid = ?1");
    row.bind(1, key);
    if (!row.step())
        return std::nullopt;
    QStringList texts;
    for (int i = 1; i <= fields.size(); ++i)
        texts.append(row.text(i));
    return texts;
}

std::vector<ChangedRow> History::takeBack(const Change &change, Conflicts conflicts,
                                          const std::vector<ChangedRow> &leftAlone)
{
    const auto next = undoable();
    if (!next || next->id != change.id)
        throw DaoError(InvalidOperation, u"This change is not the one that can be taken back next."_s);
    return replay(*next, true, conflicts, leftAlone);
}

std::vector<ChangedRow> History::makeAgain(const Change &change, Conflicts conflicts,
                                           const std::vector<ChangedRow> &leftAlone)
{
    const auto next = redoable();
    if (!next || next->id != change.id)
        throw DaoError(InvalidOperation, u"This change is not the one that can be made again next."_s);
    return replay(*next, false, conflicts, leftAlone);
}

std::vector<ChangedRow> History::replay(const Change &change, bool back, Conflicts conflicts,
                                        const std::vector<ChangedRow> &leftAlone)
{
    DatabaseImpl &database = m_database.impl();
    const ChangeLog::Silence silence(*database.changeLog());
    std::vector<ReplayConflict> left;
    std::set<ReplayConflict> alone;
    for (const ChangedRow &row : leftAlone)
        alone.insert({numberOf(row.table), row.key});
    Transaction transaction(database.workspace());
    database.change([&] {
        ChangeReplay run(database.connection(), database.schema(), database.changeLog()->tables(),
                         back ? ReplayDirection::Back : ReplayDirection::Again);
        run.leaveAlone(std::move(alone));
        left = run.run(change.id, change.last);
        const auto state = back ? ChangeState::TakenBack : ChangeState::Done;
        database.connection().execute(
            "UPDATE sysChange SET State = " + QByteArray::number(static_cast<int>(state)) +
            " WHERE First = " + QByteArray::number(change.id));
    });
    database.stamps().everythingTouched();
    if (left.empty() || conflicts == Conflicts::LeaveOut)
        transaction.commit();
    std::vector<ChangedRow> rows;
    rows.reserve(left.size());
    for (const ReplayConflict &row : left)
        rows.push_back({database.changeLog()->tables()[static_cast<std::size_t>(row.table)].name, row.key});
    return rows;
}

std::optional<Change> History::ended() const
{
    const ChangeLog *log = m_database.impl().changeLog();
    return log == nullptr || log->ended() == 0 ? std::nullopt
                                               : one("WHERE First = " + QByteArray::number(log->ended()));
}

void History::tell(const Change &change, const QString &sentence)
{
    DatabaseImpl &database = m_database.impl();
    database.change([&] {
        Statement note = database.connection().prepare("UPDATE sysChange SET Told = ?1 WHERE First = ?2");
        note.bind(1, QVariant(sentence));
        note.bind(2, change.id);
        static_cast<void>(note.step());
    });
}

void History::ofSitting(const QString &sitting)
{
    if (ChangeLog *log = m_database.impl().changeLog())
        log->ofSitting(sitting);
}

void History::goOnWith(const Change &newest)
{
    if (ChangeLog *log = m_database.impl().changeLog())
        log->goOnWith(newest.id);
}

void History::notePictureMoved(qint64 song, const QString &from, const QString &to)
{
    m_database.impl().change([&] {
        if (ChangeLog *log = m_database.impl().changeLog())
            log->noteFileMoved(PictureMoved, song, from, to);
    });
}

void History::forgetCurrent()
{
    m_database.impl().change([&] {
        if (ChangeLog *log = m_database.impl().changeLog())
            log->forgetCurrent();
    });
}

} // namespace dao
