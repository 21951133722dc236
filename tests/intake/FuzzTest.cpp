// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/fuzz/TagFuzz.h"

#include "samples/SampleMaker.h"
#include "support/Mutation.h"
#include "support/QtPrinters.h"
#include "support/TagBytes.h"

#include <QDir>
#include <QTemporaryDir>

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
    for (const char16_t *type :
         {u"mp3", u"m4a", u"wma", u"wav", u"aac", u"ogg", u"flac", u"mp4", u"opus", u"aiff", u"wv"})
        made.append(maker.song(QString::fromUtf16(type), tags));
    return made;
}

/** Lengths that are wrong. */
const QByteArrayList Lengths{bigEndian(0xFFFFFFFFU), bigEndian(0x80000000U),    bigEndian(0U),
                             bigEndian(7U),          littleEndian(0x7FFFFFFFU), littleEndian(1U)};

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
        const QByteArray input = mutated(songs[run % count], songs[random.bounded(count)], Lengths, random);
        EXPECT_EQ(faultOfReading(input, folder.path()), QString()) << input.toBase64().constData();
    }
}

} // namespace quaverly::test
