// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/SongDetails.h"
#include "platform/shell/SongStream.h"

#include <taglib/audioproperties.h>

/** One reader for each kind of container; each throws Unreadable when the file is none of its kind. */
namespace shell {

void readMpeg(SongStream &stream, SongDetails &details);
/** ADTS frames, with or without an ID3v2 tag in front. */
void readAdts(SongStream &stream, SongDetails &details);
void readMp4(SongStream &stream, SongDetails &details);
void readAsf(SongStream &stream, SongDetails &details);
void readWav(SongStream &stream, SongDetails &details);
void readFlac(SongStream &stream, SongDetails &details);
void readOgg(SongStream &stream, SongDetails &details);

/** Length and bit rate; zeros are taken as not known. */
void takeProperties(const TagLib::AudioProperties *properties, SongDetails &details);

/** Gives @p field a value unless an earlier source did. */
inline void fill(QString &field, const QString &value)
{
    if (field.isEmpty())
        field = value;
}

/** Bytes in front of the sound that an ID3v2 tag takes up; 0 without one. */
[[nodiscard]] qint64 id3v2Length(const SongStream &stream);

} // namespace shell
