// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PictureFaults.h"

#include <QtEndian>

#include <cstdlib>
#include <cstring>

namespace quaverly {

namespace {

thread_local DecoderComplaints *listening = nullptr;
QtMessageHandler previousHandler = nullptr;

qsizetype byteAt(QByteArrayView file, qsizetype at)
{
    return static_cast<uchar>(file[at]);
}

template <typename Number> Number numberAt(QByteArrayView file, qsizetype at)
{
    return qFromLittleEndian<Number>(file.data() + at);
}

bool bitmapEndsEarly(QByteArrayView file)
{
    constexpr qsizetype HeadSize = 54;
    if (file.size() < HeadSize)
        return true;
    const bool isPacked = numberAt<quint32>(file, 30) != 0;
    const qint64 width = numberAt<qint32>(file, 18);
    const qint64 height = std::abs(qint64{numberAt<qint32>(file, 22)});
    const qint64 bits = numberAt<quint16>(file, 28);
    const qint64 line = (width * bits + 31) / 32 * 4;
    return !isPacked && numberAt<quint32>(file, 10) + line * height > file.size();
}

/** Behind the chain of blocks that begins there; beyond the file's end when that comes first. */
qsizetype behindBlocks(QByteArrayView file, qsizetype at)
{
    while (at < file.size() && file[at] != '\0')
        at += 1 + byteAt(file, at);
    return at + 1;
}

/** Bytes of the colour table that the flags tell of. */
qsizetype tableSize(qsizetype flags)
{
    constexpr qsizetype HasTable = 0x80;
    constexpr qsizetype BytesOfTwoColours = 6;
    return (flags & HasTable) != 0 ? BytesOfTwoColours << (flags & 7) : 0;
}

bool gifEndsEarly(QByteArrayView file)
{
    constexpr qsizetype HeadSize = 13;
    constexpr qsizetype PlaceSize = 10;
    if (file.size() < HeadSize)
        return true;
    qsizetype at = HeadSize + tableSize(byteAt(file, 10));
    while (at + 1 < file.size() && file[at] == '!')
        at = behindBlocks(file, at + 2);
    if (at + PlaceSize > file.size() || file[at] != ',')
        return true;
    return behindBlocks(file, at + PlaceSize + tableSize(byteAt(file, at + PlaceSize - 1)) + 1) > file.size();
}

} // namespace

DecoderComplaints::DecoderComplaints()
{
    // Once for all threads: another handler may have come on top of this one since.
    static const bool installed = [] {
        previousHandler = qInstallMessageHandler(&DecoderComplaints::handle);
        return true;
    }();
    Q_UNUSED(installed)
    listening = this;
}

DecoderComplaints::~DecoderComplaints()
{
    listening = nullptr;
}

void DecoderComplaints::handle(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    constexpr char Decoders[] = "qt.gui.imageio";
    if (listening && context.category && std::strncmp(context.category, Decoders, sizeof Decoders - 1) == 0) {
        if (listening->m_first.isEmpty())
            listening->m_first = message.trimmed();
        return;
    }
    if (previousHandler)
        previousHandler(type, context, message);
}

bool endsEarly(QByteArrayView file)
{
    if (file.startsWith("BM"))
        return bitmapEndsEarly(file);
    return file.startsWith("GIF8") && gifEndsEarly(file);
}

} // namespace quaverly
