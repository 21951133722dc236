// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>
#include <QString>

#include <optional>
#include <span>

namespace shell {

class SongStream;
struct SongDetails;

/** A kind of music file: all that the program knows of it. */
struct MusicKind
{
    /** Without its dot, in lower case. */
    QLatin1StringView extension;
    /** What the shell calls files of this kind. */
    QLatin1StringView typeText;
    void (*read)(SongStream &, SongDetails &);
    /** Offered and played as a song by itself; a film is only ever added. */
    bool isSong = true;
    /** Among what the player takes from a single folder. */
    bool inPlayedFolder = true;
};

/** All kinds, in the order in which dialogs name them. */
[[nodiscard]] std::span<const MusicKind> musicKinds();

/** By the extension behind the name's last dot, in any case; null for no music. */
[[nodiscard]] const MusicKind *musicKindOf(QStringView fileName);

/** The same, where "flac" needs no dot. */
[[nodiscard]] const MusicKind *musicKindByTail(QStringView fileName);

/** The ending, in lower case with its dot, that musicKindByTail() knows the name by; empty for no music. */
[[nodiscard]] QString musicEnding(QStringView fileName);

/** The ending that all who go by the shell's type text take it to mean; some then look for more. */
[[nodiscard]] QString endingOfType(const QString &typeText);

/** The filter of a dialog that asks for a music file, as a FileQuestion takes it. */
[[nodiscard]] QString musicFileFilter(bool withFilms);

/** Property columns that every version numbers the same. */
enum CommonColumn { SizeColumn = 1, TypeColumn = 2, AttributesColumn = 6 };

/** The last version of the system that numbers the other columns in the old way. */
inline constexpr int LastVersionWithOldColumns = 5;

/** Numbers of the property columns that are read from inside a file; 0 where a version has none. */
struct DetailColumns
{
    int title = 0;
    int artist = 0;
    int composer = 0;
    int album = 0;
    int genre = 0;
    int duration = 0;
    int year = 0;
    int comment = 0;
    int beats = 0;
    int bitRate = 0;
    int track = 0;
    int albumArtist = 0;
    int disc = 0;
};

[[nodiscard]] const DetailColumns &detailColumns(int versionMajor);

} // namespace shell
