// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/PlayListSql.h"

#include "songlist/ListTexts.h"

using namespace Qt::StringLiterals;

namespace quaverly::playlistsql {

namespace {

QString number(qint64 value)
{
    return QString::number(value);
}

QString named(const QString &text)
{
    return u'"' + text + u'"';
}

} // namespace

QString listNames()
{
    return u"select ListName, ListID from tblPlayListHeader Order by ListName"_s;
}

QString allLists()
{
    return u"select * from tblPlayListHeader"_s;
}

QString idOfName(const QString &listName)
{
    return u"select ListID from tblPlayListHeader where ListName="_s + named(listName);
}

QString headerOfName(const QString &listName)
{
    return u"select * from tblPlayListHeader Where ListName ="_s + named(listName);
}

QString header(qint64 listId)
{
    return u"Select * From tblPlayListHeader where ListID="_s + number(listId);
}

QString tracks(qint64 listId)
{
    return u"select * from tblPlayListDetail where ListID="_s + number(listId);
}

QString noTracks(qint64 listId)
{
    return tracks(listId) + u" And ListTrackID < 0"_s;
}

QString countTracks(qint64 listId)
{
    return u"Select Count(*) as RowCount From tblPlayListDetail Where ListID="_s + number(listId);
}

QString shownTracks(qint64 listId)
{
    return u"Select SongTitle, ArtistName From tblPlayListDetail Where ListID="_s + number(listId) +
           u" Order by ListTrackID"_s;
}

QString reorder(qint64 listId)
{
    return u"Select ListTrackID, LastUpdated From tblPlayListDetail Where ListID="_s + number(listId) +
           u" order by ListTrackID"_s;
}

QString tracksWithFile(qint64 listId)
{
    return u"Select FileName, SongTitle, ArtistName, ListTrackID From tblPlayListDetail Where ListID="_s +
           number(listId) + u" AND FileName > ' ' Order by ListTrackID"_s;
}

QString fileNames(qint64 listId)
{
    return u"Select FileName From tblPlayListDetail Where ListID="_s + number(listId) +
           u" AND FileName > ' ' Order by ListTrackID"_s;
}

QString filesToCopy(qint64 listId)
{
    return u"Select FileName, ListTrackID From tblPlayListDetail Where ListID="_s + number(listId) +
           u" And len(FileName) > 0  Order by ListTrackID"_s;
}

QString deleteTracks(qint64 listId)
{
    return u"Delete from tblPlayListDetail Where ListID="_s + number(listId);
}

QString deleteHeader(qint64 listId)
{
    return u"Delete from tblPlayListHeader Where ListID="_s + number(listId);
}

QString deleteFile(qint64 listId, const QString &fileName)
{
    return u"Delete From tblPlayListDetail Where ListID="_s + number(listId) + u" And FileName ="_s +
           quoted(fileName);
}

} // namespace quaverly::playlistsql
