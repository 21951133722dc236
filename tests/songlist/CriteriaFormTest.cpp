// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/CriteriaForm.h"

#include "SongListFixture.h"
#include "catalogue/Options.h"
#include "platform/store/ReadProbe.h"
#include "songlist/CriteriaEdit.h"
#include "support/UserActs.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QDir>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QThreadPool>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

/** More rows than any machine counts while a test runs. */
QString endless()
{
    QString from = u"tblContacts"_s;
    for (int i = 0; i < 25; ++i)
        from += u", tblContacts as t%1"_s.arg(i);
    return u"(Select count(*) from "_s + from + u") > 0"_s;
}

class TheFilterScreen : public SongList
{
protected:
    void SetUp() override
    {
        SongList::SetUp();
        set.ShowAllMenu_Click();
        const auto give = [this](qint64 song, const S &genre, const S &rating) {
            store.db().Execute(u"Update tblContacts Set Genre=\"%1\", Rating=\"%2\" Where RecordID=%3"_s.arg(
                genre, rating, QString::number(song)));
        };
        give(queen, u"Pop"_s, u"*****"_s);
        give(sos, u" "_s, u"****"_s);
        give(imagine, u"12\"\" Mix"_s, u"***"_s);
        addFilter(u"Abba's"_s, u"Artist = \"Abba\""_s);
        open();
    }
    void addFilter(const QVariant &name, const QVariant &criteria)
    {
        store.addRow(u"tblSettings"_s,
                     {{u"Type"_s, u"FILTER"_s}, {u"Name"_s, name}, {u"Setting8"_s, criteria}});
    }
    void open(bool tablet = false)
    {
        Options options;
        options.TabletActive = tablet;
        form = std::make_unique<CriteriaForm>(set, screen, store.settings(), store.catalogue(), desktop,
                                              options);
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    template <typename T> T &control(const S &name) { return *child<T>(*form, name); }
    bool isOn(const S &button) { return control<QPushButton>(button).isEnabled(); }
    QPlainTextEdit &text() { return control<QPlainTextEdit>(u"txtCriteria"_s); }
    S criteria() { return text().toPlainText(); }
    S state() { return control<QLabel>(u"lblCriteriaState"_s).text(); }
    void write(const S &criteria) { retype(&text(), criteria); }
    void apply(const S &criteria)
    {
        text().setPlainText(criteria);
        key(&text(), Qt::Key_Return);
    }
    QStringList listed(const S &box)
    {
        QStringList texts;
        for (int row = 0; row < control<QListWidget>(box).count(); ++row)
            texts.append(control<QListWidget>(box).item(row)->text());
        return texts;
    }
    void clickItem(const S &name, const S &item, bool twice = false)
    {
        auto &box = control<QListWidget>(name);
        const auto found = box.findItems(item, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << item.toStdString();
        box.scrollToItem(found.first());
        const QPoint place = box.visualItemRect(found.first()).center();
        QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, place);
        if (twice)
            QTest::mouseDClick(box.viewport(), Qt::LeftButton, {}, place);
    }
    void choose(const S &combo, const S &value) { control<QComboBox>(combo).setCurrentText(value); }
    bool stateBecomes(const S &part)
    {
        return QTest::qWaitFor([&] { return state().contains(part); });
    }
    QStringList kept()
    {
        return store.column(u"Select Name & '|' & Setting8 from tblSettings Where Type='FILTER'"_s);
    }

    std::unique_ptr<CriteriaForm> form;
};

TEST_F(TheFilterScreen, OffersTheFieldsThatTellSongsApartAndNothingChosen)
{
    const QStringList fields = listed(u"listFieldNames"_s);
    EXPECT_EQ(fields.first(), u"SongName"_s);
    for (const auto &left : {u"RecordID"_s, u"Selected"_s, u"TrackNum"_s, u"FileSizeNum"_s, u"Lyrics"_s,
                             u"Credits"_s, u"Date2_Desc"_s, u"PicturePath1"_s})
        EXPECT_FALSE(fields.contains(left)) << left.toStdString();
    EXPECT_TRUE(fields.contains(u"Date2"_s) && fields.contains(u"Code"_s) && fields.contains(u"Notes"_s));
    set.categoryChosen(jazz, u"Jazz"_s);
    open(true);
    EXPECT_TRUE(listed(u"listFieldNames"_s).contains(u"CategoryNumber"_s));
    EXPECT_GE(control<QPushButton>(u"cmdExit"_s).height(), 44);
    EXPECT_EQ(control<QComboBox>(u"cmbGenre"_s).currentIndex(), -1);
    for (const auto &off : {u"cmdClear"_s, u"cmdApplyCriteria"_s, u"cmdAddCriteria"_s, u"cmdRenameFilter"_s,
                            u"cmdDeleteFilter"_s})
        EXPECT_FALSE(isOn(off)) << off.toStdString();
    EXPECT_EQ(set.RecordSourceBeforeFilter(), data().RecordSource());
    desktop.willSee(u"You must supply Criteria in order to save a Filter."_s);
    click(*form, u"cmdSaveFilter"_s);
}

TEST_F(TheFilterScreen, PutsTheTextTogether)
{
    clickItem(u"listFieldNames"_s, u"Artist"_s, true);
    EXPECT_EQ(criteria(), u"Artist "_s);
    EXPECT_TRUE(text().hasFocus());
    key(&control<QListWidget>(u"listFieldNames"_s), Qt::Key_Return);
    EXPECT_EQ(criteria(), u"Artist Artist "_s);
    EXPECT_TRUE(form->isVisible());

    click(*form, u"cmdClear"_s);
    EXPECT_FALSE(isOn(u"cmdClear"_s) || isOn(u"cmdApplyCriteria"_s));
    choose(u"cmbGenre"_s, u"12\" Mix"_s);
    EXPECT_TRUE(isOn(u"cmdClear"_s));
    choose(u"cmbRating"_s, u"***"_s);
    click(*form, u"cmdAddCriteria"_s);
    EXPECT_EQ(criteria(), u" Genre = \"12\"\" Mix\" And Rating = \"***\""_s);
    EXPECT_FALSE(isOn(u"cmdAddCriteria"_s));
    EXPECT_EQ(control<QComboBox>(u"cmbRating"_s).currentText(), QString());
    EXPECT_EQ(text().textCursor().position(), criteria().size());
    click(*form, u"cmdApplyCriteria"_s);
    EXPECT_EQ(names(), QStringList(u"Imagine"_s));

    set.ShowAllMenu_Click();
    ASSERT_TRUE(data().findRecord(sos));
    open();
    write(u"Rating > \"*\""_s);
    click(*form, u"cmdCurrentAlbum"_s);
    EXPECT_EQ(criteria(), u"Rating > \"*\" And AlbumName=\"Abba\" And Artist=\"Abba\" Order By TrackNum "_s);
    click(*form, u"cmdClear"_s);
    click(*form, u"cmdCurrentAlbum"_s);
    EXPECT_EQ(criteria(), u"AlbumName=\"Abba\" And Artist=\"Abba\" Order By TrackNum "_s);
    click(*form, u"cmdApplyCriteria"_s);
    EXPECT_EQ(names(), QStringList(u"SOS"_s));
}

TEST_F(TheFilterScreen, AppliesWithinTheCategoryAndClosesForGood)
{
    set.categoryChosen(jazz, u"Jazz"_s);
    apply(u"Rating > \"**\" order by SongName desc"_s);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(names(), QStringList({u"Imagine"_s, u"Dancing Queen"_s}));
    EXPECT_TRUE(data().RecordSource().contains(
        u" Where  CategoryNumber = 1  And  (Rating > \"**\")  order by SongName desc"_s));
    open();
    EXPECT_EQ(criteria(), QString());
    click(*form, u"cmdRestore"_s);
    EXPECT_EQ(criteria(), u"Rating > \"**\" order by SongName desc"_s);
    click(*form, u"cmdShowAll"_s);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(rows(), 7);
    EXPECT_EQ(screen.gridFocuses, 1);
    open();
    write(u"half a "_s);
    key(form.get(), Qt::Key_Escape);
    EXPECT_EQ(set.LastFilterCriteria(), u"half a "_s);
}

TEST_F(TheFilterScreen, StaysOpenWhenTheTextFindsNothingOrIsWrong)
{
    const S source = data().RecordSource();
    for (const auto &wrong :
         {u"Artist = = 1"_s, u"Not Genre"_s, u"Loudness > 3"_s, u"Artist like \"[\" or (("_s, u" "_s,
          u"Artist = \"a"_s, u"100%"_s, u"a\0b"_s, u"SongName) ; Drop table x"_s}) {
        desktop.willSee(u"The criteria you specified are invalid.  Try again."_s);
        apply(wrong);
    }
    for (const auto &empty : {u"Artist = \"50%\""_s, u"Artist like \"[[]*]\""_s, u"SongName like \"?\""_s}) {
        desktop.willSee(u"No records found that meet the criteria you specified.  Try again."_s);
        apply(empty);
    }
    EXPECT_TRUE(form->isVisible() && text().hasFocus());
    EXPECT_EQ(data().RecordSource(), source);
    apply({});
    EXPECT_TRUE(form->isVisible());
    apply(u"SongName like \"*Hi\"\"\"\n or Artist=\"Abba\""_s);
    EXPECT_EQ(rows(), 3);
    // The examples on the screen run as they stand.
    store.addSong(Song(u"All you need is Love"_s, u"The Beatles"_s));
    for (const auto &[example, found] : {std::pair{u"lblRatingExample"_s, 2}, {u"lblLikeExample"_s, 1}}) {
        open();
        apply(control<QLabel>(example).text());
        EXPECT_EQ(rows(), found) << example.toStdString();
    }
}

TEST_F(TheFilterScreen, KeepsFiltersUnderAnyName)
{
    write(u"Artist = \"x'y\" "_s);
    const std::pair<S, S> names[] = {{u"It's 50% [*] \"new\" ?"_s, u"It\u00B4s 50% [*] \"new\" ?"_s},
                                     {u"No\0ne"_s, u"None"_s},
                                     {S(100, u'q') + u"''"_s, S(100, u'q')}};
    for (const auto &[typed, name] : names) {
        EXPECT_EQ(isOn(u"cmdDeleteFilter"_s), kept().size() > 1);
        desktop.willType(typed);
        if (typed.size() > 100)
            desktop.willSee(u"has been truncated to the maximum length of 100 characters."_s);
        click(*form, u"cmdSaveFilter"_s);
        EXPECT_TRUE(kept().contains(name + u"|Artist = \"x'y\" "_s)) << name.toStdString();
        clickItem(u"listFilters"_s, u"Abba's"_s);
        EXPECT_EQ(criteria(), u"Artist = \"Abba\""_s);
        clickItem(u"listFilters"_s, name);
        EXPECT_EQ(criteria(), u"Artist = \"x'y\" "_s);
    }
    data().Close();
    store.reopen();
    EXPECT_EQ(kept().size(), 4);
}

TEST_F(TheFilterScreen, ReplacesAndRenamesFilters)
{
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        write(u"Year > \"1\""_s);
        desktop.willType(u"ABBA'S"_s).willAnswer(answer, u"Replace existing Filter?"_s);
        store.db().Execute(u"Update tblSettings Set Name=\"abba\u00B4s\" Where Type='FILTER'"_s);
        click(*form, u"cmdSaveFilter"_s);
        EXPECT_EQ(kept().contains(u"ABBA\u00B4S|Year > \"1\""_s), answer == Answer::Yes);
    }
    EXPECT_EQ(listed(u"listFilters"_s), QStringList(u"ABBA\u00B4S"_s));
    clickItem(u"listFilters"_s, u"ABBA\u00B4S"_s);
    desktop.willType(S(51, u'r')).willSee(u"maximum length of 50 characters."_s);
    click(*form, u"cmdRenameFilter"_s);
    EXPECT_EQ(kept(), QStringList(S(50, u'r') + u"|Year > \"1\""_s));
    desktop.willType({});
    click(*form, u"cmdRenameFilter"_s);
    addFilter(u"Other"_s, u"x"_s);
    desktop.willType(u"OTHER"_s).willSee(u"There is another Filter of this name."_s);
    click(*form, u"cmdRenameFilter"_s);
    desktop.willType(S(50, u'R'));
    click(*form, u"cmdRenameFilter"_s);
    EXPECT_TRUE(kept().contains(S(50, u'R') + u"|Year > \"1\""_s)) << "its own name in other letters";
    desktop.willType(S(50, u'r'));
    click(*form, u"cmdRenameFilter"_s);
    store.db().Execute(u"Delete * from tblSettings Where Name='Other'"_s);
    open();
    EXPECT_EQ(listed(u"listFilters"_s), QStringList(S(50, u'r')));
}

TEST_F(TheFilterScreen, DeletesTheSelectedFilterOnly)
{
    clickItem(u"listFilters"_s, u"Abba's"_s);
    desktop.willAnswer(Answer::No, u"Are you sure you want to delete filter: Abba's?"_s);
    click(*form, u"cmdDeleteFilter"_s);
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
    EXPECT_EQ(kept().size(), 1);
    desktop.willAnswer(Answer::Yes);
    click(*form, u"cmdDeleteFilter"_s);
    EXPECT_EQ(kept(), QStringList());
    desktop.willSee(u"You must select a previously saved Filter to delete."_s);
    click(*form, u"cmdDeleteFilter"_s);
    desktop.willSee(u"You must select a Filter to rename."_s);
    click(*form, u"cmdRenameFilter"_s);
    EXPECT_TRUE(control<QListWidget>(u"listFilters"_s).hasFocus());
}

TEST_F(TheFilterScreen, SurvivesDamagedFiltersAndFailedSaves)
{
    addFilter({}, u"nameless"_s);
    addFilter(u""_s, {});
    addFilter(u"empty"_s, {});
    addFilter(u"huge"_s, S(2'000'000, u'x'));
    open();
    clickItem(u"listFilters"_s, u"Abba's"_s);
    clickItem(u"listFilters"_s, u"huge"_s);
    EXPECT_EQ(criteria(), S());
    EXPECT_EQ(state(), u"The filter \"huge\" is too long.  Criteria can be up to 200,000 characters long."_s);
    write(u"x"_s);
    QGuiApplication::clipboard()->setText(S(LongestCriteria, u'y'));
    desktop.willSee(u"would be put in is too long."_s);
    text().paste();
    store.db().Execute(u"Delete * from tblSettings Where Name='huge'"_s);
    open();
    EXPECT_EQ(listed(u"listFilters"_s), QStringList({u"Abba's"_s, u"empty"_s}));
    write(u"x"_s);
    clickItem(u"listFilters"_s, u"empty"_s);
    EXPECT_EQ(criteria(), QString());
    EXPECT_FALSE(isOn(u"cmdApplyCriteria"_s));
    write(u"x"_s);
    const S file = store.catalogue().DatabaseFile;
    ASSERT_TRUE(QFile::rename(file, file + u".away"_s));
    desktop.willType(u"lost"_s).willSee(u"Could not find file"_s);
    click(*form, u"cmdSaveFilter"_s);
    desktop.willType(u"lost"_s).willSee(u"Could not find file"_s);
    click(*form, u"cmdRenameFilter"_s);
    ASSERT_TRUE(QFile::rename(file + u".away"_s, file));
    EXPECT_EQ(listed(u"listFilters"_s), QStringList({u"Abba's"_s, u"empty"_s}));
    EXPECT_EQ(kept().size(), 4);
}

TEST_F(TheFilterScreen, SaysHowManySongsWouldBeShown)
{
    set.categoryChosen(jazz, u"Jazz"_s);
    const std::pair<S, S> texts[] = {
        {u"Artist like \"*\""_s, u"2 songs would be shown."_s},
        {u"SongName = \"imagine\" order by Year"_s, u"1 song would be shown."_s},
        {u"Artist = \"zz\""_s, u"0 songs would be shown."_s},
        {u"  Artist = = 1"_s, u"at character 12, near '= 1'"_s},
        {u"Artist = \"a"_s, u"Syntax error in string in query expression at character 10, near '\"a'."_s},
        {u"Loudness > 3"_s, u"There is no field named 'Loudness'."_s},
        {u"Artist > \"a\" order by"_s, u"Syntax error in the order of the criteria."_s},
        {u"ID "_s, u"(missing comparison) in query expression at character 1, behind 'ID'."_s},
        {u"Year > \"1\" And (Genre)"_s, u"behind 'Genre'."_s},
        {u"Artist > \"a\";"_s, u"Syntax error in the criteria."_s},
    };
    for (const auto &[typed, said] : texts) {
        write(typed);
        EXPECT_EQ(state(), QString());
        EXPECT_TRUE(stateBecomes(said)) << typed.toStdString() << ": " << state().toStdString();
    }
    EXPECT_THROW((void)store.db().probe()->count(u"Delete * from tblContacts"_s, {}), dao::DaoError);
    dao::Transaction adding(store.db().workspace());
    for (int i = 0; i < 1000; ++i)
        store.addSong(Song(u"Copy"_s));
    adding.commit();
    set.ShowAllMenu_Click();
    write(u"SongName = \"copy\" or Artist = \"Abba\""_s);
    EXPECT_TRUE(stateBecomes(QLocale(QLocale::English).toString(1002)));
}

TEST_F(TheFilterScreen, NeverWaitsForACount)
{
    const auto *thread = form->findChild<QThreadPool *>();
    write(endless());
    ASSERT_TRUE(QTest::qWaitFor([&] { return thread->activeThreadCount() == 1; }));
    write(u"Artist = \"Abba\""_s);
    EXPECT_TRUE(stateBecomes(u"2 songs would be shown."_s));
    // Applied, it is waited for in a window that the user can close.
    const S source = data().RecordSource();
    desktop.atEvents(desktop.eventsRun() + 3, [this] {
        EXPECT_TRUE(desktop.isHourglassOn());
        form->reject();
        click(*form, u"cmdApplyCriteria"_s);
        desktop.closeWorkingForm();
    });
    apply(endless());
    EXPECT_TRUE(form->isVisible() && text().hasFocus());
    EXPECT_EQ(data().RecordSource(), source);
    text().setPlainText(endless());
    ASSERT_TRUE(QTest::qWaitFor([&] { return thread->activeThreadCount() == 1; }));
    form.reset();
    data().Close();
    store.close();
    EXPECT_EQ(QDir(store.folder()).entryList(QDir::Files), QStringList(u"QVdata.mdb"_s));
    store.open();
    EXPECT_EQ(store.valueOf(u"Select count(*) from tblContacts"_s).toInt(), 7);
}

} // namespace
