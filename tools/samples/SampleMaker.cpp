// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleMaker.h"

#include "samples/Silence.h"

#include <taglib/aifffile.h>
#include <taglib/asffile.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/opusfile.h>
#include <taglib/tbytevectorstream.h>
#include <taglib/tpropertymap.h>
#include <taglib/vorbisfile.h>
#include <taglib/wavfile.h>
#include <taglib/wavpackfile.h>

#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace samples {

namespace {

void put(TagLib::PropertyMap &map, const char *key, const QString &value)
{
    if (!value.isEmpty())
        map.replace(key, TagLib::String(value.toUtf8().constData(), TagLib::String::UTF8));
}

void put(TagLib::PropertyMap &map, const char *key, int value)
{
    if (value > 0)
        map.replace(key, TagLib::String::number(value));
}

TagLib::PropertyMap propertiesOf(const SongTags &tags)
{
    TagLib::PropertyMap map;
    put(map, "TITLE", tags.title);
    put(map, "ARTIST", tags.artist);
    put(map, "ALBUMARTIST", tags.albumArtist);
    put(map, "ALBUM", tags.album);
    put(map, "GENRE", tags.genre);
    put(map, "COMPOSER", tags.composer);
    put(map, "COMMENT", tags.comment);
    put(map, "DATE", tags.year);
    put(map, "BPM", tags.beats);
    put(map, "DISCNUMBER", tags.disc);
    if (tags.track > 0 && tags.tracks > 0)
        put(map, "TRACKNUMBER", u"%1/%2"_s.arg(tags.track).arg(tags.tracks));
    else
        put(map, "TRACKNUMBER", tags.track);
    return map;
}

template <typename File> void saveWith(File &&file, const TagLib::PropertyMap &map)
{
    file.setProperties(map);
    file.save();
}

void writeTags(TagLib::IOStream &stream, const QString &extension, const TagLib::PropertyMap &map)
{
    constexpr bool noProperties = false;
    if (extension == "mp3"_L1 || extension == "mp2"_L1 || extension == "aac"_L1) {
        TagLib::MPEG::File file(&stream, TagLib::ID3v2::FrameFactory::instance(), noProperties);
        file.setProperties(map);
        file.save(TagLib::MPEG::File::ID3v2);
    } else if (extension == "m4a"_L1 || extension == "m4b"_L1 || extension == "mp4"_L1) {
        saveWith(TagLib::MP4::File(&stream, noProperties), map);
    } else if (extension == "wma"_L1) {
        saveWith(TagLib::ASF::File(&stream, noProperties), map);
    } else if (extension == "wav"_L1) {
        saveWith(TagLib::RIFF::WAV::File(&stream, noProperties), map);
    } else if (extension == "flac"_L1) {
        saveWith(TagLib::FLAC::File(&stream, TagLib::ID3v2::FrameFactory::instance(), noProperties), map);
    } else if (extension == "aiff"_L1 || extension == "aif"_L1) {
        saveWith(TagLib::RIFF::AIFF::File(&stream, noProperties), map);
    } else if (extension == "opus"_L1) {
        saveWith(TagLib::Ogg::Opus::File(&stream, noProperties), map);
    } else if (extension == "wv"_L1) {
        saveWith(TagLib::WavPack::File(&stream, noProperties), map);
    } else {
        saveWith(TagLib::Vorbis::File(&stream, noProperties), map);
    }
}

} // namespace

QByteArray SampleMaker::song(const QString &extension, const SongTags &tags)
{
    const QString type = extension.toLower();
    QByteArray &bytes = m_silence[u"%1/%2"_s.arg(type).arg(tags.seconds)];
    if (bytes.isEmpty())
        bytes = silence(type, tags.seconds);
    const TagLib::PropertyMap map = propertiesOf(tags);
    if (map.isEmpty())
        return bytes;
    TagLib::ByteVectorStream stream({bytes.constData(), static_cast<unsigned>(bytes.size())});
    writeTags(stream, type, map);
    return {stream.data()->data(), static_cast<qsizetype>(stream.data()->size())};
}

void SampleMaker::makeSong(const QString &path, const SongTags &tags)
{
    const QByteArray bytes = song(path.mid(path.lastIndexOf(u'.') + 1), tags);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || file.write(bytes) != bytes.size())
        throw std::runtime_error((path + ": "_L1 + file.errorString()).toStdString());
}

void makeSong(const QString &path, const SongTags &tags)
{
    SampleMaker().makeSong(path, tags);
}

} // namespace samples
