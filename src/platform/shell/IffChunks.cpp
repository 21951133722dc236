// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/IffChunks.h"

#include <QtEndian>

#include <algorithm>

namespace shell {

void walkChunks(SongStream &stream, bool bigEndian, const ChunkTaker &take)
{
    constexpr qint64 chunkHead = 8;
    for (qint64 offset = IffHead; offset < stream.size();) {
        const QByteArray head = stream.bytesAt(offset, chunkHead);
        if (head.size() < chunkHead || head.startsWith('\0'))
            break;
        const char *const number = head.constData() + 4;
        const qint64 length =
            bigEndian ? qFromBigEndian<quint32>(number) : qFromLittleEndian<quint32>(number);
        const qint64 content = offset + chunkHead;
        take(head.first(4), content, std::min(length, stream.size() - content));
        offset = content + length + (length & 1);
    }
}

} // namespace shell
