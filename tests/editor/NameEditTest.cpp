// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/EditorFields.h"
#include "editor/EditorFixture.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

class TheEditor : public EditorTest
{
protected:
    void SetUp() override
    {
        arrival = song(u"Arrival"_s);
        sos = song(u"SOS"_s);
        waterloo = song(u"Waterloo"_s);
    }
    qint64 arrival = 0, sos = 0, waterloo = 0;
};

TEST_F(TheEditor, ShowsARecordAndAsksBeforeChangesAreLost)
{
    store.db().Execute(u"Update tblContacts Set Genre='Pop', Rating='****', PurchaseDate=#2020-03-04#, "
                       "MiscField2_Desc='Lent to', Notes='One' Where RecordID="_s +
                       QString::number(sos));
    QString tagged;
    hooks.editTags = [&](NameEdit &, const QString &path) { tagged = path; };
    edit(sos);
    EXPECT_EQ(form->windowTitle(), u"View/Edit an Existing Record"_s);
    EXPECT_EQ(shown(u"txtSongName"_s), u"SOS"_s);
    EXPECT_EQ(shown(u"cmbGenre"_s), u"Pop"_s);
    EXPECT_EQ(shown(u"cmbRating"_s), u"****"_s);
    EXPECT_TRUE(shown(u"txtPurchaseDate"_s).contains(u"2020"_s) &&
                !shown(u"txtPurchaseDate"_s).contains(u'T'));
    EXPECT_EQ(shown(u"txtMiscField1_Desc"_s), u"Misc Field 1"_s);
    EXPECT_EQ(shown(u"txtMiscField2_Desc"_s), u"Lent to"_s);
    press(u"cmdEditTags"_s);
    EXPECT_EQ(tagged, shown(u"txtPathName"_s) + shown(u"txtFileName"_s));
    EXPECT_FALSE(state.RecordDirty);
    press(u"cmdSave"_s);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(store.songValue(sos, u"DateUpdated"_s).isNull());

    edit(sos);
    enter(u"txtAlbum"_s, u"Abba"_s);
    EXPECT_EQ(form->windowTitle(), u"• View/Edit an Existing Record"_s);
    desktop.willAnswer(Answer::No, u"Lose any changes?"_s);
    press(Qt::Key_Escape);
    ASSERT_TRUE(isOpen());
    state.PictureChanged = true;
    desktop.willAnswer(Answer::Yes, u"You changed a picture linked to this record."_s);
    press(u"cmdCancel"_s);
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
    EXPECT_FALSE(isOpen() || state.PictureChanged);
    reopen();
    EXPECT_EQ(value(sos, u"AlbumName"_s), QString());
}

TEST_F(TheEditor, SavesEveryFieldAsTheTableSays)
{
    edit(sos);
    for (const EditedField &edited : editedFields()) {
        const QString name(edited.control);
        if (name == u"txtPathName"_s || name == u"txtFileName"_s)
            continue;
        auto &field = control(name);
        const auto *line = qobject_cast<QLineEdit *>(&field);
        const bool isDate = name == u"txtPurchaseDate"_s || name == u"txtDate2"_s;
        const QString text = isDate                                      ? u"2020-02-29"_s
                             : name == u"txtDuration"_s                  ? u"00:03:47"_s
                             : name == u"txtBPM"_s                       ? u" 99 "_s
                             : line != nullptr && line->maxLength() < 12 ? u" \"5' "_s
                                                                         : u" \"a\" 'b' "_s;
        enter(name, text);
    }
    enter(u"txtTrackText"_s, u"07/12"_s);
    press(u"cmdSave"_s);
    ASSERT_FALSE(isOpen());
    reopen();
    EXPECT_EQ(value(sos, u"SongName"_s), u"\"a\" 'b'"_s);
    EXPECT_EQ(value(sos, u"Genre"_s), u" \"a\" 'b' "_s);
    EXPECT_EQ(value(sos, u"MiscField3_Desc"_s), u" \"a\" 'b' "_s);
    EXPECT_EQ(value(sos, u"PicturePath8"_s), u"\"a\" 'b'"_s);
    EXPECT_EQ(value(sos, u"ID"_s), u"\"5'"_s);
    EXPECT_EQ(value(sos, u"BPM"_s), u"99"_s);
    EXPECT_EQ(store.songValue(sos, u"TrackNum"_s), 7);
    EXPECT_EQ(store.songValue(sos, u"Date2"_s).toDateTime().date(), QDate(2020, 2, 29));
    EXPECT_EQ(store.songValue(sos, u"DateUpdated"_s).toDateTime(), now);
    EXPECT_EQ(value(sos, u"FileName"_s), u"SOS.mp3"_s);
    EXPECT_EQ(value(sos, u"AlbumArtist"_s), u"\"a\" 'b'"_s);
    EXPECT_EQ(value(sos, u"Disc"_s), u"\"5'"_s);
    EXPECT_TRUE(store.songValue(sos, u"DateAdded"_s).isNull()) << "when it was added is not known";
    EXPECT_EQ(set.texts().ListCategoryClause, QString());
}

TEST_F(TheEditor, MovesWithEnterAndTheArrowsAndCapitalises)
{
    hooks.showNotesForm = [](NameEdit &, const QString &, const auto &closed) { closed(u"enlarged"_s); };
    edit(sos);
    control(u"txtSongName"_s).setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), u"txtID"_s);
    press(Qt::Key_Down);
    EXPECT_EQ(focus(), u"txtArtist"_s);
    press(Qt::Key_Up);
    EXPECT_EQ(focus(), u"txtID"_s);
    control(u"cmbGenre"_s).setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(focus(), u"cmbRating"_s);
    control(u"txtNotes"_s).setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), u"txtNotes"_s);
    EXPECT_EQ(shown(u"txtNotes"_s), u"\n"_s);
    press(Qt::Key_F2);
    EXPECT_EQ(shown(u"txtNotes"_s), u"enlarged"_s);
    control(u"txtMiscField2"_s).setFocus();
    press(Qt::Key_F2);
    EXPECT_EQ(focus(), u"txtMiscField2_Desc"_s);
    control<QCheckBox>(u"ProperFlag"_s).setChecked(true);
    for (const auto &name : {u"txtSongName"_s, u"txtAlbum"_s, u"txtYear"_s})
        enter(name, u"ab c1 é"_s);
    EXPECT_EQ(shown(u"txtSongName"_s), u"Ab C1 é"_s);
    EXPECT_EQ(shown(u"txtAlbum"_s), u"Ab C1 é"_s);
    EXPECT_EQ(shown(u"txtYear"_s), u"ab c1 é"_s);
    state.RecordDirty = false;
}

TEST_F(TheEditor, KeepsTheFocusInAFieldThatIsWrong)
{
    edit(sos);
    const std::tuple<const char16_t *, const char16_t *, const char16_t *, Answer> cases[] = {
        {u"txtDuration", u"3:47", u"is not a valid duration", Answer::Ok},
        {u"txtBPM", u"fast", u"Beats per minute", Answer::Ok},
        {u"txtDate2", u"31/02", u"Invalid date", Answer::Ok},
        {u"txtFileName", u"a?.mp3", u"is not a valid file name", Answer::Cancel},
        {u"txtPathName", u"/nowhere", u"does not exist", Answer::Cancel}};
    for (const auto &[field, text, says, answer] : cases) {
        const QString name = QString::fromUtf16(field);
        const QString before = shown(name);
        const std::function<void()> waysOut[] = {
            [this] { press(Qt::Key_Tab); }, [this] { press(u"cmdSave"_s); }, [this] { press(u"cmdNext"_s); },
            [this] { press(Qt::Key_S, Qt::AltModifier); }};
        for (const auto &leave : waysOut) {
            enter(name, QString::fromUtf16(text));
            desktop.willAnswer(answer, QString::fromUtf16(says));
            leave();
            EXPECT_EQ(focus(), name);
            EXPECT_EQ(shown(name), answer == Answer::Cancel ? before : QString::fromUtf16(text));
        }
        control<QLineEdit>(name).setText(before);
    }
    desktop.willAnswer(Answer::Cancel, u"is not a valid duration"_s);
    enter(u"txtDuration"_s, u"x"_s);
    press(Qt::Key_Tab);
    EXPECT_EQ(shown(u"txtDuration"_s), QString());
    enter(u"txtDuration"_s, u"x"_s);
    desktop.willAnswer(Answer::Yes, u"Lose any changes?"_s);
    press(u"cmdCancel"_s);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(store.column(u"Select FileName From tblContacts Order By RecordID"_s),
              QStringList({u"Arrival.mp3"_s, u"SOS.mp3"_s, u"Waterloo.mp3"_s}));
}

TEST_F(TheEditor, AddsARecordToTheCategoryOnShow)
{
    const qint64 jazz = store.addCategory(u"Jazz"_s, {sos});
    display();
    set.categoryChosen(jazz, u"Jazz"_s);
    options.AssignCategoryOnAdd = 1;
    int assigned = 0;
    hooks.assignCategoryOnAdd = [&] { ++assigned; };
    add();
    EXPECT_EQ(form->windowTitle(), u"Add a New Record"_s);
    EXPECT_FALSE(screen.isEnabled(MainControl::cmdAdd));
    EXPECT_EQ(shown(u"txtMiscField1_Desc"_s), u"Misc. Field 1"_s);
    enter(u"txtArtist"_s, u"Abba"_s);
    desktop.willSee(u"You cannot add a Song that does not have a Name."_s);
    press(u"cmdSave"_s);
    ASSERT_TRUE(isOpen());
    write(u"new.mp3"_s);
    desktop.willOpen(music(u"new.mp3"_s));
    press(u"cmdBrowseFile"_s);
    enter(u"txtSongName"_s, u"Fernando"_s);
    // An assignment that waits for the new song's number: the song is not added without its own.
    const qint64 songs = store.valueOf(u"Select Count(*) From tblContacts"_s).toLongLong();
    const qint64 next = store.valueOf(u"Select Max(RecordID) From tblContacts"_s).toLongLong() + 1;
    store.addRow(u"tblCategoryID"_s, {{u"ID"_s, next}, {u"CategoryNumber"_s, jazz}});
    desktop.willSee();
    press(u"cmdSave"_s);
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(store.valueOf(u"Select Count(*) From tblContacts"_s).toLongLong(), songs);
    store.db().Execute(u"Delete * from tblCategoryID Where ID=%1"_s.arg(next));
    press(u"cmdSave"_s);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(store.valueOf(u"Select Count(*) From tblContacts"_s).toLongLong(), songs + 1);
    EXPECT_TRUE(screen.isEnabled(MainControl::cmdAdd));
    EXPECT_EQ(assigned, 1);
    EXPECT_EQ(set.Data1().currentText(u"SongName"_s), u"Fernando"_s);
    reopen();
    EXPECT_EQ(value(state.CurrentRecordID, u"PathName"_s), music());
    EXPECT_EQ(store.songValue(state.CurrentRecordID, u"DateAdded"_s).toDateTime(), now);
    EXPECT_EQ(store.column(u"Select ID From tblCategoryID Order By ID"_s),
              QStringList({QString::number(sos), QString::number(state.CurrentRecordID)}));
}

TEST_F(TheEditor, WalksThroughManyRecordsAndSavesSome)
{
    for (int i = 0; i < 197; ++i)
        store.addSong(Song(u"Song %1"_s.arg(i, 4, 10, QChar(u'0'))));
    edit(arrival);
    press(u"cmdPrev"_s);
    EXPECT_EQ(shown(u"txtSongName"_s), u"Arrival"_s);
    for (int i = 0; i < 200; ++i) {
        if (i % 4 == 3)
            enter(u"txtCode"_s, u"c%1"_s.arg(i));
        press(u"cmdNext"_s);
    }
    EXPECT_EQ(shown(u"txtSongName"_s), u"Waterloo"_s);
    EXPECT_FALSE(state.RecordDirty);
    press(u"cmdPrev"_s);
    EXPECT_EQ(shown(u"txtSongName"_s), u"SOS"_s);
    enter(u"txtSongName"_s, u" "_s);
    desktop.willSee(u"it does not have a Song Name."_s);
    press(u"cmdNext"_s);
    desktop.willAnswer(Answer::Yes, u"Lose any changes?"_s);
    press(u"cmdCancel"_s);
    reopen();
    EXPECT_EQ(store.valueOf(u"Select Count(*) From tblContacts Where Code > ''"_s), 50);
    EXPECT_EQ(value(waterloo, u"Code"_s), u"c199"_s);
}

TEST_F(TheEditor, GoesOnBesideARecordThatTheFilterNoLongerShows)
{
    display();
    ASSERT_TRUE(set.filterApplied(u"Artist = \"Abba\""_s));
    edit(sos);
    enter(u"txtArtist"_s, u"Cher"_s);
    press(u"cmdNext"_s);
    EXPECT_EQ(shown(u"txtSongName"_s), u"Waterloo"_s);
    enter(u"txtArtist"_s, u"Cher"_s);
    press(u"cmdPrev"_s);
    EXPECT_EQ(shown(u"txtSongName"_s), u"Arrival"_s);
    enter(u"txtArtist"_s, u"Cher"_s);
    desktop.willSee(u"There are no records to display in the current selection."_s);
    press(u"cmdNext"_s);
    reopen();
    EXPECT_EQ(store.valueOf(u"Select Count(*) From tblContacts Where Artist='Cher'"_s), 3);
}

TEST_F(TheEditor, StartsNewRecordsFromTheTemplate)
{
    store.db().Execute(u"Update tblContacts Set Composer='Benny', Genre='Pop', BPM='99', ID='7' "
                       "Where RecordID="_s +
                       QString::number(sos));
    edit(sos);
    desktop.willSee(u"This record will be used as a template"_s);
    press(u"cmdMakeDefault"_s);
    press(u"cmdAddNew"_s);
    EXPECT_EQ(shown(u"txtComposer"_s), u"Benny"_s);
    EXPECT_EQ(shown(u"txtSongName"_s) + shown(u"txtID"_s) + shown(u"txtBPM"_s) + shown(u"cmbGenre"_s) +
                  shown(u"txtPathName"_s) + shown(u"txtFileName"_s),
              QString());
    EXPECT_TRUE(state.RecordDirty);
    desktop.willSee(u"You must save this record first"_s).willSee(u"You cannot delete a record before"_s);
    press(u"cmdMakeDefault"_s);
    press(u"cmdDelete"_s);
    desktop.willSee(u"Template reset to original default."_s);
    press(u"cmdClearDefault"_s);
    enter(u"txtSongName"_s, u"New"_s);
    enter(u"txtMiscField1_Desc"_s, u"Mine"_s);
    press(u"cmdAddNew"_s);
    EXPECT_EQ(shown(u"txtComposer"_s), QString());
    EXPECT_EQ(shown(u"txtMiscField1_Desc"_s), u"Mine"_s);
    EXPECT_FALSE(state.RecordDirty);
    press(u"cmdCancel"_s);
    reopen();
    EXPECT_EQ(store.valueOf(u"Select Count(*) From tblContacts Where Composer='Benny'"_s), 2);
    EXPECT_EQ(
        store.valueOf(u"Select Count(*) From tblSettings Where Type='TEMPLATE RecordID' And Name Is Null"_s),
        1);
}

TEST_F(TheEditor, DeletesRecordsAndLeavesTheirFiles)
{
    edit(waterloo);
    desktop.willAnswer(Answer::No, u"Are you sure you want to delete this record?\rWaterloo"_s);
    press(u"cmdDelete"_s);
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
    EXPECT_TRUE(desktop.lastCall().text.endsWith(u"Its music file stays on your disk."_s));
    for (const auto &left : {u"SOS"_s, u"Arrival"_s}) {
        desktop.willAnswer(Answer::Yes);
        press(u"cmdDelete"_s);
        EXPECT_EQ(shown(u"txtSongName"_s), left);
    }
    enter(u"txtCode"_s, u"x"_s);
    desktop.willAnswer(Answer::Yes);
    press(u"cmdDelete"_s);
    reopen();
    EXPECT_EQ(store.valueOf(u"Select Count(*) From tblContacts"_s), 0);
    EXPECT_EQ(QDir(music()).entryList(QDir::Files).size(), 3);
}

TEST_F(TheEditor, AddsToThePlayListAndPlaysWhatIsStored)
{
    edit(sos);
    desktop.willSee(u"There are no Play Lists."_s);
    press(u"cmdAddToPlaylist"_s);
    EXPECT_FALSE(control<QPushButton>(u"cmdPlay"_s).isEnabled());
    press(u"cmdCancel"_s);
    const qint64 list = store.addPlayList(u"Party"_s);
    EditedSong played;
    hooks.playFromEditor = [&](const EditedSong &song, const EditorScreens &) { played = song; };
    edit(sos);
    auto &lists = control<QComboBox>(u"cmbHeader"_s);
    lists.setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(player.CurrentPlayListName, u"Party"_s);
    EXPECT_EQ(control(u"cmdAddToPlaylist"_s).toolTip(), u"Play List: Party"_s);
    press(u"cmdAddToPlaylist"_s);
    EXPECT_TRUE(control(u"txtSongAddedToPlaylist"_s).isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !control(u"txtSongAddedToPlaylist"_s).isVisible(); }));
    press(u"cmdPlay"_s);
    EXPECT_EQ(played.PathName + played.FileName, music(u"SOS.mp3"_s));
    EXPECT_TRUE(played.isStored);
    player.PlayedFromEditor = true;
    press(u"cmdCancel"_s);
    EXPECT_EQ(listShown, 1);
    EXPECT_EQ(store.column(u"Select FileName From tblPlayListDetail Where ListID="_s + QString::number(list)),
              QStringList(music(u"SOS.mp3"_s)));
}

TEST_F(TheEditor, IsNotOpenedWhereThereIsNothingToEditOrToAddTo)
{
    display();
    player.PlayerOpen = true;
    desktop.willSee(u"Cannot Add records while playing songs."_s);
    commands.cmdAdd_Click();
    EXPECT_FALSE(isOpen());
    desktop.willSee(u"No records found."_s);
    set.find(u"no such text"_s);
    desktop.willSee(u"There are no records displayed, so you can't View or Edit them."_s);
    commands.cmdEdit_Click();
    EXPECT_FALSE(isOpen());
}

} // namespace
