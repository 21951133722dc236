// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"
#include "store/fuzz/SqlFuzz.h"
#include "support/Mutation.h"

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

const QByteArrayList Pieces =
    QByteArray(
        "(|)|'|\"|[|]|#|*|,|.|!|-|+|=|<>| Not | Like | Null | Select | From | tblContacts |First(|Sum(|"
        " Left | Join | As |\xc3\x89|\xff|1e9| Group By |RecordID| Order By | Top 3 | In |~key|\0",
        171)
        .split('|');

} // namespace

TEST_F(SongCatalogue, WhateverIsTranslatedIsSqlOrIsRefused)
{
    const QDir corpus(QStringLiteral(FUZZ_CORPUS));
    QByteArrayList seeds;
    for (const QString &name : corpus.entryList(QDir::Files, QDir::Name))
        seeds.append(bytesOf(corpus.filePath(name)));
    ASSERT_GE(seeds.size(), 10);
    const QString before = everything();
    for (const QByteArray &seed : seeds)
        EXPECT_EQ(faultOfTranslating(seed, db().impl()), QString()) << seed.constData();
    QRandomGenerator random(1);
    const auto count = static_cast<int>(seeds.size());
    int faults = 0;
    for (int run = 0; run < 8'000 && faults < 5; ++run) {
        const QByteArray input =
            mutated(seeds[random.bounded(count)], seeds[random.bounded(count)], Pieces, random);
        const QString fault = faultOfTranslating(input, db().impl());
        EXPECT_EQ(fault, QString()) << input.constData();
        faults += fault.isEmpty() ? 0 : 1;
    }
    EXPECT_EQ(everything(), before);
}

} // namespace quaverly::test
