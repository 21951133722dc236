// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

struct Expression
{
    const char16_t *text;
    const char16_t *value;
};

/** Evaluated on the first song: Été by Beyoncé, 3.2 MB, track 2, bought on 2001-02-03. */
constexpr Expression Expressions[] = {
    {u"Len(SongName)", u"3"},
    {u"Len(Notes)", u"Null"},
    {u"UCase(SongName) & LCase('ÀB')", u"ÉTÉàb"},
    {u"Left(Artist, 2) & '-' & Right(Artist, 2) & '-' & Left('ab', 9) & Right('ab', 0)", u"Be-cé-ab"},
    {u"Mid('abcdef', 3) & Mid('abcdef', 2, 2) & Mid('ab', 9)", u"cdefbc"},
    {u"InStr(Artist, 'ONC')", u"4"},
    {u"InStr(5, 'abcabc', 'b')", u"5"},
    {u"InStr('abc', 'z')", u"0"},
    {u"'[' & Trim('  a b ') & LTrim(' c ') & RTrim(' d ') & ']'", u"[a bc  d]"},
    {u"Val(FileSize)", u"3.2"},
    {u"Val('12 3abc') + Val('x')", u"123"},
    {u"IIf(TrackNum > 1, 'many', 'one')", u"many"},
    {u"IIf(Notes > 1, 'many', 'one')", u"one"},
    {u"IsNull(Notes)", u"1"},
    {u"Nz(Notes, 'none') & Nz(Notes)", u"none"},
    {u"IIf(IsNumeric('1,234.5') And Not IsNumeric('1x') And Not IsNumeric(Notes), 'y', 'n')", u"y"},
    {u"IIf(IsDate('2001-02-03') And IsDate(PurchaseDate) And Not IsDate('x'), 'y', 'n')", u"y"},
    {u"IIf(Date() <= Now() And Date() - 30 < Now() And Date() + 1 > Now(), 'y', 'n')", u"y"},
    {u"Year(PurchaseDate) & '/' & Month(PurchaseDate) & '/' & Day(PurchaseDate)", u"2001/2/3"},
    {u"Weekday(PurchaseDate) & Hour(#2001-02-03 12:30#) & DatePart('q', PurchaseDate)", u"7121"},
    {u"Format(DateAdd('m', 1, #2001-01-31#), 'yyyy-mm-dd')", u"2001-02-28"},
    {u"Format(DateAdd('yyyy', -1, PurchaseDate), 'dd.mm.yy')", u"03.02.00"},
    {u"DateDiff('d', PurchaseDate, #3/29/2001#)", u"54"},
    {u"DateDiff('m', #1999-12-31 23:59:58#, PurchaseDate)", u"14"},
    {u"Format(FileSizeNum, '#,##0.00') & Format(0.5, '0%') & Format('ab', '>')", u"3.2050%AB"},
    {u"Format(1234567.891, 'Standard')", u"1,234,567.89"},
    {u"CStr(12) & CLng('2.5') & CLng(3.5) & CDbl('1.5')", u"12241.5"},
    {u"Abs(-3) & Int(-2.5) & Fix(-2.5) & Round(2.5) & Round(1.125, 2)", u"3-3-221.12"},
    {u"StrComp('a', 'B') & StrComp('É', 'é') & StrComp('é', 'e')", u"-101"},
    {u"Replace(Artist, 'B', 'x')", u"xeyoncé"},
    {u"5 / 2", u"2.5"},
    {u"7 \\ 2", u"3"},
    {u"7 mod 4", u"3"},
    {u"2 ^ 3 ^ 2", u"64"},
    {u"-2 ^ 2", u"-4"},
    {u"1 + 2 * 3 - 4", u"3"},
    {u"'a' + 'b'", u"ab"},
    {u"'1' + 2", u"3"},
    {u"'a' & 1 + 2 & Null & 'b'", u"a3b"},
    {u"\"he said \"\"no\"\"\" & 'it''s'", u"he said \"no\"it's"},
    {u"True & False", u"-10"},
    {u"1 / 0", u"Null"},
    {u"1.5e2 + .5", u"150.5"},
    {u"(Select Count(*) from tblContacts Where Artist like 'beyoncé')", u"3"},
    {u"(Select Max(FileSizeNum) from tblContacts) & (Select Min(SongName) from tblContacts)",
     u"9 blank both "},
    {u"(Select First(SongName) from tblContacts Where Genre = 'POP')", u"Été"},
    {u"(Select Avg(TrackNum) from tblContacts Where Genre Like 'pop')", u"2.5"},
};

struct Condition
{
    const char16_t *text;
    const char16_t *keys;
};

constexpr Condition Conditions[] = {
    {u"SongName = \"éTé\"", u"1|9|11"},
    {u"SongName = 'ETE'", u"2"},
    {u"SongName <> 'ete' And Artist Is Not Null", u"1|3|5|6|7|9|10|11"},
    {u"Artist Is Null", u"4|8"},
    {u"Not (Artist = 'zoe') And Not SongName Like '*t*'", u"3|6"},
    {u"SongName Like '?t?'", u"1|2|9|11"},
    {u"SongName Like '[é]t*'", u"1|9|11"},
    {u"SongName Like '[a-f]*'", u"2"},
    {u"SongName Like '[!a-fé]*'", u"3|4|5|6|7|10"},
    {u"SongName Like 'str*'", u"5|10"},
    {u"SongName Like 'STRASS*'", u"5|10"},
    {u"SongName Like 'straß*'", u"5|10"},
    {u"SongName Not Like '*s*'", u"1|2|4|6|9|11"},
    {u"SongName Like '*[*]*'", u"7"},
    {u"SongName Like '*[[]live]'", u"7"},
    {u"ID Like '#'", u"7"},
    {u"ID Like '[a-c]#' Or ID Like '##'", u"1|2|9|10|11"},
    {u"Genre Like '[#]#'", u"7"},
    {u"AlbumName Like '*%'", u"7"},
    {u"Artist Like 'A_B%C'", u"7"},
    {u"SongName Like ''", u""},
    {u"SongName Like '[*'", u""},
    {u"Rating = '*****'", u"1|9|11"},
    {u"Rating > ' '", u"1|2|5|6|7|9|11"},
    {u"Rating = ''", u"10"},
    {u"Len(Genre) = 0", u"4"},
    {u"SongName = ' blank both '", u"4"},
    {u"SongName = 'blank both'", u""},
    {u"FileSizeNum Between 2 And 4", u"1|3|4|9|11"},
    {u"Not FileSizeNum Between 2 And 4", u"2|5|6|7|10"},
    {u"SongName Not Between 'f' And 'z' And SongName < 'zz'", u"1|2|4|9|11"},
    {u"Artist In ('ZOE', 'beyonce')", u"2|10"},
    {u"Artist Not In ('zoe', 'beyoncé')", u"2|3|5|6|7"},
    {u"RecordID In (Select ID From tblCategoryID Where CategoryNumber = 1)", u"1|3|9"},
    {u"RecordID Not In (Select ID From tblCategoryID)", u"2|4|5|7|8|10|11"},
    {u"Exists (Select * From tblCategoryID Where ID = tblContacts.RecordID And CategoryNumber = 2)", u"1|6"},
    {u"FileSizeNum = (Select Max(FileSizeNum) From tblContacts)", u"6"},
    {u"PurchaseDate = #2001-02-03#", u"1|2"},
    {u"PurchaseDate = #2/29/2024#", u"5"},
    {u"PurchaseDate = #3 Feb 2001#", u"1|2"},
    {u"PurchaseDate = '2001-02-03'", u"1|2"},
    {u"'2/29/2024' = PurchaseDate", u"5"},
    {u"PurchaseDate In (#2001-02-03#, '2024-02-29')", u"1|2|5"},
    {u"PurchaseDate Between #1/1/2000# And '2001-12-31'", u"1|2"},
    {u"PurchaseDate < #2000-01-01#", u"3"},
    {u"PurchaseDate > Date() - 30", u""},
    {u"PurchaseDate < Date() - 30", u"1|2|3|5"},
    {u"PurchaseDate Like '*Feb*'", u"1|2|5"},
    {u"PurchaseDate Like '31 Dec 1999*'", u"3"},
    {u"Year(PurchaseDate) = 2001 Or Month(PurchaseDate) = 12", u"1|2|3"},
    {u"TrackNum", u"1|2|3|6|7|9|10|11"},
    {u"IsNull(Genre) = True", u"8"},
    {u"IsNull(SongName) Xor Selected = 'x'", u"2|6|8"},
    {u"TrackNum = '2' Or FileSizeNum Like '7*'", u"1|7|9"},
    {u"(Artist & SongName) = 'zoestrasse'", u"10"},
    {u"tblContacts!Artist = 'Zoë' And [tblContacts].[SongName] Like '*ss*'", u"5"},
    {u"Artist = 'Zoë';", u"5"},
    {u"PathName = '/M/S/'", u"5|10"},
};

QString randomText(QRandomGenerator &random, qsizetype longest)
{
    static constexpr char32_t alphabet[] = {
        U'a',      U'E',      U'e',      U'\u00e9', U'\u0301',     U's',      U'S', U'\u00df', U'\u1e9e',
        U'-',      U' ',      U'\'',     U'l',      U'\u00b7',     U'\u0130', U'i', U'\u00ad', U'\u6843',
        U'\u0e40', U'\u0e01', U'\u03c3', U'\u03c2', U'\U0001f600', U'\ufb01', U'7'};
    QString text;
    for (qsizetype left = random.bounded(longest) + 1; left > 0; --left)
        text += QString::fromUcs4(&alphabet[random.bounded(quint32(std::size(alphabet)))], 1);
    return text;
}

} // namespace

TEST_F(SongCatalogue, ExpressionsHaveTheirValues)
{
    for (const Expression &expression : Expressions) {
        const QString text = QString::fromUtf16(expression.text);
        SCOPED_TRACE(text.toStdString());
        QString value;
        const int error = errorOf(
            [&] { value = keys(u"Select "_s + text + u" As v From tblContacts Where RecordID = 1"_s); });
        EXPECT_EQ(error, 0);
        EXPECT_EQ(value, QString::fromUtf16(expression.value));
    }
}

TEST_F(SongCatalogue, AConditionMeansTheSameInAStatementAndInASearch)
{
    const auto all = open(u"Select * From tblContacts Order By RecordID"_s);
    for (const Condition &condition : Conditions) {
        const QString text = QString::fromUtf16(condition.text);
        SCOPED_TRACE(text.toStdString());
        const QString expected = QString::fromUtf16(condition.keys);
        QStringList found;
        try {
            for (all->FindFirst(text); !all->NoMatch() && found.size() < 12; all->FindNext(text))
                found.append(all->text(u"RecordID"_s));
            EXPECT_EQ(found.join(u'|'), expected);
            EXPECT_EQ(keys(u"Select RecordID From tblContacts Where "_s + text), expected);
        } catch (const dao::DaoError &error) {
            ADD_FAILURE() << error.number << ' ' << error.what();
        }
    }
}

// A pattern with a literal front is looked up as a range; behind an expression it can't be.
TEST_F(SongCatalogue, ALookedUpPatternFindsWhatTheSameTestFindsRowByRow)
{
    QRandomGenerator random(20240229);
    const auto rows = open(u"tblPlayListDetail"_s);
    db().workspace().BeginTrans();
    for (int row = 0; row < 400; ++row) {
        rows->AddNew();
        rows->setValue(u"SongTitle"_s, randomText(random, 5));
        rows->Update();
    }
    db().workspace().CommitTrans();
    int hits = 0;
    for (int round = 0; round < 400; ++round) {
        const QString pattern = quotedSql(randomText(random, 3) + u'*');
        const QString sql = u"Select SongTitle From tblPlayListDetail Where %1 Like %2 Order By SongTitle"_s;
        const QString looked = keys(sql.arg(u"SongTitle"_s, pattern));
        EXPECT_EQ(looked, keys(sql.arg(u"(SongTitle & '')"_s, pattern))) << pattern.toStdString();
        hits += looked.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(hits, 100);
}

TEST_F(SongCatalogue, GroupsAndSumsFoldTextsThatAreEqual)
{
    EXPECT_EQ(keys(u"Select Count(*) From tblContacts Group By Artist Having Count(*) > 1"_s), u"2|3"_s);
    EXPECT_EQ(keys(u"Select Distinct LCase(Genre) From tblContacts Where Genre Like 'p*'"_s), u"pop"_s);
    EXPECT_EQ(keys(u"Select Top 2 RecordID From tblContacts Order By FileSizeNum Desc"_s), u"6|7"_s);
    EXPECT_EQ(keys(u"Select Sum(n) From (Select Count(*) As n From tblContacts Group By Genre) As g"_s),
              u"11"_s);
    EXPECT_EQ(keys(u"Select a.RecordID From tblContacts As a, tblContacts As b Where a.Artist = b.Artist And "
                   "a.RecordID < b.RecordID Order By a.RecordID"_s),
              u"1|1|9"_s);
    EXPECT_EQ(keys(u"Select RecordID From tblCategoryID Right Join tblContacts On tblContacts.RecordID = "
                   "tblCategoryID.ID Where CategoryNumber Is Null Order By RecordID"_s),
              u"2|4|5|7|8|10|11"_s);
}

} // namespace quaverly::test
