// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SongOfFile.h"
#include "update/SongsOnDisk.h"

#include <QHash>
#include <QString>

#include <array>
#include <vector>

namespace quaverly {

enum class UpdateKind { New, Changed, Moved, Gone, Unreadable };
inline constexpr int UpdateKinds = 5;

/** One thing that an update can do. */
struct UpdateRow
{
    UpdateKind kind = UpdateKind::New;
    /** 0 for a file that has no song yet. */
    qint64 recordId = 0;
    QString song = {};
    QString artist = {};
    /** Of a changed song: the field, by its name in the table. */
    QString field = {};
    QString before = {};
    QString after = {};
    /** What is to be known before it is ticked. */
    QString remark = {};
    bool isTicked = false;
    /** Nothing can be done about an unreadable file. */
    bool canBeTicked = true;
    /** The file that it is about: the new place of a moved one. */
    DiskFile file = {};
};

/** How many rows there are of a kind, how many songs they are about, and how many of those have a tick. */
struct UpdateCount
{
    int rows = 0;
    int songs = 0;
    int ticked = 0;
};

/** All that was found, and what carrying it out needs. */
struct UpdateList
{
    /** Those about one song together. */
    std::vector<UpdateRow> rows;
    /** Of songs with changed tags, by their keys. */
    QHash<qint64, SongOnDisk> read;
    /** Folders that were left out because their volumes seem to be away, with how many songs. */
    std::vector<std::pair<QString, qint64>> away;
    qint64 unchanged = 0;

    [[nodiscard]] std::array<UpdateCount, UpdateKinds> counts() const;
};

/** "12 new, 3 changed, 2 moved", of what @p count picks; empty when that is nothing. */
[[nodiscard]] QString updateWords(const UpdateList &list, int UpdateCount::*count);

/** A file's folder and name as a song's row keeps them. */
[[nodiscard]] SongFile songFileOf(const DiskFile &file);

} // namespace quaverly
