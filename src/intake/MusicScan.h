// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "intake/GatherFolders.h"
#include "intake/MusicItem.h"
#include "intake/MusicLoader.h"
#include "intake/NewSong.h"
#include "intake/ScanReport.h"
#include "platform/store/Dao.h"

#include <memory>

namespace shell {
class Folder;
class Item;
} // namespace shell

namespace quaverly {

class ScanScreen;

/** One run of LoadMusicFiles, with its counts. */
class MusicScan final
{
public:
    MusicScan(const IntakeParts &parts, const QString &path, const QString &oneFile);
    void run();

private:
    /** What the walk over folders and items came to. */
    enum class Outcome { Finished, Cancelled };

    void showStart();
    void gather();
    [[nodiscard]] Outcome loadFolders();
    [[nodiscard]] Outcome loadFolder(const QString &folder);
    [[nodiscard]] Outcome loadItems(shell::Folder &items, const QString &folder);
    void loadItem(const shell::Item &item, const QString &folder);

    void showSongsAdded();
    void showFilesRead();
    [[nodiscard]] bool isInCatalogue(const QString &folder, const QString &fileName);
    void fillSong(const shell::Item &item, const MusicItem &music, const QString &folder);
    void fillTags(const shell::Item &item, const MusicItem &music, const QString &fullPath);
    void addSong();

    /** Puts everything on the disk and builds what indexes are missing. */
    void settle(dao::BulkLoad &load);
    void leaveCancelled();
    void close();
    void showStatistics();
    void showArtistButton();
    void letWaitingEventsRun();
    [[nodiscard]] dao::Database &database();
    [[nodiscard]] dao::Recordset &contacts();

    const IntakeParts &m_parts;
    ScanReport m_report;
    bool m_driveScan = false;
    QString m_path;
    QString m_oneFile;
    ScanScreen &m_screen;
    int m_startSeconds = 0;
    bool m_extensionsHidden = false;
    int m_versionMajor = 0;
    GatheredFolders m_gathered;
    std::unique_ptr<dao::Recordset> m_contacts;
    NewSong m_song;
    qint64 m_filesTotal = 0;
    int m_filesRead = 0;
    int m_songsAdded = 0;
    int m_songsSkipped = 0;
};

} // namespace quaverly
