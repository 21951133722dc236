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
    MusicKind{"opus"_L1, "OPUS File"_L1, readOgg},
    MusicKind{"oga"_L1, "OGA File"_L1, readOgg},
    MusicKind{"aiff"_L1, "AIFF File"_L1, readAiff},
    MusicKind{"aif"_L1, "AIF File"_L1, readAiff},
    MusicKind{"wv"_L1, "WV File"_L1, readWavPack},
    MusicKind{"ape"_L1, "APE File"_L1, readMonkeysAudio},
    MusicKind{"mpc"_L1, "MPC File"_L1, readMusepack},
    MusicKind{"m4b"_L1, "M4B File"_L1, readMp4},
    MusicKind{"mka"_L1, "MKA File"_L1, readMatroska},
    MusicKind{"dsf"_L1, "DSF File"_L1, readDsf},
    MusicKind{"mp2"_L1, "MP2 File"_L1, readMpeg},
};

/** How many are told by parts of their type text; the others by all of it. */
constexpr std::size_t FirstKinds = 8;

/** The extension, with its dot, that a part of the shell's type text stands for. */
struct TypeTextPart
{
    QLatin1StringView holds;
    QLatin1StringView extension;
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
    constexpr auto NeedsNoDot = "flac"_L1;
    return fileName.endsWith(NeedsNoDot, Qt::CaseInsensitive)
               ? withExtension(fileName.right(NeedsNoDot.size()))
               : musicKindOf(fileName);
}

QString musicEnding(QStringView fileName)
{
    const MusicKind *const kind = musicKindByTail(fileName);
    return kind == nullptr ? QString() : u'.' + kind->extension;
}

QString endingOfType(const QString &typeText)
{
    for (const TypeTextPart &part : TypeTexts) {
        if (typeText.contains(part.holds, Qt::CaseInsensitive))
            return part.extension;
    }
    const auto later = std::span(Kinds).subspan(FirstKinds);
    const auto found = std::ranges::find_if(later, [&](const MusicKind &kind) {
        return typeText.compare(kind.typeText, Qt::CaseInsensitive) == 0;
    });
    return found == later.end() ? QString() : u'.' + found->extension;
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
