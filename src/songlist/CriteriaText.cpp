// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/CriteriaText.h"

#include "catalogue/SongFields.h"
#include "platform/text/Text.h"
#include "songlist/ListTexts.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

bool isOffered(const QString &field)
{
    if (const SongField *known = songField(field))
        return known->inFilterList;
    return !field.endsWith("Desc"_L1);
}

QString withValue(const QString &criteria, const QString &field, const QString &value)
{
    if (!isGreaterThanBlank(value))
        return criteria;
    const QString join = hasCriteria(criteria) ? u" And "_s : u" "_s;
    return criteria + join + field + u" = "_s + quoted(value.trimmed());
}

} // namespace

QStringList criteriaFields(const QStringList &displayed)
{
    QStringList offered;
    for (const QString &field : displayed) {
        if (isOffered(field))
            offered.append(field);
    }
    return offered;
}

QString withField(const QString &criteria, const QString &field)
{
    return criteria + field + u' ';
}

QString withGenreAndRating(const QString &criteria, const QString &genre, const QString &rating)
{
    return withValue(withValue(criteria, u"Genre"_s, genre), u"Rating"_s, rating);
}

QString withAlbum(const QString &criteria, const QString &album, const QString &artist)
{
    if (!isGreaterThanBlank(album))
        return criteria;
    QString condition = u"AlbumName="_s + quoted(album);
    condition +=
        isGreaterThanBlank(artist) ? u" And Artist="_s + quoted(artist) + u" Order By TrackNum "_s : u" "_s;
    return hasCriteria(criteria) ? criteria + u" And "_s + condition : condition;
}

bool hasCriteria(const QString &criteria)
{
    return isGreaterThanBlank(criteria.trimmed());
}

QString songsText(qint64 songs)
{
    if (songs == 1)
        return u"1 song would be shown."_s;
    QLocale locale;
    locale.setNumberOptions({});
    return locale.toString(songs) + u" songs would be shown."_s;
}

} // namespace quaverly
