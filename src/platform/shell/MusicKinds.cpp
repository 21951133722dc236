// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/MusicKinds.h"

#include "platform/shell/SongReaders.h"

#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr std::array Kinds{
    MusicKind{"mp3"_L1, "MP3 File"_L1, readMpeg},
    MusicKind{"m4a"_L1, "MPEG-4 Audio"_L1, readMp4},
    MusicKind{"wma"_L1, "WMA File"_L1, readAsf},
    MusicKind{"wav"_L1, "WAV File"_L1, readWav},
    MusicKind{"flac"_L1, "FLAC File"_L1, readFlac},
    MusicKind{"ogg"_L1, "OGG File"_L1, readOgg},
    MusicKind{"mp4"_L1, "MP4 Video"_L1, readMp4, false, false},
    MusicKind{"aac"_L1, "AAC File"_L1, readAdts, true, false},
};

constexpr std::array TypeTexts{
    TypeTextPart{"mp3"_L1, ".mp3"_L1},
    TypeTextPart{"mp4"_L1, ".m4a"_L1},
    TypeTextPart{"m4a"_L1, ".m4a"_L1},
    TypeTextPart{"mpeg-4 audio"_L1, ".m4a"_L1},
    TypeTextPart{"windows media audio"_L1, ".wma"_L1},
    TypeTextPart{"wma"_L1, ".wma"_L1},
    TypeTextPart{"wav"_L1, ".wav"_L1},
    TypeTextPart{"ogg"_L1, ".ogg"_L1},
};

constexpr DetailColumns OldColumns{.title = 10,
                                   .artist = 16,
                                   .album = 17,
                                   .genre = 20,
                                   .duration = 21,
                                   .year = 18,
                                   .comment = 14,
                                   .bitRate = 22,
                                   .track = 19};
constexpr DetailColumns NewColumns{.title = 21,
                                   .artist = 13,
                                   .composer = 220,
                                   .album = 14,
                                   .genre = 16,
                                   .duration = 27,
                                   .year = 15,
                                   .comment = 24,
                                   .beats = 237,
                                   .bitRate = 28,
                                   .track = 26,
                                   .albumArtist = 217,
                                   .disc = 251};

const MusicKind *withExtension(QStringView extension)
{
    const auto *const found = std::ranges::find_if(Kinds, [&](const MusicKind &kind) {
        return extension.compare(kind.extension, Qt::CaseInsensitive) == 0;
    });
    return found == Kinds.end() ? nullptr : found;
}

} // namespace

std::span<const MusicKind> musicKinds()
{
    return Kinds;
}

const MusicKind *musicKindOf(QStringView fileName)
{
    const qsizetype dot = fileName.lastIndexOf(u'.');
    return dot < 0 ? nullptr : withExtension(fileName.sliced(dot + 1));
}

const MusicKind *musicKindByTail(QStringView fileName)
{
    constexpr qsizetype Tail = 4;
    const QStringView tail = fileName.right(Tail);
    if (tail.size() < Tail)
        return nullptr;
    return withExtension(tail.startsWith(u'.') ? tail.sliced(1) : tail);
}

std::span<const TypeTextPart> typeTextParts()
{
    return TypeTexts;
}

QString musicFileFilter(bool withFilms)
{
    QStringList patterns;
    for (const MusicKind &kind : Kinds) {
        if (kind.isSong || withFilms)
            patterns.append("*."_L1 + kind.extension);
    }
    const QString all = patterns.join(u';');
    return u"Music files (%1)|%1|All Files (*.*)|*.*"_s.arg(all);
}

const DetailColumns &detailColumns(int versionMajor)
{
    return versionMajor <= LastVersionWithOldColumns ? OldColumns : NewColumns;
}

} // namespace shell
