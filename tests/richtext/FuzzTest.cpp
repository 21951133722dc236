// SPDX-License-Identifier: GPL-3.0-or-later
#include "richtext/fuzz/RtfFuzz.h"
#include "support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace richtext::test {

namespace {

QByteArrayList seeds()
{
    QByteArrayList found;
    for (const char *folder : {FUZZ_CORPUS, RTF_SAMPLES}) {
        const QDir corpus(QString::fromLatin1(folder));
        for (const QString &name : corpus.entryList({QStringLiteral("*.rtf")}, QDir::Files, QDir::Name)) {
            QFile file(corpus.filePath(name));
            if (file.open(QIODevice::ReadOnly))
                found.append(file.readAll());
        }
    }
    return found;
}

/** Words, braces and bytes in, out and doubled; pieces of one file in another, and ends that come early. */
QByteArray mutated(QByteArray text, const QByteArray &other, QRandomGenerator &random)
{
    static const QByteArrayList pieces =
        QByteArray("{|}|\\par |\\u-3913?|\\bin9 |\\'8f|{\\*\\x |\\uc3 |\\f1 |{\\pict\\pngblip 8950}|\\v |"
                   "\\cell|\\page |\xE9|\\pard\\pagebb |\\fs99999999999 |\\cf7\\li-99 |\\line |\\*|{\\*\\pn "
                   "|\\ls1 |\\")
            .split('|');
    const auto below = [&](qsizetype limit) {
        return random.bounded(static_cast<int>(std::max<qsizetype>(limit, 1)));
    };
    for (int steps = 1 + below(6); steps > 0; --steps) {
        const qsizetype at = below(text.size());
        switch (below(5)) {
        case 0:
            text.remove(at, below(30));
            break;
        case 1:
            text.insert(at, other.mid(below(other.size()), below(80)));
            break;
        case 2:
            text[at] = static_cast<char>(below(256));
            break;
        case 3:
            text.insert(at, pieces[below(pieces.size())]);
            break;
        default:
            if (below(8) == 0)
                text.truncate(std::max<qsizetype>(at, 20));
        }
    }
    return text;
}

} // namespace

TEST(RtfFuzz, WhateverIsReadIsWrittenAndReadAgain)
{
    const QByteArrayList files = seeds();
    ASSERT_GE(files.size(), 8);
    for (const QByteArray &file : files)
        EXPECT_EQ(faultOfReading(file), QString()) << file.left(200).constData();
    QRandomGenerator random(1);
    const auto count = static_cast<int>(files.size());
    for (int run = 0; run < 3000 && !::testing::Test::HasFailure(); ++run) {
        const QByteArray input = mutated(files[run % count], files[random.bounded(count)], random);
        EXPECT_EQ(faultOfReading(input), QString()) << input.constData();
    }
}

} // namespace richtext::test
