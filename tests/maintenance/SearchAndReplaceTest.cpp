// SPDX-License-Identifier: GPL-3.0-or-later
#include "MaintenanceFixture.h"

#include "maintenance/frmReplace.h"
#include "support/UserActs.h"

#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>

#include <ostream>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

/** One replacement over four songs whose field holds what `before` says, a null text being no data. */
struct Replacement
{
    const char *name;
    QString option, field, original, replacement;
    /** How many records the question announces; 0 for none found. */
    int announced;
    QString question;
    QStringList before, after;
    /** What goes wrong in between, if anything does. */
    QString error{};
};

void PrintTo(const Replacement &given, std::ostream *out)
{
    *out << given.name;
}

class Replacing : public Maintenance
{
protected:
    void SetUp() override { store.db().Execute(u"Delete * from tblContacts"_s); }
    void addSongs(const QString &field, const QStringList &values)
    {
        for (int i = 0; i < values.size(); ++i)
            store.addSong(Song(u"Song %1"_s.arg(i))
                              .with(u"FileName"_s, u"a.mp3"_s)
                              .with(u"PathName"_s, u"/%1/"_s.arg(i))
                              .with(field, values[i].isNull() ? QVariant() : QVariant(values[i])));
        set.showAll();
    }
    /** The field of all songs; no data is a null text. */
    QStringList values(const QString &field)
    {
        store.reopen();
        return store.column(u"Select "_s + field + u" From tblContacts Order By RecordID"_s);
    }
    void show()
    {
        form = new frmReplace(parts);
        form->showModally();
    }
    ~Replacing() override { delete form.data(); }
    void enter(const QString &original, const QString &replacement)
    {
        retype(child<QLineEdit>(*form, u"txtOrig"_s), original);
        retype(child<QLineEdit>(*form, u"txtNew"_s), replacement);
    }

    QPointer<frmReplace> form;
};

class TheReplacement : public Replacing, public ::testing::WithParamInterface<Replacement>
{};

TEST_P(TheReplacement, CountsAsksAndChangesEveryRecord)
{
    const Replacement &given = GetParam();
    addSongs(given.field, given.before);
    show();
    click(*form, given.option);
    enter(given.original, given.replacement);
    if (given.announced == 0)
        desktop.willSee(u"The text you specified was not found in the selected field in any records."_s);
    else
        desktop.willAnswer(Answer::Yes, u"is: %1.  Are you sure you want to "_s.arg(given.announced) +
                                            given.question +
                                            u" for every one of these records in your database?"_s);
    if (given.announced > 0)
        desktop.willSee(given.error.isEmpty() ? u"Update completed."_s : given.error);

    click(*form, u"cmdOK"_s);

    EXPECT_EQ(backups, given.announced > 0 ? 1 : 0);
    EXPECT_EQ(form->isVisible(), given.announced == 0 || !given.error.isEmpty());
    set.Data1().Close();
    QStringList after = values(given.field);
    EXPECT_EQ(after, given.after);
}

const QString Ten = u"0123456789"_s;

const Replacement Replacements[] = {
    {"PartInAnyCase",
     u"optSongName"_s,
     u"SongName"_s,
     u"ABC"_s,
     u"x'y"_s,
     3,
     u"replace this part of the selected field with  x'y "_s,
     {u"abcAbC-Abc"_s, u"Zabc"_s, u"none"_s, u"ABCD"_s},
     {u"x'yx'y-x'y"_s, u"Zx'y"_s, u"none"_s, u"x'yD"_s}},
    {"NullInAnyCaseForData",
     u"optNotes"_s,
     u"Notes"_s,
     u"abc"_s,
     u"nULL"_s,
     2,
     u"remove the data from the selected field"_s,
     {u"abc"_s, u"all the abcs there are"_s, u"ab"_s, {}},
     {u""_s, u""_s, u"ab"_s, {}}},
    {"NullForNoData",
     u"optGenre"_s,
     u"Genre"_s,
     u"Null"_s,
     u"Rock & Roll"_s,
     2,
     u"set the selected field equal to \"Rock & Roll\""_s,
     {u"Jazz"_s, u""_s, {}, u"null"_s},
     {u"Jazz"_s, u"Rock & Roll"_s, u"Rock & Roll"_s, u"null"_s}},
    {"NullForNull",
     u"optCode"_s,
     u"Code"_s,
     u"NULL"_s,
     u"null"_s,
     2,
     u"set the selected field equal to \"null\""_s,
     {{}, u""_s, u"c"_s, u"d"_s},
     {u""_s, u""_s, u"c"_s, u"d"_s}},
    {"WildcardsFindWhatTheyDoNotReplace",
     u"optComposer"_s,
     u"Composer"_s,
     u"B?ch"_s,
     u"X"_s,
     2,
     u"replace this part of the selected field with  X "_s,
     {u"Bach"_s, u"the b?ch"_s, u"Bch"_s, {}},
     {u"Bach"_s, u"the X"_s, u"Bch"_s, {}}},
    {"NotFound",
     u"optMisc2Desc"_s,
     u"MiscField2_Desc"_s,
     u"xyz"_s,
     u"X"_s,
     0,
     {},
     {u"a"_s, u""_s, {}, u"b"_s},
     {u"a"_s, u""_s, {}, u"b"_s}},
    {"DoubleQuotesAreDropped",
     u"optArtistName"_s,
     u"Artist"_s,
     u"\"a\" or \"\"=\""_s,
     u"\"b\""_s,
     1,
     u"replace this part of the selected field with  b "_s,
     {u"a or ="_s, u"\"a\""_s, u"or"_s, {}},
     {u"b"_s, u"\"a\""_s, u"or"_s, {}}},
    {"TooLongInOneRecordKeepsThoseBefore",
     u"optID"_s,
     u"ID"_s,
     u"1"_s,
     u"1234"_s,
     3,
     u"replace this part of the selected field with  1234 "_s,
     {u"1"_s, u"0123456789"_s, u"21"_s, u"3"_s},
     {u"1234"_s, u"0123456789"_s, u"21"_s, u"3"_s},
     u"The field 'ID' is too small"_s},
    {"TooLongForNoData",
     u"optID"_s,
     u"ID"_s,
     u"null"_s,
     u"12345678901"_s,
     1,
     u"set the selected field equal to \"12345678901\""_s,
     {u"1"_s, {}, u"2"_s, u"3"_s},
     {u"1"_s, {}, u"2"_s, u"3"_s},
     u"The field 'ID' is too small"_s},
    {"EqualPathsKeepThoseBefore",
     u"optPathName"_s,
     u"PathName"_s,
     u"old"_s,
     u"new"_s,
     3,
     u"replace this part of the selected field with  new "_s,
     {u"/old/a/"_s, u"/old/b/"_s, u"/old/c/"_s, u"/new/b/"_s},
     {u"/new/a/"_s, u"/old/b/"_s, u"/old/c/"_s, u"/new/b/"_s},
     u"duplicate"_s},
};

INSTANTIATE_TEST_SUITE_P(Cases, TheReplacement, ::testing::ValuesIn(Replacements),
                         [](const auto &given) { return std::string(given.param.name); });

TEST_F(Replacing, EveryOptionChangesItsOwnField)
{
    static const QStringList Options{u"optPathName PathName"_s,
                                     u"optArtistName Artist"_s,
                                     u"optSongName SongName"_s,
                                     u"optComposer Composer"_s,
                                     u"optNotes Notes"_s,
                                     u"optMiscField1 MiscField1"_s,
                                     u"optMiscField2 MiscField2"_s,
                                     u"optMiscField3 MiscField3"_s,
                                     u"optCode Code"_s,
                                     u"optMisc1Desc MiscField1_Desc"_s,
                                     u"optMisc2Desc MiscField2_Desc"_s,
                                     u"optMisc3Desc MiscField3_Desc"_s,
                                     u"optID ID"_s,
                                     u"optGenre Genre"_s};
    Song song(u"ab"_s);
    for (const QString &option : Options)
        song.with(option.section(u' ', 1), u"ab"_s);
    store.addSong(song);
    set.showAll();
    for (const QString &option : Options) {
        show();
        for (auto *other : form->findChildren<QRadioButton *>())
            EXPECT_FALSE(other->isChecked());
        click(*form, option.section(u' ', 0, 0));
        enter(u"b"_s, u"c"_s);
        desktop.willAnswer(Answer::Yes).willSee(u"Update completed."_s);
        click(*form, u"cmdOK"_s);
        EXPECT_EQ(store.valueOf(u"Select "_s + option.section(u' ', 1) + u" From tblContacts"_s), u"ac"_s);
    }
}

TEST_F(Replacing, WantsAFieldAndBothTextsAndAYes)
{
    addSongs(u"Code"_s, {u"abc"_s});
    show();
    enter(u" abc "_s, u""_s);
    desktop.willSee(u"You must indicate which field you want to change."_s);
    click(*form, u"cmdOK"_s);
    EXPECT_EQ(child<QLineEdit>(*form, u"txtOrig"_s)->text(), u"abc"_s);
    click(*form, u"optCode"_s);
    desktop.willSee(u"Both the original text and the new replacement text must be specified."_s);
    click(*form, u"cmdOK"_s);
    enter(u"abc"_s, u"b"_s);
    desktop.willAnswer(Answer::No, u"is: 1."_s);
    click(*form, u"cmdOK"_s);
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
    EXPECT_EQ(backups, 0);
    backupWorks = false;
    duringBackup = [this] {
        click(*form, u"cmdOK"_s);
        form->close();
        click(*form, u"cmdCancel"_s);
    };
    desktop.willAnswer(Answer::Yes, u"is: 1."_s);
    click(*form, u"cmdOK"_s);
    EXPECT_EQ(backups, 1);
    EXPECT_EQ(values(u"Code"_s), QStringList(u"abc"_s));
    click(*form, u"cmdCancel"_s);
    EXPECT_FALSE(form && form->isVisible());
}

} // namespace
