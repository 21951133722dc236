// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace shell {
class Item;
}

namespace quaverly {

class ScanReport;
class NewSong;

/** FileSize, and FileSizeNum in megabytes. */
void fillSize(const shell::Item &item, NewSong &song);

/**
 * Fills the song's fields from the item's property columns, by the table that @p versionMajor asks
 * for. FileName must be there.
 */
void fillFromShellColumns(const shell::Item &item, int versionMajor, NewSong &song, ScanReport &report);

/** Only the fields of which the item's columns have a value; the others keep what they have. */
void completeFromShellColumns(const shell::Item &item, int versionMajor, NewSong &song, ScanReport &report);

/** An empty text for a missing bit rate; two-digit rates get a "0", so that they sort under the others. */
void completeBitRate(NewSong &song);

} // namespace quaverly
