// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Id3Fields.h"
#include "platform/shell/IffChunks.h"
#include "platform/shell/SongReaders.h"
#include "platform/shell/TagText.h"

#include <QtEndian>

#include <cmath>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr qsizetype LongestText = 64 * 1024;
constexpr qsizetype FormatLength = 18;

/** A number of 80 bits: sign and exponent in two, mantissa in eight bytes. */
double wideNumber(const char *bytes)
{
    const int exponent = qFromBigEndian<quint16>(bytes) & 0x7FFF;
    return std::ldexp(static_cast<double>(qFromBigEndian<quint64>(bytes + 2)), exponent - 16383 - 63);
}

struct AiffSound
{
    qint64 frames = 0;
    double rate = 0;
    qint64 bytes = 0;
};

void takeFormat(const QByteArray &format, AiffSound &sound)
{
    if (format.size() < FormatLength)
        return;
    sound.frames = qFromBigEndian<quint32>(format.constData() + 2);
    sound.rate = wideNumber(format.constData() + 8);
}

} // namespace

void readAiff(SongStream &stream, SongDetails &details)
{
    const QByteArrayView head = stream.head(IffHead);
    if (head.size() < IffHead || !head.startsWith("FORM") || head.sliced(8, 3) != "AIF")
        throw Unreadable(u"Not an AIFF file"_s);
    AiffSound sound;
    SongDetails texts;
    walkChunks(stream, true, [&](QByteArrayView name, qint64 content, qint64 length) {
        const auto text = [&] {
            return fromTagBytes(stream.bytesAt(content, std::min<qint64>(length, LongestText))).trimmed();
        };
        if (name == "COMM")
            takeFormat(stream.bytesAt(content, FormatLength), sound);
        else if (name == "SSND")
            sound.bytes = length;
        else if (name == "ID3 " || name == "id3 ")
            fillFromId3v2(stream, content, details);
        else if (name == "NAME")
            fill(texts.title, text());
        else if (name == "AUTH")
            fill(texts.artist, text());
        else if (name == "ANNO")
            fill(texts.comment, text());
    });
    fill(details.title, texts.title);
    fill(details.artist, texts.artist);
    fill(details.comment, texts.comment);
    if (sound.rate < 1)
        throw Unreadable(u"Damaged AIFF file"_s);
    const double seconds = static_cast<double>(sound.frames) / sound.rate;
    takeLength(seconds, sound.bytes, details);
}

} // namespace shell
