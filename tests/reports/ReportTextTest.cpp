// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/LinesPerPage.h"
#include "reports/PlayListReport.h"
#include "reports/SongReport.h"
#include "songlist/ListTexts.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

/** Each run as its size, "b" for bold, its colour's first letter, and its text with "/" for a line end and
 * "^" for a page break. */
class Runs final : public ReportSink
{
public:
    void write(QStringView text, const RunFormat &format) override
    {
        EXPECT_EQ(format.font, u"Arial"_s);
        const QString color = format.color == reportcolors::Blue    ? u"B"_s
                              : format.color == reportcolors::White ? u"W"_s
                                                                    : QString();
        QString shown = text.toString();
        shown.replace(u"\r\n"_s, u"/"_s).replace(u'\f', u'^');
        runs += QString::number(format.size) + (format.bold ? u"b"_s : QString()) + color + u'|' + shown;
    }
    QStringList runs;
};

QStringList report(SongReportKind kind, double lines, const QList<ReportSong> &songs)
{
    Runs sink;
    SongReport report(kind, lines, sink);
    for (const ReportSong &song : songs)
        report.add(song);
    return sink.runs;
}

const QList<ReportSong> Songs = {
    {.Artist = u"   "_s,
     .SongName = u"Untitled"_s,
     .PathName = u"/m/"_s,
     .FileName = u"u.mp3"_s,
     .Duration = u"3:1"_s},
    {.Artist = u"Abba"_s,
     .SongName = u"SOS"_s,
     .PathName = u"/m/"_s,
     .FileName = u"s.mp3"_s,
     .Duration = u"00:03:22"_s},
    {.Artist = u" ABBA "_s, .SongName = u"Waterloo"_s, .PathName = u"/m/"_s, .FileName = u"w.mp3"_s},
    {.Artist = u"Blur"_s,
     .SongName = u"Epic"_s,
     .PathName = u"/n/"_s,
     .FileName = u"e.mp3"_s,
     .Duration = u"01:02:03"_s},
};

TEST(SongReport, EachArtistBeginsAPageAndBearsItsStoredName)
{
    const QStringList expected = {
        u"12bB|No Artist Name/"_s,   u"10|    Untitled      3:1/"_s, u"10|/"_s, u"10W|^"_s, u"12bB|Abba/"_s,
        u"10|    SOS      03:22/"_s, u"10|    Waterloo      /"_s,    u"10|/"_s, u"10W|^"_s, u"12bB|Blur/"_s,
        u"10|    Epic      02:03/"_s};
    EXPECT_EQ(report(SongReportKind::Artist, 0, Songs), expected);
    EXPECT_EQ(report(SongReportKind::Artist, 54.5, Songs), expected);
    EXPECT_EQ(report(SongReportKind::Artist, 54, Songs.sliced(1, 1)),
              (QStringList{u"12|/"_s, u"12bB|Abba/"_s, u"10|    SOS      03:22/"_s}));
    // A page that is full at an artist's end breaks once.
    EXPECT_EQ(
        report(SongReportKind::Artist, 2, Songs.sliced(1)),
        (QStringList{u"12|/"_s, u"12bB|Abba/"_s, u"10|    SOS      03:22/"_s, u"10|    Waterloo      /"_s,
                     u"10W|^"_s, u"10W|/"_s, u"12bB|Blur/"_s, u"10|    Epic      02:03/"_s}));
}

TEST(SongReport, SongAndPathReportsAreRowsAndPages)
{
    EXPECT_EQ(report(SongReportKind::Song, 3, Songs),
              (QStringList{u"10| Untitled/"_s, u"10| SOS [by] Abba/"_s, u"10| Waterloo [by]  ABBA /"_s,
                           u"10W|^"_s, u"10| Epic [by] Blur/"_s}));
    EXPECT_EQ(report(SongReportKind::Path, 0, Songs),
              (QStringList{u"10| /m/u.mp3/"_s, u"10| /m/s.mp3/"_s, u"10| /m/w.mp3/"_s, u"10| /n/e.mp3/"_s}));
}

TEST(PlayListReport, PagesAreFortyOrTwentyRowsLong)
{
    const auto pages = [](PlayListReportKind kind, int tracks) {
        Runs sink;
        PlayListReport report(kind, sink);
        report.begin(u"Party"_s);
        for (int i = 0; i < tracks; ++i)
            report.add({u"SOS"_s, u"Abba"_s, u"/m/s.mp3"_s});
        return sink.runs;
    };
    EXPECT_EQ(pages(PlayListReportKind::Detail, 1),
              (QStringList{u"12bB|Party//"_s, u"10| SOS [by] Abba/"_s}));
    EXPECT_EQ(pages(PlayListReportKind::DetailWithFileNames, 1),
              (QStringList{u"12bB|Party//"_s, u"10| SOS [by] Abba/"_s, u"8|      File name: /m/s.mp3/"_s}));
    EXPECT_EQ(pages(PlayListReportKind::Detail, 81).count(u"10W|///^"_s), 2);
    EXPECT_EQ(pages(PlayListReportKind::Detail, 40).last(), u"10W|///^"_s);
    EXPECT_EQ(pages(PlayListReportKind::DetailWithFileNames, 40).count(u"8W|///^"_s), 2);
}

TEST(SongReport, ReadsWhatTheListShows)
{
    struct Case
    {
        const char *source;
        QString where;
        QString selection;
        const char *sql;
    };
    const QString fields = u"Select Artist, SongName, PathName, FileName, Duration from "_s;
    const Case cases[] = {
        {"qryDuplicateSongs", u" Where x "_s, {}, "qryDuplicateSongs Order By SongName, Artist "},
        {"qryShowDuplicatesToBeDeleted", {}, {}, "qryShowDuplicatesToBeDeleted Order By SongName, Artist "},
        {"qryDuplicateSongsAlbum", {}, {}, "qryContacts  Order By SongName, Artist "},
        {"", u" Where a "_s, u" And Selected < 'x' "_s,
         "qryContacts  Where a  And Selected < 'x'  Order By SongName, Artist "},
        // Made under another list: that one is shown without it.
        {"", u" Where a "_s, u" Where Selected = 'x' "_s, "qryContacts  Where a  Order By SongName, Artist "},
    };
    for (const Case &each : cases) {
        ListTexts texts;
        texts.ListWhere = each.where;
        texts.ListSelectionClause = each.selection;
        EXPECT_EQ(songReportSql(SongReportKind::Song, QString::fromLatin1(each.source), texts),
                  fields + QString::fromLatin1(each.sql));
    }
}

TEST(LinesPerPage, TakesNumbersUpToTheLimit)
{
    const QString numeric = u"Value must be numeric."_s, most = u"Value can not be greater than 32,000."_s,
                  negative = u"Value can not be negative."_s;
    const std::pair<const char *, QString> cases[] = {
        {"0", {}},     {"54", {}},       {"32000", {}},  {"32,000.9", {}},     {"32001", most},
        {"1e9", most}, {"-1", negative}, {"x", numeric}, {"12 pages", numeric}};
    for (const auto &[answer, refusal] : cases)
        EXPECT_EQ(refusalOfLinesPerPage(QString::fromLatin1(answer)), refusal) << answer;
    EXPECT_EQ(linesOf(u"1,000"_s), 1000);
}

} // namespace
