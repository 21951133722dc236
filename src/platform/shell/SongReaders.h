// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/SongDetails.h"
#include "platform/shell/SongStream.h"

#include <taglib/audioproperties.h>

#include <algorithm>

/** One reader for each kind of container; each throws Unreadable when the file is none of its kind. */
namespace shell {

void readMpeg(SongStream &stream, SongDetails &details);
/** ADTS frames, with or without an ID3v2 tag in front. */
void readAdts(SongStream &stream, SongDetails &details);
void readMp4(SongStream &stream, SongDetails &details);
void readAsf(SongStream &stream, SongDetails &details);
void readWav(SongStream &stream, SongDetails &details);
void readAiff(SongStream &stream, SongDetails &details);
void readDsf(SongStream &stream, SongDetails &details);
void readMatroska(SongStream &stream, SongDetails &details);
void readMonkeysAudio(SongStream &stream, SongDetails &details);
void readMusepack(SongStream &stream, SongDetails &details);
void readWavPack(SongStream &stream, SongDetails &details);
void readFlac(SongStream &stream, SongDetails &details);
void readOgg(SongStream &stream, SongDetails &details);

/** Length and bit rate; zeros are taken as not known. */
void takeProperties(const TagLib::AudioProperties *properties, SongDetails &details);

/** Length, and the bit rate that so many bytes of sound make. */
void takeLength(double seconds, qint64 bytes, SongDetails &details);

[[nodiscard]] inline bool isBlank(QStringView text)
{
    return std::ranges::all_of(text, [](QChar c) { return c.isSpace(); });
}

/** Gives @p field a value that shows something unless an earlier source did. */
inline void fill(QString &field, const QString &value)
{
    if (field.isEmpty() && !isBlank(value))
        field = value;
}

/** Bytes that an ID3v2 tag at @p offset takes up; 0 without one. */
[[nodiscard]] qint64 id3v2Length(SongStream &stream, qint64 offset = 0);
[[nodiscard]] qint64 id3v2Length(QByteArrayView head);

} // namespace shell
