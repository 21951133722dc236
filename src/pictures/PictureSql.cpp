// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PictureSql.h"

#include "pictures/PictureFiles.h"
#include "songlist/ListTexts.h"

using namespace Qt::StringLiterals;

namespace quaverly::picturesql {

namespace {

/** One condition for each slot, joined by @p between. */
QString inAnySlot(const QString &condition, const QString &between)
{
    QStringList slotConditions;
    for (int slot = 1; slot <= PictureCount; ++slot)
        slotConditions += pictureField(slot) + condition;
    return slotConditions.join(between);
}

} // namespace

QString songsWith(const QString &pictureName)
{
    return u"Select SongName from tblContacts Where "_s +
           inAnySlot(u" = "_s + quoted(pictureName), u" Or "_s) + u" Order By SongName"_s;
}

QString otherSongsWith(const QString &pictureName, qint64 recordId)
{
    return u"Select SongName from tblContacts Where RecordID <> "_s + QString::number(recordId) +
           u" And ("_s + inAnySlot(u" = "_s + quoted(pictureName), u" Or "_s) + u") Order By SongName"_s;
}

QString recordsWith(const QString &pictureName)
{
    return u"SELECT RecordID From tblContacts Where "_s + inAnySlot(u"="_s + quoted(pictureName), u" Or "_s);
}

QString allNames()
{
    return u"SELECT "_s + inAnySlot({}, u", "_s) + u" From tblContacts Where "_s +
           inAnySlot(u" Is Not Null"_s, u" Or "_s);
}

} // namespace quaverly::picturesql
