// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Id3Fields.h"
#include "platform/shell/SongReaders.h"

#include <QtEndian>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

/** The file's own chunk, and the one that tells the sound's format. */
constexpr qsizetype HeadLength = 28 + 52;

} // namespace

void readDsf(SongStream &stream, SongDetails &details)
{
    const QByteArray head = stream.bytesAt(0, HeadLength);
    if (head.size() < HeadLength || !head.startsWith("DSD ") || head.sliced(28, 4) != "fmt ")
        throw Unreadable(u"Not a DSF file"_s);
    const auto number = [&head](qsizetype at) { return qFromLittleEndian<quint32>(head.constData() + at); };
    const auto tag = qFromLittleEndian<qint64>(head.constData() + 20);
    if (tag > 0 && tag < stream.size())
        fillFromId3v2(stream, tag, details);
    const qint64 channels = number(52);
    const qint64 rate = number(56);
    const auto samples = qFromLittleEndian<qint64>(head.constData() + 64);
    if (rate <= 0 || samples < 0)
        throw Unreadable(u"Damaged DSF file"_s);
    const double seconds = static_cast<double>(samples) / static_cast<double>(rate);
    takeLength(seconds, samples / 8 * channels * number(60), details);
}

} // namespace shell
