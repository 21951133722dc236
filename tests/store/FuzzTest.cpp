// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"
#include "store/fuzz/SqlFuzz.h"

#include <QDir>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

/** Words and characters in, out and doubled; pieces of one seed behind those of another. */
QByteArray mutated(QByteArray text, const QByteArray &other, QRandomGenerator &random)
{
    static const QByteArrayList pieces =
        QByteArray(
            "(|)|'|\"|[|]|#|*|,|.|!|-|+|=|<>| Not | Like | Null | Select | From | tblContacts |First(|Sum(|"
            " Left | Join | As |\xc3\x89|\xff|1e9| Group By |RecordID| Order By | Top 3 | In |~key|\0",
            171)
            .split('|');
    for (int steps = 1 + random.bounded(4); steps > 0; --steps) {
        const qsizetype at = 1 + random.bounded(static_cast<int>(text.size()));
        const qsizetype length = random.bounded(12);
        const qsizetype from = random.bounded(static_cast<int>(other.size()));
        switch (random.bounded(4)) {
        case 0:
            text.remove(at, length);
            break;
        case 1:
            text.insert(at, text.mid(from, length));
            break;
        case 2:
            text.insert(at, other.mid(from, length * 2));
            break;
        default:
            text.insert(at, pieces[random.bounded(static_cast<int>(pieces.size()))]);
        }
    }
    return text;
}

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
    for (int run = 0; run < 20'000 && faults < 5; ++run) {
        const QByteArray input = mutated(seeds[random.bounded(count)], seeds[random.bounded(count)], random);
        const QString fault = faultOfTranslating(input, db().impl());
        EXPECT_EQ(fault, QString()) << input.constData();
        faults += fault.isEmpty() ? 0 : 1;
    }
    EXPECT_EQ(everything(), before);
}

} // namespace quaverly::test
