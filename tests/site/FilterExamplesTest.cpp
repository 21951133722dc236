// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SongFields.h"
#include "support/QtPrinters.h"
#include "support/store/StoreFixture.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

QStringList examplesOfThePage()
{
    QFile page(QStringLiteral(FILTER_PAGE));
    EXPECT_TRUE(page.open(QIODevice::ReadOnly));
    static const QRegularExpression example(uR"(<pre class="filter">([^<]*)</pre>)"_s);
    QStringList examples;
    auto matches = example.globalMatch(QString::fromUtf8(page.readAll()));
    while (matches.hasNext()) {
        examples.append(matches.next()
                            .captured(1)
                            .replace(u"&lt;"_s, u"<"_s)
                            .replace(u"&gt;"_s, u">"_s)
                            .replace(u"&amp;"_s, u"&"_s));
    }
    return examples;
}

/** What applying the filter opens. */
QString statement(const QString &criteria)
{
    const qsizetype at = criteria.indexOf("order by"_L1, 0, Qt::CaseInsensitive);
    const QString order = at < 0 ? u" Order By SongName, Artist"_s : u' ' + criteria.mid(at);
    return u"Select distinctrow * from  tblContacts Where  ("_s + criteria.left(at).trimmed() + u") "_s +
           order;
}

void addSongs(StoreFixture &store)
{
    const auto day = [](int year, int month, int date, int hour = 0) {
        return QDateTime(QDate(year, month, date), QTime(hour, 0), Qt::UTC);
    };
    store.addSong(Song(u"Dancing Queen"_s, u"Abba"_s)
                      .with(u"Genre"_s, u"Pop"_s)
                      .with(u"Year"_s, u"1976"_s)
                      .with(u"Rating"_s, u"*****"_s)
                      .with(u"DateUpdated"_s, QDateTime::currentDateTimeUtc())
                      .with(u"PurchaseDate"_s, day(2024, 5, 1)));
    store.addSong(Song(u"Lovely Day"_s, u"Bill Withers"_s)
                      .file(u"/music/Live/"_s, u"1.mp3"_s)
                      .with(u"Genre"_s, u"Soul"_s)
                      .with(u"Notes"_s, u"On the radio"_s)
                      .with(u"FileSizeNum"_s, 25.5)
                      .with(u"BPM"_s, u"120"_s)
                      .with(u"Bitrate"_s, u"064kbps"_s)
                      .with(u"Duration"_s, u"00:12:05"_s)
                      .with(u"DateUpdated"_s, day(2026, 3, 1, 19)));
    store.addSong(Song(u"7 Steps (Remix)"_s, u"Miles Davis"_s)
                      .with(u"Genre"_s, u"Jazz"_s)
                      .with(u"Year"_s, u"1963"_s)
                      .with(u"Bitrate"_s, u"320kbps"_s));
    store.addSong(Song(u"Say \"Hi\""_s, u"Roxette"_s).with(u"Genre"_s, u"Rock"_s));
    store.addSong(Song(u"Untitled"_s, {}).with(u"DateUpdated"_s, day(2026, 3, 2)));
}

} // namespace

TEST(TheFilterPage, EveryExampleFindsSomeSongsAndNotAll)
{
    StoreFixture store;
    addSongs(store);
    const QStringList examples = examplesOfThePage();
    EXPECT_GT(examples.size(), 20);
    for (const QString &example : examples) {
        SCOPED_TRACE(example.toStdString());
        try {
            const qint64 found = store.db().OpenRecordset(statement(example))->RecordCount();
            EXPECT_GT(found, 0);
            EXPECT_LT(found, 5);
        } catch (const dao::DaoError &error) {
            ADD_FAILURE() << error.number << ' ' << error.what();
        }
    }
}

TEST(TheFilterPage, EveryFieldIsNamed)
{
    QFile page(QStringLiteral(FILTER_PAGE));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    for (const SongField &field : songFields()) {
        // The three Misc fields share a line, from the first to the third.
        const bool isNamed = text.contains(u"<code>"_s + field.name + u"</code>"_s);
        EXPECT_TRUE(isNamed || !field.inFilterList || field.name == "MiscField2"_L1) << field.name.data();
    }
}

} // namespace quaverly::test
