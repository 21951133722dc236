// SPDX-License-Identifier: GPL-3.0-or-later
#include "SongListFixture.h"

#include <ostream>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

const QString BySongName = u" Order By SongName, Artist"_s;
const QString Keep = u"="_s;

/** What a command makes of a list that has a category, a mark clause and a hidden song. */
struct Transition
{
    const char *name;
    void (*act)(DisplayedSet &);
    QString ListSource;
    QString ListWhere;
    QString ListSelectionClause;
    QString ListCategoryClause;
    QString ListOrder;
    QString RecordSource;
    QStringList songs;
};

void PrintTo(const Transition &transition, std::ostream *out)
{
    *out << transition.name;
}

class TheTransition : public SongList, public ::testing::WithParamInterface<Transition>
{};

const QString Songs = u"tblContacts"_s;
const QString InJazz = u" CategoryNumber = 1 "_s;
const QString WhereJazz = u" Where  CategoryNumber = 1 "_s;
const QString AndHidden = u" And Selected < 'x' "_s;
const QStringList All{u"Dancing Queen"_s, u"Imagine"_s, u"Mrs & Mr"_s, u"Order By Mail"_s,
                      u"Say \"Hi\""_s,    u"SOS"_s,     u"Untitled"_s};

const Transition Transitions[] = {
    {"ShowAll",
     [](DisplayedSet &set) { set.showAll(); },
     Songs,
     {},
     {},
     {},
     Keep,
     u"Select * from  tblContacts "_s + BySongName,
     All},
    {"CategoryChosen",
     [](DisplayedSet &set) { set.categoryChosen(1, u"Jazz"_s); },
     Keep,
     WhereJazz,
     Keep,
     InJazz,
     Keep,
     u"Select * from  qryContacts Where  CategoryNumber = 1 "_s + BySongName,
     {u"Dancing Queen"_s, u"Imagine"_s}},
    {"CategoryCleared",
     [](DisplayedSet &set) { set.categoryCleared(); },
     Songs,
     {},
     Keep,
     {},
     Keep,
     u"Select * from  tblContacts"_s + BySongName,
     All},
    {"Filter",
     [](DisplayedSet &set) { EXPECT_TRUE(set.filterApplied(u"Artist = \"abba\" "_s)); },
     Keep,
     u" Where  CategoryNumber = 1  And  (Artist = \"abba\") "_s,
     Keep,
     Keep,
     Keep,
     u"Select distinctrow * from  qryContacts Where  CategoryNumber = 1  And  (Artist = \"abba\") "_s +
         BySongName,
     {u"Dancing Queen"_s}},
    {"FilterWithItsOwnOrder",
     [](DisplayedSet &set) { EXPECT_TRUE(set.filterApplied(u"Artist > \" \" ORDER BY SongName desc"_s)); },
     Keep,
     u" Where  CategoryNumber = 1  And  (Artist > \" \") "_s,
     Keep,
     Keep,
     Keep,
     u"Select distinctrow * from  qryContacts Where  CategoryNumber = 1  And  (Artist > \" \")  ORDER BY SongName desc"_s,
     {u"Imagine"_s, u"Dancing Queen"_s}},
    {"ArtistView",
     [](DisplayedSet &set) { set.showArtistSongs(); },
     Songs,
     u" Where Artist = \"John Lennon\" "_s,
     {},
     {},
     BySongName,
     u"Select * from  tblContacts Where Artist = \"John Lennon\"   "_s + BySongName,
     {u"Imagine"_s}},
    {"SelectedOnly",
     [](DisplayedSet &set) { set.selectedOnly(); },
     Keep,
     {},
     u" Where Selected = 'x' "_s,
     {},
     Keep,
     u"Select * from  tblContacts Where Selected = 'x' "_s + BySongName,
     {u"Dancing Queen"_s}},
    {"HideSelected",
     [](DisplayedSet &set) { set.hideSelected(); },
     Keep,
     Keep,
     AndHidden,
     Keep,
     Keep,
     u"Select * from  qryContacts Where  CategoryNumber = 1  And Selected < 'x' "_s + BySongName,
     {u"Imagine"_s}},
    {"RemoveMarks",
     [](DisplayedSet &set) { set.removeMarks(); },
     Keep,
     Keep,
     {},
     Keep,
     Keep,
     u"Select * from  qryContacts Where  CategoryNumber = 1 "_s + BySongName,
     {u"Dancing Queen"_s, u"Imagine"_s}},
    {"PlayListView",
     [](DisplayedSet &set) { EXPECT_TRUE(set.playListView(1, u"Party"_s)); },
     Keep,
     u" WHERE tblPlayListDetail.ListID=1 "_s,
     {},
     {},
     Keep,
     u"SELECT DISTINCTROW tblContacts.* FROM tblContacts INNER JOIN tblPlayListDetail ON "
     u"tblContacts.RecordID = "
     "tblPlayListDetail.ContactRecordID  WHERE tblPlayListDetail.ListID=1 order by tblContacts!SongName, Artist "_s,
     {u"Imagine"_s, u"SOS"_s}},
    {"Sort",
     [](DisplayedSet &set) { set.applySort(u"Album Name"_s); },
     Keep,
     Keep,
     Keep,
     Keep,
     u" Order By tblContacts!AlbumName, tblContacts!TrackNum"_s,
     u"Select * from  qryContacts Where  CategoryNumber = 1  And Selected < 'x'   Order By "
     u"tblContacts!AlbumName, "
     "tblContacts!TrackNum"_s,
     {u"Imagine"_s}},
};

TEST_P(TheTransition, ChangesTheTextsAsItsCaseSays)
{
    const Transition &expected = GetParam();
    mark(queen);
    set.categoryChosen(jazz, u"Jazz"_s);
    set.hideSelected();
    ASSERT_EQ(names(), QStringList(u"Imagine"_s));
    const ListTexts before = set.texts();

    expected.act(set);

    const auto check = [](const QString &now, const QString &was, const QString &wanted, const char *text) {
        EXPECT_EQ(now, wanted == Keep ? was : wanted) << text;
    };
    const ListTexts &now = set.texts();
    check(now.ListSource, before.ListSource, expected.ListSource, "ListSource");
    check(now.ListWhere, before.ListWhere, expected.ListWhere, "ListWhere");
    check(now.ListSelectionClause, before.ListSelectionClause, expected.ListSelectionClause,
          "ListSelectionClause");
    check(now.ListCategoryClause, before.ListCategoryClause, expected.ListCategoryClause,
          "ListCategoryClause");
    check(now.ListOrder, before.ListOrder, expected.ListOrder, "ListOrder");
    EXPECT_EQ(now.ListFilterText, QString());
    EXPECT_EQ(data().RecordSource(), expected.RecordSource);
    EXPECT_EQ(names(), expected.songs);
}

INSTANTIATE_TEST_SUITE_P(Cases, TheTransition, ::testing::ValuesIn(Transitions),
                         [](const auto &given) { return std::string(given.param.name); });

} // namespace
