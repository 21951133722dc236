// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/TextReplacement.h"

#include "platform/store/RowKeys.h"
#include "platform/text/Text.h"
#include "songlist/ListTexts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Rows changed between two looks at the wait window: about a fifth of a second. */
constexpr qsizetype Portion = 5000;
/** The same for rows that are changed one by one. */
constexpr qint64 SingleRows = 500;

/** Most characters of the field, 0 for no limit. */
int widthOf(dao::Database &database, const TextField &place)
{
    const QList<dao::Field> fields = database.TableDefs(place.table);
    const auto found = std::ranges::find_if(fields, [name = place.name()](const dao::Field &field) {
        return field.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == fields.end() ? 0 : found->size;
}

/** A song as a message names it, on lines of its own. */
QString described(const dao::Recordset &song)
{
    return u'\n' + song.text(u"SongName"_s) + u'\n' + song.text(u"PathName"_s) + song.text(u"FileName"_s);
}

/** Null for a field that takes any text. */
std::unique_ptr<dao::Recordset> rowsThatOutgrow(dao::Database &database, const TextChange &change)
{
    const int width = widthOf(database, change.place);
    if (width == 0)
        return nullptr;
    return database.OpenRecordset(u"Select * From "_s + change.place.table + u" Where ("_s +
                                      change.condition + u") And Len("_s + change.expression + u") > "_s +
                                      QString::number(width),
                                  dao::RecordsetType::Dynaset);
}

/** Runs one change, and keeps what is left to do of it. */
class TextChanger final
{
public:
    TextChanger(dao::Database &database, const TextChange &change, const dao::GoesOn &goesOn)
        : m_database(database), m_change(change), m_goesOn(goesOn)
    {}

    bool run()
    {
        if (m_change.mayGrow)
            requireRoom();
        return m_change.place.key.isEmpty() ? changeOneByOne(m_change.condition) : changeByKey();
    }

private:
    [[nodiscard]] bool goesOn(qint64 rows)
    {
        m_done += rows;
        return m_goesOn(std::min(m_done, m_all), m_all);
    }

    void requireRoom()
    {
        const TextField &place = m_change.place;
        const auto rows = rowsThatOutgrow(m_database, m_change);
        while (rows && !rows->atEOF() && isLeftOut(rows->bookmark().key))
            rows->MoveNext();
        if (!rows || rows->atEOF())
            return;
        const QString text =
            u"The field '%1' is too small to accept the amount of data you attempted to add."_s.arg(
                place.name());
        throw dao::DaoError(dao::FieldTooSmall, place.key.isEmpty() ? text : text + u'\n' + described(*rows));
    }

    [[nodiscard]] bool isLeftOut(qint64 key) const
    {
        return std::ranges::binary_search(m_change.leftOut, key);
    }

    bool changeByKey()
    {
        const TextField &place = m_change.place;
        const auto rows = m_database.OpenRecordset(u"Select "_s + place.key + u" From "_s + place.table +
                                                       u" Where "_s + m_change.condition,
                                                   dao::RecordsetType::Dynaset);
        std::vector<qint64> found = dao::keysOf(*rows);
        rows->Close();
        std::erase_if(found, [this](qint64 key) { return isLeftOut(key); });
        const dao::RowKeys keys(m_database, std::move(found));
        m_all = keys.count();
        const auto portions = keys.portions(Portion);
        return std::ranges::all_of(
                   portions,
                   [&](const auto &ends) {
                       return changePortion(
                           place.key + u" In (Select RowKey From tmpRowKeys Where RowKey Between %1 And %2)"_s
                                           .arg(ends.first)
                                           .arg(ends.second));
                   }) &&
               changePostponed();
    }

    bool changePortion(const QString &rows)
    {
        const TextField &place = m_change.place;
        try {
            m_database.Execute(u"Update "_s + place.table + u" Set "_s + place.field + u"="_s +
                               m_change.expression + u" Where "_s + rows);
        } catch (const dao::DaoError &error) {
            if (error.number != dao::DuplicateKey)
                throw;
            return changeOneByOne(rows);
        }
        return goesOn(Portion);
    }

    bool changeOneByOne(const QString &condition)
    {
        const auto rows =
            m_database.OpenRecordset(u"Select * From "_s + m_change.place.table + u" Where "_s + condition,
                                     dao::RecordsetType::Dynaset);
        m_all = std::max(m_all, rows->RecordCount());
        qint64 looked = 0;
        for (; !rows->atEOF(); rows->MoveNext()) {
            if (!isLeftOut(rows->bookmark().key) && !changeRow(*rows))
                m_postponed.push_back(rows->bookmark().key);
            if (++looked % SingleRows == 0 && !goesOn(SingleRows))
                return false;
        }
        return goesOn(looked % SingleRows);
    }

    /** False when another song has that file. */
    bool changeRow(dao::Recordset &row)
    {
        const QString field = m_change.place.name();
        row.Edit();
        row.setValue(field, m_change.changed(row.text(field)));
        try {
            row.Update();
        } catch (const dao::DaoError &error) {
            row.CancelUpdate();
            if (error.number != dao::DuplicateKey)
                throw;
            return false;
        }
        return true;
    }

    // The song in the way may have gone on by now: songs whose folders are exchanged in a row, say.
    bool changePostponed()
    {
        while (!m_postponed.empty()) {
            std::vector<qint64> left;
            for (const qint64 key : m_postponed) {
                if (!changeRow(*rowOf(key)))
                    left.push_back(key);
            }
            if (left.size() == m_postponed.size())
                tellConflict(*rowOf(left.front()));
            m_postponed = std::move(left);
            if (!goesOn(0))
                return false;
        }
        return true;
    }

    [[nodiscard]] std::unique_ptr<dao::Recordset> rowOf(qint64 key)
    {
        return m_database.OpenRecordset(u"Select * From "_s + m_change.place.table + u" Where "_s +
                                            m_change.place.key + u" = "_s + QString::number(key),
                                        dao::RecordsetType::Dynaset);
    }

    [[noreturn]] void tellConflict(const dao::Recordset &song)
    {
        const QString field = m_change.place.name();
        const QString text = m_change.changed(song.text(field));
        const QString file = song.text(u"FileName"_s);
        const auto others = m_database.OpenRecordset(u"Select * From tblContacts Where PathName = "_s +
                                                         quoted(text) + u" And FileName = "_s + quoted(file),
                                                     dao::RecordsetType::Dynaset);
        // The store's "=" is blind to case, files are not.
        while (!others->atEOF() &&
               (others->text(u"PathName"_s) != text || others->text(u"FileName"_s) != file))
            others->MoveNext();
        QString message = u"Two songs would have the same file:\n"_s + text + file +
                          u"\n\nThis song would come to it:"_s + described(song);
        if (!others->atEOF())
            message += u"\n\nThis song has it already:"_s + described(*others);
        throw dao::DaoError(dao::DuplicateKey, message);
    }

    dao::Database &m_database;
    const TextChange &m_change;
    const dao::GoesOn &m_goesOn;
    qint64 m_all = 0;
    qint64 m_done = 0;
    /** Keys of the rows that met another one's file. */
    std::vector<qint64> m_postponed;
};

} // namespace

QString TextField::name() const
{
    const QString bare = field.trimmed();
    return bare.sliced(bare.lastIndexOf(u'.') + 1);
}

TextChange partReplaced(const TextField &place, const QString &original, const QString &replacement)
{
    return {.place = place,
            .condition = likeTest(place.field, original),
            .expression = u"Replace("_s + place.field + u", "_s + quoted(original) + u", "_s +
                          quoted(replacement) + u')',
            .changed = [=](QString text) { return text.replace(original, replacement, Qt::CaseInsensitive); },
            .mayGrow = replacement.size() > original.size()};
}

TextChange allReplaced(const TextField &place, const QString &condition, const QString &text)
{
    return {.place = place,
            .condition = condition,
            .expression = quoted(text),
            .changed = [text](const QString & /*old*/) { return text; },
            .mayGrow = !text.isEmpty()};
}

QString likeTest(const QString &field, const QString &text)
{
    return field + u" like "_s + quoted(u'*' + text + u'*') + u' ';
}

qint64 numRecs(dao::Database &database, const QString &sql)
{
    return database.OpenRecordset(sql, dao::RecordsetType::Snapshot)->value(u"NumRecs"_s).toLongLong();
}

qint64 countRows(dao::Database &database, const TextChange &change)
{
    return numRecs(database, u"Select count(*) as NumRecs from "_s + change.place.table + u" Where "_s +
                                 change.condition);
}

bool changesRows(dao::Database &database, const TextChange &change)
{
    return numRecs(database, u"Select count(*) as NumRecs from "_s + change.place.table + u" Where ("_s +
                                 change.condition + u") And ("_s + change.place.field +
                                 u" Is Null Or StrComp("_s + change.place.field + u", "_s +
                                 change.expression + u", 0) <> 0)"_s) > 0;
}

std::vector<qint64> rowsWithoutRoom(dao::Database &database, const TextChange &change)
{
    const auto rows = change.mayGrow ? rowsThatOutgrow(database, change) : nullptr;
    return rows ? dao::keysOf(*rows) : std::vector<qint64>();
}

bool changeTexts(dao::Database &database, const TextChange &change, const dao::GoesOn &goesOn)
{
    return TextChanger(database, change, goesOn).run();
}

} // namespace quaverly
