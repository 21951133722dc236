// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "intake/GatherFolders.h"
#include "intake/MusicItem.h"
#include "intake/MusicLoader.h"
#include "intake/NewSong.h"
#include "intake/OtherKinds.h"
#include "intake/ScanCatalogue.h"
#include "intake/ScanReport.h"
#include "intake/SongReader.h"

namespace shell {
class Folder;
class Item;
} // namespace shell

namespace quaverly {

class ScanScreen;
enum class Icon;

/** One run of LoadMusicFiles, with its counts. */
class MusicScan final
{
public:
    MusicScan(const IntakeParts &parts, const QString &path, const QStringList &files);
    void run();

private:
    /** What the walk over folders and items came to. */
    enum class Outcome { Finished, Cancelled, DiskFull };

    void showStart();
    void gather();
    [[nodiscard]] Outcome loadFolders();
    [[nodiscard]] Outcome loadFolder(const QString &folder);
    [[nodiscard]] Outcome loadItems(shell::Folder &items, const QString &folder);
    void loadItem(const shell::Item &item, const QString &folder);
    [[nodiscard]] bool isTaken(const MusicItem &music) const;
    void passOverFolder(const QString &folder);

    void showSongsAdded();
    void showFilesRead();

    /** Puts everything on the disk and builds what indexes are missing. */
    void settle();
    void leaveCancelled();
    void close();
    void rememberFolder();
    void showStatistics();
    void tellDiskFull();
    /** With a way to the report, where there is one and it is wanted. */
    void tell(const QString &text, const QString &title, Icon icon, bool withReport);
    void letWaitingEventsRun();

    const IntakeParts &m_parts;
    ScanReport m_report;
    ScanCatalogue m_songs;
    bool m_driveScan = false;
    QString m_path;
    /** Empty for all. */
    QStringList m_files;
    ScanScreen &m_screen;
    int m_startSeconds = 0;
    bool m_extensionsHidden = false;
    std::optional<SongReader> m_reader;
    GatheredFolders m_gathered;
    NewSong m_song;
    qint64 m_filesTotal = 0;
    int m_filesRead = 0;
    int m_songsSkipped = 0;
    QStringList m_kindsLeftOut;
    OtherKinds m_others;
};

} // namespace quaverly
