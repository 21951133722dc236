// SPDX-License-Identifier: GPL-3.0-or-later
#include "MaintenanceFixture.h"

#include "maintenance/frmReplace.h"

#include <QRadioButton>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

/** One replacement over four songs. In the last two texts a bar stands between songs, and ~ for no data. */
struct Replacement
{
    const char *name;
    /** The option and its field. */
    QString option;
    QString original;
    QString replacement;
    /** The count that the question announces, and what it asks for; empty for none found. */
    QString question;
    QString before;
    QString after;
    /** What goes wrong in between, if anything does. */
    QString error{};
};

class Replacing : public Maintenance
{
protected:
    void SetUp() override { store.db().Execute(u"Delete * from tblContacts"_s); }
    void addSongs(const QString &field, const QString &values)
    {
        int place = 0;
        for (const QString &value : values.split(u'|'))
            store.addSong(Song(u"Song"_s)
                              .with(u"FileName"_s, u"a.mp3"_s)
                              .with(u"PathName"_s, u"/%1/"_s.arg(++place))
                              .with(field, value == u'~' ? QVariant() : QVariant(value)));
        set.ShowAllMenu_Click();
    }
    /** The field of all songs, after a restart. */
    QString values(const QString &field)
    {
        set.Data1().Close();
        store.reopen();
        QStringList all = store.column(u"Select "_s + field + u" From tblContacts Order By RecordID"_s);
        for (QString &value : all)
            value = value.isNull() ? u"~"_s : value;
        return all.join(u'|');
    }
    void enter(const QString &original, const QString &replacement)
    {
        retype(box(u"txtOrig"_s), original);
        retype(box(u"txtNew"_s), replacement);
    }
};

class TheReplacement : public Replacing, public ::testing::WithParamInterface<Replacement>
{};

TEST_P(TheReplacement, CountsAsksAndChangesEveryRecord)
{
    const Replacement &given = GetParam();
    const QString field = given.option.section(u' ', 1);
    addSongs(field, given.before);
    show<frmReplace>();
    press(given.option.section(u' ', 0, 0));
    enter(given.original, given.replacement);
    const bool found = !given.question.isEmpty();
    QString question = given.question + u" for every one of these records in your database?"_s;
    question.replace(u'|', u"  Are you sure you want to "_s);
    if (found)
        desktop.willAnswer(Answer::Yes, question)
            .willSee(given.error.isEmpty() ? u"Update completed.  Records changed: "_s +
                                                 given.question.section(u'.', 0, 0).mid(4)
                                           : given.error);
    else
        desktop.willSee(u"The text you specified was not found in the selected field in any records."_s);

    press(u"cmdOK"_s);

    const bool tries = given.before != given.after || !given.error.isEmpty();
    EXPECT_EQ(backups, found && tries ? 1 : 0);
    EXPECT_EQ(isOpen(), !found || !given.error.isEmpty());
    EXPECT_EQ(values(field), given.after);
}

const Replacement Replacements[] = {
    {"PartInAnyCase", u"optSongName SongName"_s, u"ABC"_s, u"x'y"_s,
     u"is: 3.|replace this part of the selected field with  x'y "_s, u"abcAbC-Abc|Zabc|none|ABCD"_s,
     u"x'yx'y-x'y|Zx'y|none|x'yD"_s},
    {"NullInAnyCaseForData", u"optNotes Notes"_s, u"abc"_s, u"nULL"_s,
     u"is: 2.|remove the data from the selected field"_s, u"abc|all the abcs there are|ab|~"_s, u"||ab|~"_s},
    {"NullForNoData", u"optGenre Genre"_s, u"Null"_s, u"Rock & Roll"_s,
     u"is: 2.|set the selected field equal to \"Rock & Roll\""_s, u"Jazz||~|null"_s,
     u"Jazz|Rock & Roll|Rock & Roll|null"_s},
    {"WildcardsFindWhatTheyDoNotReplace", u"optComposer Composer"_s, u"B?ch"_s, u"X"_s,
     u"is: 2.|replace this part of the selected field with  X "_s, u"Bach|the b?ch|Bch|~"_s,
     u"Bach|the X|Bch|~"_s},
    {"ForItself", u"optComposer Composer"_s, u"Bach"_s, u"Bach"_s,
     u"is: 2.|replace this part of the selected field with  Bach "_s, u"Bach|C. P. E. Bach|~"_s,
     u"Bach|C. P. E. Bach|~"_s},
    {"NotFound", u"optMisc2Desc MiscField2_Desc"_s, u"xyz"_s, u"X"_s, {}, u"a||~|b"_s, u"a||~|b"_s},
    {"DoubleQuotesAreDropped", u"optArtistName Artist"_s, u"\"a\" or \"\"=\""_s, u"\"b\""_s,
     u"is: 1.|replace this part of the selected field with  b "_s, u"a or =|\"a\"|or|~"_s, u"b|\"a\"|or|~"_s},
    {"TooLongInOneRecordChangesNone", u"optID ID"_s, u"1"_s, u"1234"_s,
     u"is: 3.|replace this part of the selected field with  1234 "_s, u"1|0123456789|21|3"_s,
     u"1|0123456789|21|3"_s,
     u"The field 'ID' is too small to accept the amount of data you attempted to add.\n\nSong\n/2/a.mp3\n\n"
     "Nothing was changed."_s},
    {"EqualPathsChangeNone", u"optPathName PathName"_s, u"old"_s, u"new"_s,
     u"is: 3.|replace this part of the selected field with  new "_s, u"/old/a/|/old/b/|/old/c/|/new/b/"_s,
     u"/old/a/|/old/b/|/old/c/|/new/b/"_s,
     u"the same file:\n/new/b/a.mp3\n\nThis song would come to it:\nSong\n/old/b/a.mp3\n\n"
     "This song has it already:\nSong\n/new/b/a.mp3\n\nNothing was changed."_s},
    {"PathsThatMoveOnInARow", u"optPathName PathName"_s, u"x"_s, u"xx"_s,
     u"is: 3.|replace this part of the selected field with  xx "_s, u"/x/|/xx/|/xxxx/|/y/"_s,
     u"/xx/|/xxxx/|/xxxxxxxx/|/y/"_s},
    {"PathsEmptied", u"optPathName PathName"_s, u"/a"_s, u"null"_s,
     u"is: 2.|remove the data from the selected field"_s, u"/a/|/ab/|/b/"_s, u"/a/|/ab/|/b/"_s,
     u"Nothing was changed."_s},
};

INSTANTIATE_TEST_SUITE_P(Cases, TheReplacement, ::testing::ValuesIn(Replacements),
                         [](const auto &given) { return std::string(given.param.name); });

TEST_F(Replacing, EveryOptionChangesItsOwnField)
{
    const QStringList pairs =
        u"optPathName PathName|optArtistName Artist|optSongName SongName|optComposer Composer|optNotes Notes|"
        "optMiscField1 MiscField1|optMiscField2 MiscField2|optMiscField3 MiscField3|optCode Code|"
        "optMisc1Desc MiscField1_Desc|optMisc2Desc MiscField2_Desc|optMisc3Desc MiscField3_Desc|optID ID|"
        "optGenre Genre"_s.split(u'|');
    Song song(u"ab"_s);
    for (const QString &option : pairs)
        song.with(option.section(u' ', 1), u"ab"_s);
    store.addSong(song);
    set.ShowAllMenu_Click();
    for (const QString &option : pairs) {
        show<frmReplace>();
        for (auto *other : form->findChildren<QRadioButton *>())
            EXPECT_FALSE(other->isChecked());
        press(option.section(u' ', 0, 0));
        enter(u"b"_s, u"c"_s);
        desktop.willAnswer(Answer::Yes).willSee(u"Update completed.  Records changed: 1"_s);
        press(u"cmdOK"_s);
        EXPECT_EQ(store.valueOf(u"Select "_s + option.section(u' ', 1) + u" From tblContacts"_s), u"ac"_s);
    }
}

TEST_F(Replacing, WantsAFieldAndBothTextsAndAYes)
{
    addSongs(u"Code"_s, u"abc"_s);
    show<frmReplace>();
    enter(u" abc "_s, u""_s);
    desktop.willSee(u"You must indicate which field you want to change."_s);
    press(u"cmdOK"_s);
    EXPECT_EQ(box(u"txtOrig"_s)->text(), u"abc"_s);
    press(u"optCode"_s);
    desktop.willSee(u"Both the original text and the new replacement text must be specified."_s);
    press(u"cmdOK"_s);
    enter(u"abc"_s, u"b"_s);
    desktop.willAnswer(Answer::No, u"is: 1."_s);
    press(u"cmdOK"_s);
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
    EXPECT_EQ(backups, 0);
    backupWorks = false;
    duringBackup = [this] {
        press(u"cmdOK"_s);
        form->close();
        press(u"cmdCancel"_s);
    };
    desktop.willAnswer(Answer::Yes, u"is: 1."_s);
    press(u"cmdOK"_s);
    EXPECT_EQ(backups, 1);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(values(u"Code"_s), u"abc"_s);
    press(u"cmdCancel"_s);
    EXPECT_FALSE(isOpen());
}

} // namespace
