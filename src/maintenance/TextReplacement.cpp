// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/TextReplacement.h"

#include "platform/store/Dao.h"
#include "platform/text/Text.h"
#include "songlist/DataControl.h"
#include "songlist/ListTexts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Most characters of the field, 0 for no limit. */
int widthOf(dao::Database &database, const TextField &place)
{
    const QList<dao::Field> fields = database.TableDefs(place.table);
    const auto found = std::ranges::find_if(fields, [name = place.name()](const dao::Field &field) {
        return field.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == fields.end() ? 0 : found->size;
}

/** All replacements as one statement, which is done as a whole or not at all. */
class OneStatement final
{
public:
    OneStatement(dao::Database &database, const TextField &place, const QString &original,
                 const QString &replacement)
        : m_database(database), m_place(place),
          m_replaced(u"Replace("_s + place.field + u", "_s + quoted(original) + u", "_s +
                     quoted(replacement) + u')'),
          m_test(likeTest(place.field, original)), m_mayGrow(replacement.size() > original.size())
    {}

    /** False, with nothing changed, when some row would outgrow the field or meet another's key. */
    bool run()
    {
        if (m_mayGrow && outgrows())
            return false;
        try {
            m_database.Execute(u"Update "_s + m_place.table + u" Set "_s + m_place.field + u"="_s +
                               m_replaced + u" Where "_s + m_test);
        } catch (const dao::DaoError &error) {
            if (error.number != dao::DuplicateKey)
                throw;
            return false;
        }
        return true;
    }

private:
    [[nodiscard]] bool outgrows() const
    {
        const int width = widthOf(m_database, m_place);
        return width > 0 && numRecs(m_database, u"Select count(*) as NumRecs from "_s + m_place.table +
                                                    u" Where "_s + m_test + u" And Len("_s + m_replaced +
                                                    u") > "_s + QString::number(width)) > 0;
    }

    dao::Database &m_database;
    const TextField &m_place;
    QString m_replaced;
    QString m_test;
    bool m_mayGrow;
};

qint64 replaceRowByRow(dao::Database &database, const TextField &place, const QString &original,
                       const QString &replacement)
{
    const auto rows = database.OpenRecordset(u"Select "_s + place.field + u" From "_s + place.table +
                                                 u" Where "_s + likeTest(place.field, original),
                                             dao::RecordsetType::Dynaset);
    const QString name = place.name();
    qint64 count = 0;
    dao::Transaction transaction(database.workspace());
    try {
        for (; !rows->atEOF(); rows->MoveNext()) {
            rows->Edit();
            rows->setValue(name, rows->text(name).replace(original, replacement, Qt::CaseInsensitive));
            rows->Update();
            ++count;
        }
    } catch (const dao::DaoError &) {
        // What was done so far stays.
        transaction.commit();
        throw;
    }
    transaction.commit();
    return count;
}

} // namespace

QString TextField::name() const
{
    const QString bare = field.trimmed();
    return bare.sliced(bare.lastIndexOf(u'.') + 1);
}

QString likeTest(const QString &field, const QString &text)
{
    return field + u" like "_s + quoted(u'*' + text + u'*') + u' ';
}

qint64 numRecs(dao::Database &database, const QString &sql)
{
    return database.OpenRecordset(sql, dao::RecordsetType::Snapshot)->value(u"NumRecs"_s).toLongLong();
}

qint64 countLike(dao::Database &database, const TextField &place, const QString &text)
{
    return numRecs(database, u"Select count(*) as NumRecs from "_s + place.table + u" Where "_s +
                                 likeTest(place.field, text));
}

qint64 replaceInAllRows(dao::Database &database, const TextField &place, const QString &original,
                        const QString &replacement)
{
    if (OneStatement(database, place, original, replacement).run())
        return database.RecordsAffected();
    return replaceRowByRow(database, place, original, replacement);
}

void assertFits(dao::Database &database, const TextField &place, const QString &text)
{
    const int width = widthOf(database, place);
    if (width > 0 && text.size() > width)
        throw dao::DaoError(
            dao::FieldTooSmall,
            u"The field '%1' is too small to accept the amount of data you attempted to add."_s.arg(
                place.name()));
}

void changing(DataControl &list, const std::function<void()> &change)
{
    try {
        change();
    } catch (const dao::DaoError &) {
        try {
            list.Refresh();
        } catch (const dao::DaoError &) {
            // The first error is the one to tell.
        }
        throw;
    }
}

} // namespace quaverly
