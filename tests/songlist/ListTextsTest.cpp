// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/ListTexts.h"
#include "support/QtPrinters.h"

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

TEST(ListTextsOf, TheMarkClauseFitsWhatStandsBeforeIt)
{
    const QString join = invalidFilesWhere({});
    const std::tuple<QString, QString, QString, QString> cases[] = {
        {u""_s, u" Where Selected < 'x' "_s, u""_s, u""_s},
        {u""_s, u" Where Selected < 'x' "_s, u" And Selected < 'x' "_s, u" Where Selected < 'x' "_s},
        {u" Where (Year > \"1\") "_s, u" And Selected < 'x' "_s, u" Where Selected = 'x' "_s,
         u" And Selected = 'x' "_s},
        {join, u" Where Selected < 'x' "_s, u" Where Selected < 'x' "_s, u" And Selected < 'x' "_s},
    };
    for (const auto &[where, hide, countedFrom, counted] : cases) {
        EXPECT_EQ(hideClause(where), hide);
        EXPECT_EQ(clauseForCount(countedFrom, where), counted);
    }
}

TEST(ListTextsOf, CriteriaAreCutAtTheirOrderEvenInsideAValue)
{
    EXPECT_EQ(splitCriteria(u"  Year > \"1\"  "_s).filter, u" (Year > \"1\") "_s);
    EXPECT_FALSE(splitCriteria(u"Year > \"1\""_s).order);
    const FilterTexts own = splitCriteria(u"Year > \"1\" oRdEr bY Year"_s);
    EXPECT_EQ(own.filter, u" (Year > \"1\") "_s);
    EXPECT_EQ(own.order, u" oRdEr bY Year"_s);
    EXPECT_EQ(splitCriteria(u"SongName = \"order by mail\""_s).filter, u" (SongName = \") "_s);
    // A letter that grows in upper case must not move the cut.
    EXPECT_EQ(splitCriteria(u"SongName = \"ßßß\" order by Year"_s).filter, u" (SongName = \"ßßß\") "_s);
}

TEST(ListTextsOf, ASortFindsTheTailBehindQuotedValues)
{
    const QString source =
        u"Select * from  tblContacts Where Artist = \"Order By \"\"x\"\"\"  order by SongName"_s;
    EXPECT_EQ(withOrder(source, u" Order By Year"_s),
              u"Select * from  tblContacts Where Artist = \"Order By \"\"x\"\"\"   Order By Year"_s);
    EXPECT_EQ(withOrder(u"Select * from  tblContacts"_s, u" Order By Year"_s),
              u"Select * from  tblContacts Order By Year"_s);
    EXPECT_EQ(sumStatement(source),
              u"SELECT Sum(FileSizeNum) AS SumOfFileSizeNum from  tblContacts Where Artist = "
              "\"Order By \"\"x\"\"\"  "_s);
}

TEST(ListTextsOf, FindLooksAtDatesOnlyForADate)
{
    const QString word = findClause(u"love"_s);
    EXPECT_EQ(word.count(" Like "_L1), 30);
    EXPECT_FALSE(word.contains(u'#'));
    const QString date = findClause(u"2020-02-01"_s);
    EXPECT_TRUE(date.contains(u"OR PurchaseDate=#2020-02-01# OR Date2=#2020-02-01# OR "_s));
    EXPECT_TRUE(date.contains(u"DateUpdated=#2020-02-01# OR Notes Like"_s));
    EXPECT_TRUE(findClause(u"say \"hi\""_s).contains(u"Like \"*say \"\"hi\"\"*\" "_s));
}

} // namespace
