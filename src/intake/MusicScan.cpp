// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/MusicScan.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "intake/IntakeState.h"
#include "intake/M4aAtoms.h"
#include "intake/ScanScreen.h"
#include "intake/ShellColumns.h"
#include "intake/VorbisComment.h"
#include "platform/shell/Shell.h"
#include "platform/text/Text.h"
#include "songlist/MainScreen.h"

#include <QFile>

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int FirstBarTwips = 100;
constexpr int CountsShown = 10;
constexpr int InputPastEnd = 62;
constexpr int SecondsPerDay = 86400;

int wholeSeconds(const ScanClock &clock)
{
    return static_cast<int>(std::nearbyint(clock.secondsSinceMidnight()));
}

void openForReading(QFile &file)
{
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw dao::DaoError(dao::PathFileAccess, file.errorString());
}

} // namespace

MusicScan::MusicScan(const IntakeParts &parts, const QString &path, const QString &oneFile)
    : m_parts(parts), m_report(parts.reportPath), m_driveScan(!path.endsWith(PathSeparator)),
      m_path(EnsureBackslash(path)), m_oneFile(oneFile),
      m_screen(m_driveScan ? parts.screens.driveScreen() : parts.screens.folderScreen())
{}

void MusicScan::run()
{
    m_extensionsHidden = m_parts.shell.hideFileExt();
    m_versionMajor = m_parts.shell.versionMajor();
    m_startSeconds = wholeSeconds(m_parts.clock);
    m_report.attempt([&] {
        m_contacts = database().OpenRecordset(u"tblContacts"_s, dao::RecordsetType::Table);
        m_contacts->setIndex(u"PathFile"_s);
    });
    m_report.settle(m_parts.catalogue.DatabaseFile);

    std::optional<shell::ListingsKept> listings(m_parts.shell);
    showStart();
    m_parts.mainScreen.setScreenEnabled(false);
    gather();
    if (m_parts.state.CancelScan)
        return leaveCancelled();

    std::optional<dao::BulkLoad> load;
    m_report.attempt([&] { load.emplace(database(), u"tblContacts"_s); });
    const Outcome outcome = loadFolders();
    listings.reset();
    if (load)
        settle(*load);
    load.reset();
    m_report.settle(m_parts.catalogue.DatabaseFile);
    if (outcome == Outcome::Cancelled)
        leaveCancelled();
    else
        close();
}

void MusicScan::showStart()
{
    m_parts.state.MusicFolder = m_path;
    if (m_driveScan) {
        m_screen.setBarWidth(FirstBarTwips);
        return;
    }
    m_screen.showScanning(u"Add a Folder of Music Files"_s, u"Scanning in progress...\nPlease wait..."_s);
    m_parts.desktop.letEventsRun();
}

void MusicScan::gather()
{
    if (m_driveScan)
        m_screen.setGatheringText(u"Gathering data..."_s);
    m_report.attempt(
        [&] { GatherFolders(m_parts.shell, m_parts.desktop, m_parts.state.CancelScan, m_path, m_gathered); });
    m_report.settle(m_path);
    for (const QString &path : m_gathered.refused) {
        m_report.note(u"The name is not valid here"_s);
        m_report.settle(path);
    }
    if (m_driveScan)
        m_screen.setGatheringText({});
    m_parts.desktop.letEventsRun();
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
        if (loadFolder(m_gathered.folders[i - 1]) == Outcome::Cancelled)
            return Outcome::Cancelled;
    }
    return Outcome::Finished;
}

MusicScan::Outcome MusicScan::loadFolder(const QString &folder)
{
    std::unique_ptr<shell::Folder> items;
    m_report.attempt([&] { items = m_parts.shell.NameSpace(folder); });
    if (!items) {
        m_report.note(u"The folder can't be read"_s);
        m_report.settle(folder);
        return Outcome::Finished;
    }
    m_report.attempt([&] { database().workspace().BeginTrans(); });
    m_report.settle(folder);
    // A cancelled scan leaves this folder's transaction pending; the store settles it.
    if (loadItems(*items, folder) == Outcome::Cancelled)
        return Outcome::Cancelled;
    m_report.attempt([&] { database().workspace().CommitTrans(); });
    m_report.settle(folder);
    return Outcome::Finished;
}

MusicScan::Outcome MusicScan::loadItems(shell::Folder &items, const QString &folder)
{
    const qsizetype count = items.count();
    for (qsizetype i = 0; i < count; ++i) {
        if (m_parts.state.CancelScan)
            return Outcome::Cancelled;
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
    if (m_songsAdded % CountsShown == 0) {
        m_screen.setSongsAdded(m_songsAdded);
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
    if (!music)
        return;
    if (!m_oneFile.isEmpty()) {
        m_screen.setCaption(u"Add One Music File"_s);
        // The walk goes on below the file's folder, and a file of that very name is added there too.
        if (music->FileName != m_oneFile)
            return;
    }
    // Where extensions are hidden, the item's own name is another one.
    const bool exists = m_extensionsHidden ? FileExists(folder + music->FileName) : item.isFile();
    if (!exists) {
        m_report.note(u"There is no plain file of that name"_s);
        return;
    }
    if (isInCatalogue(folder, music->FileName)) {
        ++m_songsSkipped;
        return;
    }
    fillSong(item, *music, folder);
    addSong();
}

bool MusicScan::isInCatalogue(const QString &folder, const QString &fileName)
{
    bool found = false;
    m_report.attempt([&] {
        contacts().Seek(u"="_s, {folder, fileName});
        found = !contacts().NoMatch();
    });
    return found;
}

void MusicScan::fillSong(const shell::Item &item, const MusicItem &music, const QString &folder)
{
    m_song.clear();
    m_song.write(u"PathName"_s, keepCharacters(folder, 255));
    m_song.write(u"FileName"_s, keepCharacters(music.FileName, 255));
    m_song.write(u"FileType"_s, music.fileType());
    m_report.attempt([&] { fillSize(item, m_song); });
    fillTags(item, music, folder + music.FileName);
    completeBitRate(m_song);
    m_song.write(u"DateUpdated"_s, QVariant(m_parts.clock.now()));
}

void MusicScan::fillTags(const shell::Item &item, const MusicItem &music, const QString &fullPath)
{
    if (music.Extension == ".flac"_L1 || music.Extension == ".ogg"_L1) {
        QFile file(fullPath);
        QByteArray head;
        m_report.attempt([&] {
            openForReading(file);
            head = file.read(VorbisHeadBytes);
            if (head.isEmpty())
                throw dao::DaoError(InputPastEnd, u"The file is empty"_s);
        });
        fillFromVorbisComments(head, m_song, m_report);
    } else if (m_versionMajor <= LastVersionWithOldColumns && music.fileType() == "M4A"_L1) {
        QFile file(fullPath);
        m_report.attempt([&] { openForReading(file); });
        fillFromM4aAtoms(file, m_song, m_report);
    } else {
        fillFromShellColumns(item, m_versionMajor, m_song, m_report);
        if (const QString failure = item.readFailure(); !failure.isEmpty())
            m_report.note(failure);
    }
}

void MusicScan::addSong()
{
    m_report.attempt([&] { contacts().AddNew(); });
    for (const auto &entry : m_song)
        m_report.attempt([&] { contacts().setValue(entry.first, entry.second); });
    m_report.attempt([&] { contacts().Update(); });
    if (m_contacts && m_contacts->editing())
        m_report.attempt([&] { m_contacts->CancelUpdate(); });
    // A row that the store refused counts as well.
    ++m_songsAdded;
}

void MusicScan::settle(dao::BulkLoad &load)
{
    bool more = true;
    while (more) {
        more = false;
        m_report.attempt([&] { more = load.finishStep(); });
        letWaitingEventsRun();
    }
}

void MusicScan::leaveCancelled()
{
    m_parts.desktop.resetPointer();
    m_screen.unload();
    m_parts.state.CancelScan = false;
    m_parts.mainScreen.setScreenEnabled(true);
    m_report.attempt([&] { m_parts.mainScreen.ShowAllMenu_Click(); });
}

void MusicScan::close()
{
    m_parts.state.CancelScan = false;
    m_parts.desktop.letEventsRun();
    if (m_driveScan)
        m_screen.setExitCaption(u"Exit"_s);
    else
        m_screen.unload();
    m_parts.state.CancelScan = false;
    m_parts.mainScreen.setScreenEnabled(true);
    m_report.attempt([&] { m_parts.mainScreen.ShowAllMenu_Click(); });
    m_parts.desktop.resetPointer();
    showStatistics();
    m_contacts.reset();
    m_report.attempt([&] { showArtistButton(); });
}

void MusicScan::showStatistics()
{
    int elapsed = wholeSeconds(m_parts.clock) - m_startSeconds;
    if (elapsed < 0)
        elapsed += SecondsPerDay;
    const QString text =
        u"Number of songs added to database: "_s + QString::number(m_songsAdded) + u"\r\n"_s +
        u"Number of songs not added because they were already in database: "_s +
        QString::number(m_songsSkipped) + u"\r\n\r\n"_s + u"Total elapsed time: "_s +
        QString::number(elapsed) + (elapsed == 1 ? u" second"_s : u" seconds"_s) + u" (about "_s +
        QString::number(elapsed / 60) + u" min.)"_s + u"\r\n\r\n"_s +
        u"After loading many songs, it is a good idea to choose Compact Database from the File menu.  "
        "This will remove unused space from your database file."_s;
    m_parts.desktop.MessageBox(text, u"Done"_s);
}

void MusicScan::showArtistButton()
{
    const std::optional<QString> artist = m_parts.currentArtist();
    if (!artist)
        return;
    const bool shown = isGreaterThanBlank(*artist);
    if (shown)
        m_parts.mainScreen.set_cmdShowArtistSongs(u"Show all songs by "_s +
                                                  ReplaceText(*artist, u"&"_s, u"&&"_s));
    m_parts.mainScreen.setVisible(MainControl::cmdShowArtistSongs, shown);
}

void MusicScan::letWaitingEventsRun()
{
    if (m_parts.desktop.inputWaiting())
        m_parts.desktop.letEventsRun();
}

dao::Database &MusicScan::database()
{
    if (!m_parts.catalogue.CatalogueDb)
        throw dao::DaoError(dao::ObjectInvalid, u"No catalogue is open"_s);
    return *m_parts.catalogue.CatalogueDb;
}

dao::Recordset &MusicScan::contacts()
{
    if (!m_contacts)
        throw dao::DaoError(dao::ObjectInvalid, u"The song table is not open"_s);
    return *m_contacts;
}

} // namespace quaverly
