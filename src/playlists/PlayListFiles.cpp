// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PlayListFiles.h"

#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "desktop/MusicFolder.h"
#include "lists/PlayListSql.h"
#include "platform/shell/FileCopy.h"
#include "platform/text/Text.h"
#include "player/TemporaryList.h"
#include "playlists/FilePrefix.h"
#include "songlist/DisplayedSet.h"

#include <QLocale>
#include <QScopeGuard>
#include <QSet>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr auto Extension = ".m3u"_L1;
/** Where the bar of the please-wait window ends when all files were copied. */
constexpr double CopyBarTwips = 6300;
/** A program started there has no folder of the user's. */

QString copyTitle()
{
    return u"Copy Music Files"_s;
}

QString prefixPrompt()
{
    return u"In order to use this playlist on another machine, you need to indicate the path/folder where "
           "these music files are located on the new machine.  "
           "For example, type:  /home/me/Music/  if that is where these music files will be located on the "
           "other "
           "machine.\r\n\r\n"
           "If you want to create a playlist containing only the song names without a folder name prefix, "
           "type the word \"none\" in the box.\r\n\r\n"
           "To play on this machine leave the words \"this machine\" in the box and press OK."_s;
}

/** A list's name may hold what a file's name may not. */
QString fileNameOfList(QString listName)
{
    for (const QChar illegal : QStringView(IllegalFileNameCharacters))
        listName.replace(illegal, u'_');
    return listName + Extension;
}

QString sizeText(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
}

} // namespace

PlayListFiles::PlayListFiles(PlayListFilesParts parts) : m_parts(std::move(parts))
{}

void PlayListFiles::mnuFileMakePlayListFile_Click()
{
    guarded(m_parts.services.desktop, u"Make PlayList Error"_s, [this] { makePlayListFile(); });
}

void PlayListFiles::mnuFileCopyMusic_Click()
{
    guarded(m_parts.services.desktop, copyTitle(), [this] { copyMusic(); });
}

void PlayListFiles::mnuFileDisplayOnly_Click()
{
    guarded(m_parts.services.desktop, u"Display Only These Songs"_s, [this] {
        const QString name = m_parts.chosenList().ListName;
        const auto list = m_parts.lists.ListID(name);
        if (list && m_parts.displayed.playListView(*list, name))
            m_parts.unload();
    });
}

QString PlayListFiles::startFolder(const QString &lastFolder) const
{
    return lastFolder.isEmpty() ? musicFolder() : lastFolder;
}

void PlayListFiles::makePlayListFile()
{
    const PlayListName list = m_parts.chosenList();
    if (!isGreaterThanBlank(list.ListName))
        return;
    m_parts.LastPlayListFolder = startFolder(m_parts.LastPlayListFolder);
    const auto chosen = m_parts.services.desktop.ShowSaveDialog(
        {u"Save Play List as"_s, u"Playlist (*.m3u)|*.m3u|All Files (*.*)|*.*"_s, m_parts.LastPlayListFolder,
         fileNameOfList(list.ListName)});
    if (!chosen)
        return;
    m_parts.LastPlayListFolder = folderOf(*chosen);
    const QString path =
        chosen->right(Extension.size()).toLower() == Extension ? *chosen : *chosen + Extension;
    // The dialog has asked about the name that was typed, if it was there.
    if (path != *chosen && FileExists(path) && !mayReplace(path))
        return;
    const QStringList files = fileNames(playlistsql::fileNames(list.ListID));
    if (files.isEmpty()) {
        m_parts.services.desktop.MessageBox(
            u"No music files were associated with any of the songs in this Play List, "
            "so Play List file was not created."_s,
            u"No sound files for these songs"_s, Icon::Exclamation);
        return;
    }
    const QString answer = m_parts.services.desktop.InputPrompt(prefixPrompt(), u"File location prefix?"_s,
                                                                FilePrefix::thisMachine(), false);
    if (isGreaterThanBlank(answer.trimmed()))
        writePlayListFile(path, files, answer);
}

bool PlayListFiles::mayReplace(const QString &path)
{
    return m_parts.services.desktop.MessageBox(
               u'"' + path + u"\" already exists.\r\nDo you want to replace it?"_s, u"Save Play List as"_s,
               Icon::Exclamation, Buttons::YesNo, Answer::No) == Answer::Yes;
}

QStringList PlayListFiles::fileNames(const QString &sql) const
{
    const auto rows =
        m_parts.services.catalogue.CatalogueDb->OpenRecordset(sql, dao::RecordsetType::Snapshot);
    QStringList names;
    names.reserve(rows->RecordCount());
    for (; !rows->atEOF(); rows->MoveNext())
        names.append(rows->text(u"FileName"_s));
    return names;
}

void PlayListFiles::writePlayListFile(const QString &path, const QStringList &files, const QString &answer)
{
    const FilePrefix prefix(answer);
    QStringList lines;
    lines.reserve(files.size());
    for (const QString &file : files) {
        if (fitsInList(file))
            lines.append(prefix.line(file));
    }
    writeListFile(path, lines);
    const QString count = QString::number(lines.size());
    m_parts.services.desktop.MessageBox(u"Number of song file names written to play list file\r\n   \""_s +
                                            path + u"\"\r\n      "_s + count,
                                        u"Finished - Record Count: "_s + count, Icon::Information);
}

void PlayListFiles::copyMusic()
{
    if (m_parts.ListCount() - 1 <= 0) {
        m_parts.services.desktop.MessageBox(u"No files to copy"_s, copyTitle());
        return;
    }
    m_parts.LastMusicFolder = startFolder(m_parts.LastMusicFolder);
    const QString folder =
        m_parts.services.desktop.BrowseForFolder(u"Select a Folder"_s, copyTitle(), m_parts.LastMusicFolder);
    if (folder.isEmpty())
        return;
    m_parts.LastMusicFolder = folder;
    const QStringList files = fileNames(playlistsql::filesToCopy(m_parts.chosenList().ListID));
    if (!fits(files, folder))
        return;
    const Copied copied = copyFiles(files, folder);
    tellCopied(copied, folder);
}

bool PlayListFiles::fits(const QStringList &files, const QString &folder)
{
    const Hourglass hourglass(m_parts.services.desktop);
    qint64 needed = 0;
    QSet<QString> targets;
    for (const QString &file : files) {
        const QString target = folder + fileNameOf(file);
        if (targets.contains(target) || FileExists(target))
            continue;
        if (const auto size = shell::fileSize(file)) {
            targets.insert(target);
            needed += *size;
        }
    }
    const auto room = shell::freeSpace(folder);
    if (!room || needed <= *room)
        return true;
    m_parts.services.desktop.MessageBox(u"These music files need "_s + sizeText(needed) + u", but only "_s +
                                            sizeText(*room) + u" are free in the folder\r\n"_s + folder +
                                            u"\r\nNo files were copied."_s,
                                        u"Not enough room"_s, Icon::Exclamation);
    return false;
}

PlayListFiles::Copied PlayListFiles::copyFiles(const QStringList &files, const QString &folder)
{
    Copied copied;
    if (files.isEmpty())
        return copied;
    m_parts.setScreenEnabled(false);
    const auto usable = qScopeGuard([this] { m_parts.setScreenEnabled(true); });
    const auto working = m_parts.services.desktop.ShowWorkingForm(u"Quaverly is copying files..."_s,
                                                                  u"Please wait..."_s, true);
    const Hourglass hourglass(m_parts.services.desktop);
    m_parts.services.desktop.letEventsRun();
    for (const QString &file : files) {
        const QString name = fileNameOf(file);
        if (!name.isEmpty() && !FileExists(folder + name) && FileExists(file))
            copyOne(file, folder + name, *working, copied);
        if (working->bar() < FullBarTwips)
            working->setBar(
                qRound(static_cast<double>(copied.count) / static_cast<double>(files.size()) * CopyBarTwips));
        if (copied.isOver)
            break;
    }
    return copied;
}

void PlayListFiles::copyOne(const QString &source, const QString &target, const WorkingWindow &working,
                            Copied &copied)
{
    const auto mayGoOn = [this, &working](qint64 /*done*/, qint64 /*all*/) {
        if (m_parts.services.desktop.inputWaiting())
            m_parts.services.desktop.letEventsRun();
        return !working.isClosed();
    };
    try {
        if (mayGoOn(0, 0) && shell::copyFile(source, target, {.overwrite = false, .progress = mayGoOn}))
            ++copied.count;
        else
            copied.isOver = copied.wasGivenUp = true;
    } catch (const dao::DaoError &error) {
        copied.failures.append(u'"' + fileNameOf(source) + u"\": "_s + error.description);
        // The others would fare no better.
        copied.isOver = error.number == dao::DiskFull || error.number == dao::PathNotFound;
    }
}

void PlayListFiles::tellCopied(const Copied &copied, const QString &folder)
{
    if (!copied.failures.isEmpty()) {
        m_parts.services.desktop.MessageBox(u"Number of files that could not be copied: "_s +
                                                QString::number(copied.failures.size()) + u"\r\n"_s +
                                                copied.failures.first(),
                                            copyTitle(), Icon::Exclamation);
    }
    const QString stopped = copied.wasGivenUp ? u"Copying was stopped.\r\n"_s : QString();
    m_parts.services.desktop.MessageBox(stopped + u"Number of files copied to folder\r\n"_s + folder +
                                            u" = "_s + QString::number(copied.count),
                                        u"Done"_s);
}

} // namespace quaverly
