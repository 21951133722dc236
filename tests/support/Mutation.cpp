// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Mutation.h"

#include <algorithm>

namespace quaverly::test {

QByteArray mutated(QByteArray bytes, const QByteArray &other, const QByteArrayList &pieces,
                   QRandomGenerator &random)
{
    const auto below = [&](qsizetype limit) {
        return random.bounded(static_cast<int>(std::max<qsizetype>(limit, 1)));
    };
    for (int steps = 1 + below(5); steps > 0; --steps) {
        const qsizetype at = below(below(3) == 0 ? bytes.size() : std::min<qsizetype>(bytes.size(), 600));
        const QByteArray piece = pieces[below(pieces.size())];
        const QByteArray part = other.mid(below(other.size()), below(64));
        switch (below(8)) {
        case 0:
            bytes.replace(at, 1, QByteArray(1, static_cast<char>(below(256))));
            break;
        case 1:
            bytes.replace(at, piece.size(), piece);
            break;
        case 2:
        case 3:
            bytes.insert(at, piece);
            break;
        case 4:
            bytes.insert(at, part);
            break;
        case 5:
            bytes.replace(at, 16, other.mid(below(600), 16));
            break;
        case 6:
            bytes.remove(at, 1 + below(40));
            break;
        default:
            if (below(8) == 0)
                bytes.truncate(at);
        }
    }
    return bytes;
}

} // namespace quaverly::test
