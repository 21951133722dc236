// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Id3Fields.h"
#include "platform/shell/SongReaders.h"

#include <taglib/apefile.h>
#include <taglib/mpcfile.h>
#include <taglib/wavpackfile.h>

using namespace Qt::StringLiterals;

// Kinds whose tags are those of APE, with an older one behind.

namespace shell {

namespace {

template <typename File> void readWith(SongStream &stream, const QString &kind, SongDetails &details)
{
    File file(&stream);
    if (!file.isValid())
        throw Unreadable(u"Damaged %1 file"_s.arg(kind));
    if (file.hasAPETag())
        fillFromApe(*file.APETag(), details);
    fillFromId3v2(stream, 0, details);
    if (file.hasID3v1Tag())
        fillFromId3v1(*file.ID3v1Tag(), details);
    takeProperties(file.audioProperties(), details);
    if (!file.hasAPETag() && !file.hasID3v1Tag() && !details.milliseconds)
        throw Unreadable(u"Not a %1 file"_s.arg(kind));
}

} // namespace

void readMonkeysAudio(SongStream &stream, SongDetails &details)
{
    readWith<TagLib::APE::File>(stream, u"Monkey's Audio"_s, details);
}

void readMusepack(SongStream &stream, SongDetails &details)
{
    // The oldest streams have no mark at all: anything would pass for one.
    const QByteArray mark = stream.bytesAt(id3v2Length(stream), 4);
    if (!mark.startsWith("MP+") && mark != "MPCK")
        throw Unreadable(u"Not a Musepack file"_s);
    readWith<TagLib::MPC::File>(stream, u"Musepack"_s, details);
}

void readWavPack(SongStream &stream, SongDetails &details)
{
    readWith<TagLib::WavPack::File>(stream, u"WavPack"_s, details);
}

} // namespace shell
