// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/ListTexts.h"

#include "catalogue/SongFields.h"
#include "platform/text/Text.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr auto OrderBy = "order by"_L1;

/** Place of the first "order by" outside quoted values: a song may bear these words. */
qsizetype orderByPlace(const QString &sql)
{
    QChar quote;
    for (qsizetype i = 0; i < sql.size(); ++i) {
        const QChar c = sql.at(i);
        if (!quote.isNull())
            quote = c == quote ? QChar() : quote;
        else if (c == u'"' || c == u'\'')
            quote = c;
        else if (QStringView(sql).sliced(i).startsWith(OrderBy, Qt::CaseInsensitive))
            return i;
    }
    return -1;
}

QString playListJoin()
{
    return u"SELECT DISTINCTROW tblContacts.* FROM tblContacts INNER JOIN tblPlayListDetail ON "
           "tblContacts.RecordID = tblPlayListDetail.ContactRecordID "_s;
}

QString selectAndSource(const ListTexts &texts)
{
    // A play list's restriction names a table that only its own join knows.
    if (texts.ListWhere.startsWith(" WHERE tblPlayListDetail."_L1))
        return playListJoin();
    return u"Select * from  "_s + texts.ListSource;
}

} // namespace

QString quoted(const QString &text)
{
    return u'"' + ReplaceText(text, u"\""_s, u"\"\""_s) + u'"';
}

QString composeList(const ListTexts &texts)
{
    return selectAndSource(texts) + texts.ListWhere + texts.ListOrder;
}

QString composeWithSelection(const ListTexts &texts)
{
    return selectAndSource(texts) + texts.ListWhere + texts.ListSelectionClause + texts.ListOrder;
}

QString categoryClause(qint64 number)
{
    return u" CategoryNumber = "_s + QString::number(number) + u' ';
}

qint64 categoryOf(const QString &clause)
{
    return clause.sliced(clause.indexOf(u'=') + 1).trimmed().toLongLong();
}

QString artistWhere(const QString &artist)
{
    return u" Where Artist = "_s + quoted(artist) + u' ';
}

QString conditionOf(const QString &criteria)
{
    return criteria.left(criteria.indexOf(OrderBy, 0, Qt::CaseInsensitive));
}

FilterTexts splitCriteria(const QString &criteria)
{
    const QString text = criteria.trimmed();
    const QString condition = conditionOf(text);
    FilterTexts result;
    if (condition.size() < text.size())
        result.order = u' ' + text.sliced(condition.size());
    result.filter = u" ("_s + condition.trimmed() + u") "_s;
    return result;
}

QString filterWhere(const ListTexts &texts)
{
    if (texts.ListCategoryClause.isEmpty())
        return u" Where "_s + texts.ListFilterText;
    return u" Where "_s + texts.ListCategoryClause + u" And "_s + texts.ListFilterText;
}

QString composeFilter(ListTexts &texts, const QString &criteria)
{
    const FilterTexts filter = splitCriteria(criteria);
    texts.ListFilterText = filter.filter;
    texts.ListWhere = filterWhere(texts);
    return u"Select distinctrow * from  "_s + texts.ListSource + texts.ListWhere +
           filter.order.value_or(texts.ListOrder);
}

QString findClause(const QString &answer, const FieldTest &isThere)
{
    const bool isDate = IsDate(answer);
    QStringList terms;
    for (const SongField &field : songFields()) {
        if (isThere && !isThere(field.name))
            continue;
        if (field.searched == Searched::AsText)
            terms.append(QString(field.name) + u" Like "_s + quoted(u'*' + answer + u'*') + u' ');
        else if (field.searched == Searched::AsDate && isDate)
            terms.append(QString(field.name) + u"=#"_s + answer + u"# "_s);
    }
    return u" ("_s + terms.join("OR "_L1) + u')';
}

QString invalidFilesWhere(const QString &categoryClause)
{
    const QString join =
        u" INNER JOIN tblOrphanFileNames ON tblContacts.RecordID = tblOrphanFileNames.RecordIdOrphan "_s;
    return categoryClause.isEmpty() ? join : join + u"And "_s + categoryClause;
}

QString playListWhere(qint64 listId)
{
    return u" WHERE tblPlayListDetail.ListID="_s + QString::number(listId) + u' ';
}

QString playListSource(const QString &playListWhere, const QString &currentSource)
{
    QString tail;
    if (const qsizetype place = orderByPlace(currentSource); place >= 0) {
        tail = currentSource.sliced(place) + u' ';
        if (!tail.contains("tblContacts!"_L1))
            tail.replace("order by "_L1, "order by tblContacts!"_L1, Qt::CaseInsensitive);
    }
    return playListJoin() + playListWhere + tail;
}

QString withOrder(const QString &source, const QString &listOrder)
{
    const qsizetype place = orderByPlace(source);
    return (place < 0 ? source : source.first(place)) + listOrder;
}

QString hideClause(const QString &listWhere)
{
    // The join of the invalid-file view brings no WHERE of its own.
    const bool hasWhere = isGreaterThanBlank(listWhere) && !listWhere.contains("INNER JOIN"_L1);
    return hasWhere ? u" And Selected < 'x' "_s : u" Where Selected < 'x' "_s;
}

QString clauseForCount(const QString &selectionClause, const QString &listWhere)
{
    if (!isGreaterThanBlank(selectionClause))
        return selectionClause;
    const QString comparison = selectionClause.contains(u'<') ? u"<"_s : u"="_s;
    const QString lead = isGreaterThanBlank(listWhere) ? u" And Selected "_s : u" Where Selected "_s;
    return lead + comparison + u" 'x' "_s;
}

QString sumStatement(const QString &source)
{
    const qsizetype from = source.indexOf("from"_L1, 0, Qt::CaseInsensitive);
    const qsizetype order = orderByPlace(source);
    const qsizetype end = order < 0 ? source.size() : order;
    return u"SELECT Sum(FileSizeNum) AS SumOfFileSizeNum "_s + source.sliced(from, end - from);
}

} // namespace quaverly
