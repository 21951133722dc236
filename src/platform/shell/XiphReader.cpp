// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Id3Fields.h"
#include "platform/shell/SongReaders.h"
#include "platform/shell/TagText.h"

#include <taglib/flacfile.h>
#include <taglib/oggflacfile.h>
#include <taglib/opusfile.h>
#include <taglib/speexfile.h>
#include <taglib/vorbisfile.h>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

void takeComments(const TagLib::Ogg::XiphComment *comments, SongDetails &details)
{
    if (!comments)
        return;
    const TagLib::Ogg::FieldListMap &fields = comments->fieldListMap();
    const auto values = [&fields](const char *name) {
        const auto found = fields.find(name);
        return found == fields.end() ? TagLib::StringList() : found->second;
    };
    fill(details.title, joined(values("TITLE")));
    fill(details.artist, joined(values("ARTIST")));
    for (const char *name : {"ALBUMARTIST", "ALBUM ARTIST"})
        fill(details.albumArtist, joined(values(name)));
    fill(details.album, joined(values("ALBUM")));
    fill(details.genre, genres(values("GENRE")));
    for (const char *name : {"DATE", "YEAR"})
        fill(details.year, yearOf(joined(values(name))));
    for (const char *name : {"TRACKNUMBER", "TRACKNUM"})
        fill(details.track, joined(values(name)));
    for (const char *name : {"DISCNUMBER", "DISC"})
        fill(details.disc, joined(values(name)));
    fill(details.composer, joined(values("COMPOSER")));
    for (const char *name : {"COMMENT", "DESCRIPTION"})
        fill(details.comment, joined(values(name)));
    fill(details.beats, beatsOf(joined(values("BPM"))));
}

template <typename File> void readOggFile(SongStream &stream, SongDetails &details)
{
    const File file(&stream);
    if (!file.isValid())
        throw Unreadable(u"Damaged Ogg file"_s);
    takeComments(file.tag(), details);
    takeProperties(file.audioProperties(), details);
    // A short file says little about its rate; the encoder's own word is better.
    if constexpr (std::is_same_v<File, TagLib::Vorbis::File>) {
        if (file.audioProperties() && file.audioProperties()->bitrateNominal() > 0)
            details.bitRate = qRound64(file.audioProperties()->bitrateNominal() / 1000.0);
    }
}

} // namespace

void readFlac(SongStream &stream, SongDetails &details)
{
    WantedFrames frames(id3v2Length(stream));
    TagLib::FLAC::File file(&stream, &frames);
    if (!file.isValid())
        throw Unreadable(u"Damaged FLAC file"_s);
    if (file.hasXiphComment())
        takeComments(file.xiphComment(), details);
    if (file.hasID3v2Tag())
        fillFromId3v2(stream, *file.ID3v2Tag(), details);
    if (file.hasID3v1Tag())
        fillFromId3v1(*file.ID3v1Tag(), details);
    takeProperties(file.audioProperties(), details);
}

void readOgg(SongStream &stream, SongDetails &details)
{
    const QByteArrayView head = stream.head(512);
    const auto holds = [head](QByteArrayView magic) { return head.indexOf(magic) >= 0; };
    if (!head.startsWith("OggS"))
        throw Unreadable(u"Not an Ogg file"_s);
    if (holds("OpusHead"))
        readOggFile<TagLib::Ogg::Opus::File>(stream, details);
    else if (holds("\x7F"
                   "FLAC"))
        readOggFile<TagLib::Ogg::FLAC::File>(stream, details);
    else if (holds("Speex   "))
        readOggFile<TagLib::Ogg::Speex::File>(stream, details);
    else
        readOggFile<TagLib::Vorbis::File>(stream, details);
}

} // namespace shell
