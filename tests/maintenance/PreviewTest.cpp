// SPDX-License-Identifier: GPL-3.0-or-later
#include "MaintenanceFixture.h"

#include "catalogue/DuplicateQueries.h"
#include "maintenance/DuplicateCommands.h"
#include "maintenance/frmChangeFilePath.h"
#include "maintenance/frmReplace.h"
#include "platform/store/History.h"
#include "support/Limits.h"

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

/** A user who looks at what would change before it is done. */
class Looking : public Maintenance
{
protected:
    using Act = std::function<void(QWidget &)>;

    /** The songs' only field that matters here, from the first song on. */
    void songsWith(const QString &field, const QStringList &values)
    {
        store.db().Execute(u"Delete * from tblContacts"_s);
        int number = 0;
        for (const QString &value : values) {
            ++number;
            store.addSong(
                Song(u"Song %1"_s.arg(number)).file(u"/%1/"_s.arg(number), u"a.mp3"_s).with(field, value));
        }
        set.ShowAllMenu_Click();
        store.db().endChange();
    }
    QString values(const QString &field)
    {
        return store.column(u"Select "_s + field + u" From tblContacts Order By RecordID"_s).join(u'|');
    }
    void replace(const QString &option, const QString &original, const QString &replacement)
    {
        show<frmReplace>();
        press(option);
        retype(box(u"txtOrig"_s), original);
        retype(box(u"txtNew"_s), replacement);
        press(u"cmdOK"_s);
    }
    /** The box is asked for the preview, and @p act acts on that. */
    void willLook(const Act &act, const QString &box = {})
    {
        desktop.willAnswer(Answer::More, box).willPreview(act);
    }
    static void expect(const QWidget &preview, const QStringList &rows) { EXPECT_EQ(rowsOf(preview), rows); }
    void takeBack()
    {
        store.db().endChange();
        dao::History history(store.db());
        EXPECT_TRUE(history.takeBack(*history.undoable()).empty());
    }
};

TEST_F(Looking, AReplacementIsShownUntickedMadeAndTakenBack)
{
    songsWith(u"Genre"_s, {u"Rok"_s, u"rok and rok"_s, u"Pop"_s, u"rok"_s});
    const QStringList rows{u"x Song 1 | Genre | Rok | Rock"_s,
                           u"x Song 2 | Genre | rok and rok | Rock and Rock"_s,
                           u"x Song 4 | Genre | rok | Rock"_s};
    willLook([&](QWidget &preview) {
        expect(preview, rows);
        EXPECT_EQ(child<QLabel>(preview, u"lblSentence"_s)->text(),
                  u"Replace \"rok\" by \"Rock\" in Genre"_s);
        click(preview, u"cmdNone"_s);
        EXPECT_FALSE(child<QPushButton>(preview, u"cmdGoOn"_s)->isEnabled());
        click(preview, u"cmdAll"_s);
        click(preview, u"cmdGiveUp"_s);
    });
    replace(u"optGenre"_s, u"rok"_s, u"Rock"_s);
    EXPECT_EQ(values(u"Genre"_s), u"Rok|rok and rok|Pop|rok"_s);
    EXPECT_EQ(backups, 0);
    EXPECT_TRUE(dao::History(store.db()).changes().front().sentence.isEmpty()) << "nothing was kept";

    std::optional<FullDisk> full;
    duringBackup = [&] { full.emplace(1); };
    willLook([](QWidget &preview) {
        tickRow(preview, 0);
        click(preview, u"cmdGoOn"_s);
    });
    desktop.willSee(u"Nothing was changed."_s).meanwhile([&] { full.reset(); });
    press(u"cmdOK"_s);
    EXPECT_EQ(values(u"Genre"_s), u"Rok|rok and rok|Pop|rok"_s);
    duringBackup = [] {};

    willLook([&](QWidget &preview) {
        tickRow(preview, 1);
        EXPECT_EQ(child<QLabel>(preview, u"lblTicked"_s)->text(), u"2 of 3 ticked"_s);
        // The song is looked at in the grid behind.
        click(preview, u"cmdShowSong"_s);
        EXPECT_EQ(current(), u"Song 2"_s);
        click(preview, u"cmdGoOn"_s);
    });
    desktop.willSee(u"Records changed: 2"_s);
    press(u"cmdOK"_s);
    EXPECT_EQ(values(u"Genre"_s), u"Rock|rok and rok|Pop|Rock"_s);
    takeBack();
    EXPECT_EQ(values(u"Genre"_s), u"Rok|rok and rok|Pop|rok"_s);
}

TEST_F(Looking, WhatCantBeReplacedIsShownFirstAndLeftOut)
{
    songsWith(u"ID"_s, {u"1"_s, u"0123456789"_s, u"21"_s});
    willLook([&](QWidget &preview) {
        expect(preview, {u"- Song 2 | ID | 0123456789 | Too long for this field: 0123423456789"_s,
                         u"x Song 1 | ID | 1 | 1234"_s, u"x Song 3 | ID | 21 | 21234"_s});
        click(preview, u"optObstructed"_s);
        EXPECT_EQ(rowsOf(preview).size(), 1);
        tickRow(preview, 0);
        click(preview, u"optPossible"_s);
        EXPECT_EQ(rowsOf(preview).size(), 2);
        click(preview, u"cmdGoOn"_s);
    });
    desktop.willSee(u"Records changed: 2"_s);
    replace(u"optID"_s, u"1"_s, u"1234"_s);
    EXPECT_EQ(values(u"ID"_s), u"1234|0123456789|21234"_s);
}

TEST_F(Looking, TwoSongsAtOneFileAreFoundBeforeTheStart)
{
    songsWith(u"PathName"_s, {u"/old/a/"_s, u"/old/b/"_s, u"/new/b/"_s, u"/oldnew/"_s, u"/newnew/"_s});
    willLook([&](QWidget &preview) {
        // The last one but one would come to where the last one stays.
        expect(preview, {u"- Song 2 | Path Name | /old/b/ | Another song has this file: /new/b/a.mp3"_s,
                         u"- Song 4 | Path Name | /oldnew/ | Another song has this file: /newnew/a.mp3"_s,
                         u"x Song 1 | Path Name | /old/a/ | /new/a/"_s});
        click(preview, u"cmdGoOn"_s);
    });
    desktop.willSee(u"Records changed: 1"_s);
    replace(u"optPathName"_s, u"old"_s, u"new"_s);
    EXPECT_EQ(values(u"PathName"_s), u"/new/a/|/old/b/|/new/b/|/oldnew/|/newnew/"_s);

    songsWith(u"PathName"_s, {u"/x/"_s, u"/xx/"_s});
    desktop.willAnswer(Answer::More).willPreview([&](QWidget &preview) {
        tickRow(preview, 1);
        click(preview, u"cmdGoOn"_s);
        EXPECT_TRUE(preview.isVisible()) << "the song that is not ticked stands in the way";
        tickRow(preview, 1);
        click(preview, u"cmdGoOn"_s);
    });
    desktop.willSee(u"since one of them is not ticked and stays where it is:\n/xx/a.mp3"_s);
    desktop.willSee(u"Records changed: 2"_s);
    replace(u"optPathName"_s, u"x"_s, u"xx"_s);
    EXPECT_EQ(values(u"PathName"_s), u"/xx/|/xxxx/"_s);
}

TEST_F(Looking, PlacesChangeForTheTickedSongsAndTracks)
{
    songsWith(u"Genre"_s, {u"a"_s, u"b"_s});
    store.db().Execute(u"Update tblContacts Set PathName = '/old/' & Genre & '/'"_s);
    store.db().Execute(u"Delete * from tblPlayListDetail"_s);
    for (const QString &file : {u"/old/a/a.mp3"_s, u"/old/b/a.mp3"_s})
        store.addRow(u"tblPlayListDetail"_s,
                     {{u"ListID"_s, 1}, {u"SongTitle"_s, file.right(7)}, {u"FileName"_s, file}});
    show<frmChangeFilePath>();
    retype(box(u"txtOrigPath"_s), u"/old/"_s);
    retype(box(u"txtNewPath"_s), store.folder());
    const QString there = store.folder();
    willLook([&](QWidget &preview) {
        expect(preview, {u"x Song 1 | Path Name | /old/a/ | %1a/"_s.arg(there),
                         u"x Song 2 | Path Name | /old/b/ | %1b/"_s.arg(there),
                         u"x a/a.mp3 | File of a play list | /old/a/a.mp3 | %1a/a.mp3"_s.arg(there),
                         u"x b/a.mp3 | File of a play list | /old/b/a.mp3 | %1b/a.mp3"_s.arg(there)});
        tickRow(preview, 0);
        tickRow(preview, 3);
        click(preview, u"cmdGoOn"_s);
    });
    desktop.willSee(u"replacements made: 2"_s);
    press(u"OKButton"_s);
    EXPECT_EQ(values(u"PathName"_s), u"/old/a/|%1b/"_s.arg(there));
    EXPECT_EQ(store.column(u"Select FileName From tblPlayListDetail"_s),
              (QStringList{there + u"a/a.mp3"_s, u"/old/b/a.mp3"_s}));
}

TEST_F(Looking, OnlyTheTickedSongsAreDeleted)
{
    store.db().endChange();
    willLook([&](QWidget &preview) {
        EXPECT_EQ(rowsOf(preview).size(), 7);
        EXPECT_TRUE(rowsOf(preview).contains(u"x SOS, by Abba | Song |  | Deleted"_s));
        click(preview, u"cmdNone"_s);
        tickRow(preview, static_cast<int>(rowsOf(preview).indexOf(u"- SOS, by Abba | Song |  | Stays"_s)));
        click(preview, u"cmdGoOn"_s);
    });
    desktop.willAnswer(Answer::Yes, u"About to DELETE 1 record."_s).willSee(u"Records Deleted."_s);
    many.mnuDeleteDisplayed_Click();
    EXPECT_EQ(songs(), QStringList(u"1 3 4 5 6 7"_s.split(u' ')));
    takeBack();
    EXPECT_EQ(songs().size(), 7);
}

TEST_F(Looking, OfDuplicatesTheOneStaysThatTheRuleOrTheUserChooses)
{
    ensureDuplicateQueries(store.db());
    const auto add = [this](const QString &file, const QString &bitRate, const QString &rating) {
        return store.addSong(Song(u"Twin"_s, u"Pair"_s)
                                 .with(u"FileSize"_s, u"4 MB"_s)
                                 .file(u"/m/"_s, file)
                                 .with(u"Bitrate"_s, bitRate)
                                 .with(u"Rating"_s, rating));
    };
    const qint64 first = add(u"Twin (1).mp3"_s, u"128 kbps"_s, {});
    const qint64 second = add(u"Twin.mp3"_s, u"320 kbps"_s, {});
    const qint64 third = add(u"Twin (2).mp3"_s, u"192 kbps"_s, u"***"_s);
    DuplicateCommands commands(parts);
    const QString files[] = {u"Group 1, 128 kbps | /m/Twin (1).mp3"_s, u"Group 1, 320 kbps | /m/Twin.mp3"_s,
                             u"Group 1, 192 kbps, rated | /m/Twin (2).mp3"_s};
    const auto shownStaying = [&](const QWidget &preview, int stays) {
        QStringList rows;
        for (int row = 0; row < 3; ++row)
            rows += (row == stays ? u"- "_s : u"x "_s) + u"Twin, by Pair | "_s + files[row] +
                    (row == stays ? u" | Stays"_s : u" | Deleted"_s);
        expect(preview, rows);
    };
    willLook([&](QWidget &preview) {
        shownStaying(preview, 0);
        auto *rule = child<QComboBox>(preview, u"cmbRule"_s);
        const int staying[] = {0, 1, 1, 2, 0};
        for (int i = 0; i < 5; ++i) {
            rule->setCurrentIndex(i);
            Q_EMIT rule->activated(i);
            shownStaying(preview, staying[i]);
        }
        click(preview, u"cmdAll"_s);
        click(preview, u"cmdGoOn"_s);
        EXPECT_TRUE(preview.isVisible()) << "none would be left";
        tickRow(preview, 1);
        shownStaying(preview, 1);
        click(preview, u"cmdGoOn"_s);
    });
    desktop.willSee(u"none of them would be left.  Untick the one that stays:\n\nGroup 1: Twin, by Pair"_s)
        .willSee(u"2 Duplicates Deleted"_s);
    commands.mnuDeleteDuplicates_Click();
    EXPECT_FALSE(songs().contains(QString::number(first)));
    EXPECT_TRUE(songs().contains(QString::number(second)));
    EXPECT_FALSE(songs().contains(QString::number(third)));
}

} // namespace
