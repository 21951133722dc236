// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Options.h"
#include "maintenance/MaintenanceParts.h"
#include "songlist/SongListFixture.h"

#include <functional>

namespace quaverly::test {

/** The songs of SongList, and what the commands over many of them need. */
class Maintenance : public SongList
{
public:
    using SongList::data;
    using SongList::desktop;
    using SongList::jazz;
    using SongList::list;
    using SongList::mark;
    using SongList::queen;
    using SongList::screen;
    using SongList::set;
    using SongList::store;

    /** Keys of all songs. */
    QStringList songs()
    {
        return store.column(QStringLiteral("Select RecordID From tblContacts Order By RecordID"));
    }

    Options options;
    int backups = 0;
    bool backupWorks = true;
    /** What the user does meanwhile. */
    std::function<void()> duringBackup = [] {};
    MaintenanceParts parts{store.catalogue(), set, screen, desktop, options, [this] {
                               ++backups;
                               duringBackup();
                               return backupWorks;
                           }};
};

} // namespace quaverly::test
