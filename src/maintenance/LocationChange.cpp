// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/LocationChange.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"
#include "maintenance/TextReplacement.h"
#include "platform/text/Text.h"
#include "songlist/DisplayedSet.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

const TextField SongFolders{u"tblContacts"_s, u"PathName"_s};
const TextField PlayListFiles{u"tblPlayListDetail"_s, u"FileName"_s};

bool isComplete(const QString &original, const QString &replacement)
{
    return isGreaterThanBlank(original) && isGreaterThanBlank(replacement);
}

QString filePathQuestion(const QString &original, const QString &replacement, qint64 songs, qint64 tracks)
{
    const QString part = u'"' + original + u"\" is: "_s;
    return u"Number of music file names that contain "_s + part + QString::number(songs) +
           u".\nNumber of songs in your play lists that contain "_s + part + QString::number(tracks) +
           u".\nAre you sure you want to replace this part of the file name with \""_s + replacement +
           u"\" for every one of these file names?"_s;
}

QString playListQuestion(const QString &original, const QString &replacement, qint64 tracks)
{
    return u"The number of records that contain  "_s + original + u"  is: "_s + QString::number(tracks) +
           u".  Are you sure you want to replace this part of the FileName with  "_s + replacement +
           u"  for every one of these records in all your PlayLists?"_s;
}

} // namespace

dao::Database &LocationChange::database() const
{
    return *m_parts.catalogue.CatalogueDb;
}

bool LocationChange::asks(const QString &question)
{
    return m_parts.desktop.MessageBox(question, u"Confirmation"_s, Icon::None, Buttons::YesNo, Answer::No) ==
               Answer::Yes &&
           m_parts.beforeBulk();
}

bool LocationChange::changeFilePaths(const QString &original, const QString &replacement)
{
    Desktop &desktop = m_parts.desktop;
    if (!isComplete(original, replacement)) {
        desktop.MessageBox(u"Both the original and the new file path or string must be specified."_s,
                           u"String not specified"_s, Icon::Exclamation);
        return false;
    }
    const qint64 songs = countLike(database(), SongFolders, original);
    const qint64 tracks = countLike(database(), PlayListFiles, original);
    if (songs == 0 && tracks == 0) {
        desktop.MessageBox(u"The characters you specified were not found in any file names."_s,
                           u"Not found"_s);
        return false;
    }
    if (!asks(filePathQuestion(original, replacement, songs, tracks)))
        return false;
    qint64 total = 0;
    {
        const Hourglass hourglass(desktop);
        changing(m_parts.set.Data1(), [&] {
            if (songs > 0)
                total += replaceInAllRows(database(), SongFolders, original, replacement);
            if (tracks > 0)
                total += replaceInAllRows(database(), PlayListFiles, original, replacement);
        });
    }
    desktop.MessageBox(u"Update completed. Total number of replacements made: "_s + QString::number(total),
                       u"Finished"_s);
    m_parts.set.Data1().Refresh();
    return true;
}

bool LocationChange::changePlayListPaths(const QString &original, const QString &replacement)
{
    Desktop &desktop = m_parts.desktop;
    if (!isComplete(original, replacement)) {
        desktop.MessageBox(u"Both the original text and the new replacement text must be specified."_s,
                           u"Text not specified"_s, Icon::Exclamation);
        return false;
    }
    const qint64 tracks = countLike(database(), PlayListFiles, original);
    if (tracks == 0) {
        desktop.MessageBox(u"The text you specified was not found in the FileName in any PlayList."_s,
                           u"Not found"_s);
        return false;
    }
    if (!asks(playListQuestion(original, replacement, tracks)))
        return false;
    {
        const Hourglass hourglass(desktop);
        replaceInAllRows(database(), PlayListFiles, original, replacement);
    }
    desktop.MessageBox(u"Update completed."_s, u"Finished"_s);
    return true;
}

} // namespace quaverly
