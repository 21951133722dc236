// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace shell {

/** What a sound file tells about itself, as the columns show it; empty where it tells nothing. */
struct SongDetails
{
    QString title;
    QString artist;
    QString albumArtist;
    QString album;
    QString genre;
    QString year;
    QString track;
    QString disc;
    QString composer;
    QString comment;
    QString beats;
    std::optional<qint64> milliseconds;
    /** Kilobits a second; 0 when not known. */
    qint64 bitRate = 0;

    /** Why nothing could be read; empty when the file was understood. */
    QString failure;
};

/**
 * Reads a sound file of any of musicKinds(), told by its first bytes before its extension.
 * @param path in the file system's own bytes
 * Never throws: a damaged file gives what could be read of it, or a failure.
 */
[[nodiscard]] SongDetails readSongDetails(const QByteArray &path);

/** Which of musicKinds() the extension tells, from 0 on; -1 for none. Case doesn't matter. */
[[nodiscard]] int songTypeOf(QStringView fileName);

} // namespace shell
