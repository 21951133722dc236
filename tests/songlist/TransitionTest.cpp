// SPDX-License-Identifier: GPL-3.0-or-later
#include "SongListFixture.h"

#include <array>
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
    /** ListSource, ListWhere, ListSelectionClause, ListCategoryClause and ListOrder. */
    std::array<QString, 5> texts;
    QString RecordSource;
    QStringList songs;
    void (*act)(DisplayedSet &);
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

std::array<QString, 5> textsOf(const DisplayedSet &set)
{
    const ListTexts &texts = set.texts();
    return {texts.ListSource, texts.ListWhere, texts.ListSelectionClause, texts.ListCategoryClause,
            texts.ListOrder};
}

const Transition Transitions[] = {
    {"ShowAll",
     {Songs, {}, {}, {}, Keep},
     u"Select * from  tblContacts "_s + BySongName,
     All,
     [](DisplayedSet &set) { set.ShowAllMenu_Click(); }},
    {"CategoryChosen",
     {Keep, WhereJazz, Keep, InJazz, Keep},
     u"Select * from  qryContacts Where  CategoryNumber = 1 "_s + BySongName,
     {u"Dancing Queen"_s, u"Imagine"_s},
     [](DisplayedSet &set) { set.categoryChosen(1, u"Jazz"_s); }},
    {"CategoryCleared",
     {Songs, {}, Keep, {}, Keep},
     u"Select * from  tblContacts"_s + BySongName,
     All,
     [](DisplayedSet &set) { set.categoryCleared(); }},
    {"Filter",
     {Keep, u" Where  CategoryNumber = 1  And  (Artist = \"abba\") "_s, Keep, Keep, Keep},
     u"Select distinctrow * from  qryContacts Where  CategoryNumber = 1  And  (Artist = \"abba\") "_s +
         BySongName,
     {u"Dancing Queen"_s},
     [](DisplayedSet &set) { EXPECT_TRUE(set.filterApplied(u"Artist = \"abba\" "_s)); }},
    {"FilterWithItsOwnOrder",
     {Keep, u" Where  CategoryNumber = 1  And  (Artist > \" \") "_s, Keep, Keep, Keep},
     u"Select distinctrow * from  qryContacts Where  CategoryNumber = 1  And  (Artist > \" \")  ORDER BY SongName desc"_s,
     {u"Imagine"_s, u"Dancing Queen"_s},
     [](DisplayedSet &set) { EXPECT_TRUE(set.filterApplied(u"Artist > \" \" ORDER BY SongName desc"_s)); }},
    {"ArtistView",
     {Songs, u" Where Artist = \"John Lennon\" "_s, {}, {}, BySongName},
     u"Select * from  tblContacts Where Artist = \"John Lennon\"   "_s + BySongName,
     {u"Imagine"_s},
     [](DisplayedSet &set) { set.cmdShowArtistSongs_Click(); }},
    {"SelectedOnly",
     {Keep, {}, u" Where Selected = 'x' "_s, {}, Keep},
     u"Select * from  tblContacts Where Selected = 'x' "_s + BySongName,
     {u"Dancing Queen"_s},
     [](DisplayedSet &set) { set.ShowSelectedOnlyMenu_Click(); }},
    {"HideSelected",
     {Keep, Keep, AndHidden, Keep, Keep},
     u"Select * from  qryContacts Where  CategoryNumber = 1  And Selected < 'x' "_s + BySongName,
     {u"Imagine"_s},
     [](DisplayedSet &set) { set.HideSelectedMenu_Click(); }},
    {"RemoveMarks",
     {Keep, Keep, {}, Keep, Keep},
     u"Select * from  qryContacts Where  CategoryNumber = 1 "_s + BySongName,
     {u"Dancing Queen"_s, u"Imagine"_s},
     [](DisplayedSet &set) { set.RemoveSelectionsMenu_Click(); }},
    {"PlayListView",
     {Keep, u" WHERE tblPlayListDetail.ListID=1 "_s, {}, {}, Keep},
     u"SELECT DISTINCTROW tblContacts.* FROM tblContacts INNER JOIN tblPlayListDetail ON "
     u"tblContacts.RecordID = "
     "tblPlayListDetail.ContactRecordID  WHERE tblPlayListDetail.ListID=1 order by tblContacts!SongName, Artist "_s,
     {u"Imagine"_s, u"SOS"_s},
     [](DisplayedSet &set) { EXPECT_TRUE(set.playListView(1, u"Party"_s)); }},
    {"Sort",
     {Keep, Keep, Keep, Keep, u" Order By tblContacts!AlbumName, tblContacts!TrackNum"_s},
     u"Select * from  qryContacts Where  CategoryNumber = 1  And Selected < 'x'   Order By "
     u"tblContacts!AlbumName, "
     "tblContacts!TrackNum"_s,
     {u"Imagine"_s},
     [](DisplayedSet &set) { set.applySort(u"Album Name"_s); }},
};

TEST_P(TheTransition, ChangesTheTextsAsItsCaseSays)
{
    const Transition &expected = GetParam();
    mark(queen);
    set.categoryChosen(jazz, u"Jazz"_s);
    set.HideSelectedMenu_Click();
    ASSERT_EQ(names(), QStringList(u"Imagine"_s));
    const auto before = textsOf(set);

    expected.act(set);

    const auto now = textsOf(set);
    for (std::size_t i = 0; i < now.size(); ++i)
        EXPECT_EQ(now[i], expected.texts[i] == Keep ? before[i] : expected.texts[i]) << "text " << i;
    EXPECT_EQ(set.texts().ListFilterText, QString());
    EXPECT_EQ(data().RecordSource(), expected.RecordSource);
    EXPECT_EQ(names(), expected.songs);
}

INSTANTIATE_TEST_SUITE_P(Cases, TheTransition, ::testing::ValuesIn(Transitions),
                         [](const auto &given) { return std::string(given.param.name); });

} // namespace
