// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace shell {
class Item;
}

namespace quaverly {

class NewSong;
class ScanReport;
struct MusicItem;

/** Reads what a song's row takes from its file. */
class SongReader final
{
public:
    /** @p versionMajor is the shell's. @p report outlives this object. */
    SongReader(int versionMajor, ScanReport &report) : m_versionMajor(versionMajor), m_report(report) {}

    /** @p folder ends in the separator. What can't be read is noted, and the rest of the fields filled. */
    void read(const shell::Item &item, const MusicItem &music, const QString &folder, NewSong &song) const;

private:
    void fillTags(const shell::Item &item, const MusicItem &music, const QString &fullPath,
                  NewSong &song) const;

    int m_versionMajor;
    ScanReport &m_report;
};

} // namespace quaverly
