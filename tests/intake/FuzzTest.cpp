// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/fuzz/TagFuzz.h"

#include "samples/SampleMaker.h"
#include "support/QtPrinters.h"
#include "support/TagBytes.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tagbytes;

namespace quaverly::test {

namespace {

/** A song of every type with all its tags. */
QByteArrayList seeds()
{
    samples::SongTags tags{u"Été"_s, u"Abba"_s, u"Arrival"_s, u"Pop"_s, u"Benny"_s, u"Live"_s,
                           1976,     3,         12,           128};
    samples::SampleMaker maker;
    QByteArrayList made;
    for (const char16_t *type : {u"mp3", u"m4a", u"wma", u"wav", u"aac", u"ogg", u"flac", u"mp4"})
        made.append(maker.song(QString::fromUtf16(type), tags));
    return made;
}

/** Lengths that are wrong, bytes that are another's, and ends that come early. */
QByteArray mutated(QByteArray bytes, const QByteArray &other, QRandomGenerator &random)
{
    static const QByteArrayList lengths{bigEndian(0xFFFFFFFFU), bigEndian(0x80000000U),    bigEndian(0U),
                                        bigEndian(7U),          littleEndian(0x7FFFFFFFU), littleEndian(1U)};
    const auto below = [&](qsizetype limit) {
        return random.bounded(static_cast<int>(std::max<qsizetype>(limit, 1)));
    };
    for (int steps = 1 + below(6); steps > 0; --steps) {
        // What decides stands in the first bytes and in the last ones.
        const qsizetype at = below(below(3) == 0 ? bytes.size() : std::min<qsizetype>(bytes.size(), 600));
        switch (below(6)) {
        case 0:
            bytes.replace(at, 1, QByteArray(1, static_cast<char>(below(256))));
            break;
        case 1:
            bytes.replace(at, 4, lengths[below(lengths.size())]);
            break;
        case 2:
            bytes.insert(at, other.mid(below(other.size()), below(64)));
            break;
        case 3:
            bytes.replace(at, 16, other.mid(below(600), 16));
            break;
        case 4:
            bytes.remove(at, 1 + below(40));
            break;
        default:
            if (below(8) == 0)
                bytes.truncate(at);
        }
    }
    return bytes;
}

} // namespace

TEST(TagFuzz, WhateverIsReadCanBeShownAndStored)
{
    const QTemporaryDir folder;
    const QByteArrayList songs = seeds();
    for (const QByteArray &song : songs)
        EXPECT_EQ(faultOfReading(song, folder.path()), QString());
    QRandomGenerator random(1);
    const auto count = static_cast<int>(songs.size());
    for (int run = 0; run < 2000 && !HasFailure(); ++run) {
        const QByteArray input = mutated(songs[run % count], songs[random.bounded(count)], random);
        EXPECT_EQ(faultOfReading(input, folder.path()), QString()) << input.toBase64().constData();
    }
}

} // namespace quaverly::test
