// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/MusicScan.h"

#include "catalogue/Catalogue.h"
#include "catalogue/KindsTaken.h"
#include "catalogue/MusicFolders.h"
#include "catalogue/SongFields.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "intake/IntakeState.h"
#include "intake/ScanScreen.h"
#include "intake/ScanSummary.h"
#include "platform/shell/Shell.h"
#include "platform/text/Text.h"
#include "songlist/MainScreen.h"

#include <QUrl>

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int FirstBarTwips = 100;
constexpr int CountsShown = 10;
constexpr int SecondsPerDay = 86400;

int wholeSeconds(const ScanClock &clock)
{
    return static_cast<int>(std::nearbyint(clock.secondsSinceMidnight()));
}

/** A path that is cut names no file, and would come in again with every scan. */
bool isTooLong(const QString &folder, const QString &fileName)
{
    static const int pathWidth = songField(u"PathName")->width;
    static const int fileWidth = songField(u"FileName")->width;
    return folder.size() > pathWidth || fileName.size() > fileWidth;
}

} // namespace

MusicScan::MusicScan(const IntakeParts &parts, const QString &path, const QStringList &files)
    : m_parts(parts), m_report(parts.reportPlaces), m_songs(parts.services.catalogue, m_report),
      m_driveScan(!path.endsWith(PathSeparator)), m_path(CleanFolder(path)), m_files(files),
      m_screen(m_driveScan ? parts.screens.driveScreen() : parts.screens.folderScreen())
{}

void MusicScan::run()
{
    m_extensionsHidden = m_parts.shell.hideFileExt();
    m_reader.emplace(m_parts.shell.versionMajor(), m_report);
    m_kindsLeftOut = kindsLeftOut(m_parts.services.optionsStore);
    m_startSeconds = wholeSeconds(m_parts.clock);
    m_songs.open();
    m_songs.describe(m_driveScan         ? u"Add all music files"_s
                     : m_files.isEmpty() ? u"Add a folder"_s
                                         : u"Add a music file"_s);

    std::optional<shell::ListingsKept> listings(m_parts.shell);
    showStart();
    m_parts.mainScreen.setScreenEnabled(false);
    gather();
    if (m_parts.state.CancelScan)
        return leaveCancelled();

    m_songs.startLoad();
    const Outcome outcome = loadFolders();
    listings.reset();
    settle();
    if (outcome == Outcome::Cancelled)
        leaveCancelled();
    else
        close();
}

void MusicScan::showStart()
{
    m_parts.state.LastMusicFolder = m_path;
    if (m_driveScan) {
        m_screen.setBarWidth(FirstBarTwips);
        return;
    }
    m_screen.showScanning(u"Add a Folder of Music Files"_s, u"Scanning in progress...\nPlease wait..."_s);
    m_parts.services.desktop.letEventsRun();
}

void MusicScan::gather()
{
    if (m_driveScan)
        m_screen.setGatheringText(u"Gathering data..."_s);
    m_report.attempt([&] {
        GatherFolders(m_parts.shell, m_parts.services.desktop, m_parts.state.CancelScan, m_path, m_gathered);
    });
    m_report.settle(m_path);
    for (const QString &path : m_gathered.refused) {
        m_report.passOver(PassedOver::RefusedName, u"The name is not valid here"_s);
        m_report.settle(path);
    }
    for (const QString &path : m_gathered.unreadable)
        passOverFolder(path);
    if (m_driveScan)
        m_screen.setGatheringText({});
    m_parts.services.desktop.letEventsRun();
}

MusicScan::Outcome MusicScan::loadFolders()
{
    // The shell's items list the sub-folders too.
    if (!m_driveScan)
        m_filesTotal = m_gathered.plainFiles + m_gathered.folders.size() - 1;
    m_screen.setCountLabels(u"Files read:"_s, u"Songs found:"_s);

    const qsizetype count = m_gathered.folders.size();
    for (qsizetype i = 1; i <= count; ++i) {
        if (m_driveScan && i % CountsShown == 0)
            m_screen.setBarWidth(static_cast<int>(i * ScanBarTwips / count));
        if (const Outcome outcome = loadFolder(m_gathered.folders[i - 1]); outcome != Outcome::Finished)
            return outcome;
    }
    return Outcome::Finished;
}

MusicScan::Outcome MusicScan::loadFolder(const QString &folder)
{
    std::unique_ptr<shell::Folder> items;
    m_report.attempt([&] { items = m_parts.shell.NameSpace(folder); });
    if (!items) {
        passOverFolder(folder);
        return Outcome::Finished;
    }
    m_songs.beginFolder();
    // A cancelled scan leaves this folder's transaction pending; the store settles it.
    const Outcome outcome = loadItems(*items, folder);
    if (outcome != Outcome::Cancelled)
        m_songs.endFolder();
    return m_songs.isDiskFull() ? Outcome::DiskFull : outcome;
}

void MusicScan::passOverFolder(const QString &folder)
{
    m_report.passOver(PassedOver::Folder, u"The folder can't be read"_s);
    m_report.settle(folder);
}

MusicScan::Outcome MusicScan::loadItems(shell::Folder &items, const QString &folder)
{
    const qsizetype count = items.count();
    for (qsizetype i = 0; i < count; ++i) {
        if (m_parts.state.CancelScan)
            return Outcome::Cancelled;
        if (m_songs.isDiskFull())
            return Outcome::DiskFull;
        showSongsAdded();
        ++m_filesRead;
        showFilesRead();
        const shell::Item &item = items.item(i);
        m_report.attempt([&] { loadItem(item, folder); });
        if (m_report.hasReasons())
            m_report.settle(folder + item.name());
    }
    return Outcome::Finished;
}

void MusicScan::showSongsAdded()
{
    if (m_songs.added() % CountsShown == 0) {
        m_screen.setSongsAdded(m_songs.added());
        letWaitingEventsRun();
    }
}

void MusicScan::showFilesRead()
{
    if (!m_driveScan && m_filesTotal > 0 && m_screen.barWidth() < FullBarTwips)
        m_screen.setBarWidth(static_cast<int>(qint64(m_filesRead) * ScanBarTwips / m_filesTotal));
    if (m_filesRead % CountsShown == 0) {
        m_screen.setFilesRead(m_filesRead);
        letWaitingEventsRun();
    }
}

void MusicScan::loadItem(const shell::Item &item, const QString &folder)
{
    if (isFolderItem(item))
        return;
    const std::optional<MusicItem> music = musicItemOf(item, folder, m_extensionsHidden);
    if (!music || !isTaken(*music)) {
        m_others.count(item.name());
        return;
    }
    if (!m_files.isEmpty()) {
        m_screen.setCaption(u"Add One Music File"_s);
        // The walk goes on below the file's folder, and a file of that very name is added there too.
        if (!m_files.contains(music->FileName))
            return;
    }
    // Where extensions are hidden, the item's own name is another one.
    const bool exists = m_extensionsHidden ? FileExists(folder + music->FileName) : item.isFile();
    if (!exists) {
        m_report.passOver(PassedOver::NoFile, u"There is no plain file of that name"_s);
        return;
    }
    if (isTooLong(folder, music->FileName)) {
        m_report.passOver(PassedOver::LongPath, u"The path is longer than the database holds"_s);
        return;
    }
    if (m_songs.holds(folder, music->FileName)) {
        ++m_songsSkipped;
        return;
    }
    m_reader->read(item, *music, folder, m_song);
    const QVariant now(m_parts.clock.now());
    m_song.write(u"DateUpdated"_s, now);
    m_song.write(u"DateAdded"_s, now);
    m_songs.add(m_song, folder + music->FileName, item.stamp());
}

/** A file that was chosen by its name is wanted whatever its kind. */
bool MusicScan::isTaken(const MusicItem &music) const
{
    return !m_files.isEmpty() || !m_kindsLeftOut.contains(music.Extension.sliced(1));
}

void MusicScan::settle()
{
    while (m_songs.finishStep())
        letWaitingEventsRun();
    m_songs.endLoad();
}

void MusicScan::leaveCancelled()
{
    m_parts.services.desktop.resetPointer();
    m_screen.unload();
    m_parts.state.CancelScan = false;
    m_parts.mainScreen.setScreenEnabled(true);
    m_report.attempt([&] { m_parts.mainScreen.ShowAllMenu_Click(); });
    tellDiskFull();
}

void MusicScan::close()
{
    m_parts.state.CancelScan = false;
    m_parts.services.desktop.letEventsRun();
    if (m_driveScan)
        m_screen.setExitCaption(u"Exit"_s);
    else
        m_screen.unload();
    m_parts.state.CancelScan = false;
    m_parts.mainScreen.setScreenEnabled(true);
    m_report.attempt([&] { m_parts.mainScreen.ShowAllMenu_Click(); });
    m_parts.services.desktop.resetPointer();
    showStatistics();
    tellDiskFull();
    m_songs.close();
    rememberFolder();
}

/** Where an update looks later on. What it can't remember is no fault of the scan. */
void MusicScan::rememberFolder()
{
    if (m_files.isEmpty() && m_parts.services.catalogue.CatalogueDb)
        quietly([&] { MusicFolders(m_parts.services.catalogue).remember(m_path); });
}

void MusicScan::showStatistics()
{
    int elapsed = wholeSeconds(m_parts.clock) - m_startSeconds;
    if (elapsed < 0)
        elapsed += SecondsPerDay;
    const QString passedOver = passedOverSentence(m_report);
    QStringList sentences{passedOver, m_files.isEmpty() ? m_others.sentence() : QString()};
    sentences.removeAll(QString());
    tell(doneText({m_songs.added(), m_songsSkipped, elapsed}, sentences.join(u"\r\n\r\n"_s)), u"Done"_s,
         Icon::None, !passedOver.isEmpty());
}

void MusicScan::tellDiskFull()
{
    if (m_songs.isDiskFull())
        tell(diskFullText({m_parts.services.catalogue.DatabaseFile, m_songs.lost(), m_report.path(),
                           m_songs.lacksIndexes()}),
             u"Disk full"_s, Icon::Exclamation, m_songs.lost() > 0);
}

void MusicScan::tell(const QString &text, const QString &title, Icon icon, bool withReport)
{
    const QString report = m_report.path();
    if (!withReport || report.isEmpty())
        m_parts.services.desktop.MessageBox(text, title, icon);
    else if (m_parts.services.desktop.MessageWithMore(text, title, icon, Buttons::Ok, {},
                                                      u"Show &Report"_s) == Answer::More &&
             !m_parts.services.desktop.OpenUrl(QUrl::fromLocalFile(report)))
        m_parts.services.desktop.MessageBox(u"No program was found to show this file:  "_s + report, title,
                                            Icon::Exclamation);
}

void MusicScan::letWaitingEventsRun()
{
    if (m_parts.services.desktop.inputWaiting())
        m_parts.services.desktop.letEventsRun();
}

} // namespace quaverly
