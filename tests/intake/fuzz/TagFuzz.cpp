// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/fuzz/TagFuzz.h"

#include "intake/M4aAtoms.h"
#include "intake/NewSong.h"
#include "intake/ScanReport.h"
#include "intake/VorbisComment.h"
#include "platform/shell/SongDetails.h"

#include <QBuffer>
#include <QFile>

#include <array>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

constexpr std::array Extensions{"mp3"_L1, "m4a"_L1, "wma"_L1,  "wav"_L1,
                                "aac"_L1, "ogg"_L1, "flac"_L1, "mp4"_L1};
/** More than a tag that is read may hold. */
constexpr qsizetype LongestText = 2 * 1024 * 1024;

bool isAscii(const QString &text, QStringView allowed)
{
    return std::all_of(text.begin(), text.end(), [&](QChar c) { return allowed.contains(c); });
}

QString faultOfDetails(const shell::SongDetails &details)
{
    for (const QString *text :
         {&details.title, &details.artist, &details.album, &details.genre, &details.year, &details.track,
          &details.composer, &details.comment, &details.beats}) {
        if (text->size() > LongestText || text->contains(QChar(u'\0')))
            return u"a text that can't be shown"_s;
    }
    if (!isAscii(details.year, u"0123456789") || (!details.year.isEmpty() && details.year.size() > 4))
        return u"the year "_s + details.year;
    if (!isAscii(details.beats, u"0123456789") || details.beats.size() > 6)
        return u"the beats "_s + details.beats;
    if (details.bitRate < 0 || details.milliseconds.value_or(1) <= 0)
        return u"the length %1 or the rate %2"_s.arg(details.milliseconds.value_or(0)).arg(details.bitRate);
    return {};
}

QString faultOfSong(const NewSong &song)
{
    for (const auto &[field, value] : song) {
        const bool unlimited = field == "Notes"_L1;
        if (!unlimited && value.toString().size() > 255)
            return field + u" is too long"_s;
    }
    return song.text(u"Artist"_s).isEmpty() || song.text(u"SongName"_s).isEmpty() ? u"no artist or title"_s
                                                                                  : QString();
}

template <typename Fill> QString faultOfFilling(const Fill &fill)
{
    NewSong song;
    song.write(u"FileName"_s, u"song"_s);
    ScanReport report{{}};
    fill(song, report);
    return faultOfSong(song);
}

} // namespace

QString faultOfReading(QByteArrayView content, const QString &folder)
{
    QByteArray bytes = content.toByteArray();
    QFile file(folder + u"/song."_s + Extensions[static_cast<std::size_t>(bytes.size()) % Extensions.size()]);
    // A file that is written over goes to the disk at once on some file systems.
    file.remove();
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || file.write(bytes) != bytes.size())
        return file.errorString();
    file.close();
    if (const QString fault = faultOfDetails(shell::readSongDetails(QFile::encodeName(file.fileName())));
        !fault.isEmpty())
        return fault;
    const QString comments = faultOfFilling([&](NewSong &song, ScanReport &report) {
        fillFromVorbisComments(bytes.left(VorbisHeadBytes), song, report);
    });
    if (!comments.isEmpty())
        return comments;
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    return faultOfFilling([&](NewSong &song, ScanReport &report) { fillFromM4aAtoms(device, song, report); });
}

} // namespace quaverly::test
