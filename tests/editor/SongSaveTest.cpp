// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/SongSave.h"
#include "catalogue/DuplicateQueries.h"
#include "catalogue/RenameNotes.h"
#include "editor/EditorFixture.h"
#include "support/Death.h"
#include "support/Limits.h"

#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

class TheSave : public EditorTest
{
protected:
    void SetUp() override
    {
        sos = song(u"SOS"_s);
        other = song(u"Other"_s);
        list = store.addPlayList(u"Party"_s);
        for (const QString &file : {music(u"SOS.mp3"_s), music(u"sos.mp3"_s), music(u"Other.mp3"_s)})
            store.addRow(u"tblPlayListDetail"_s, {{u"ListID"_s, list}, {u"FileName"_s, file}});
        QDir().mkpath(music(u"new"_s));
    }
    QStringList tracks() { return store.column(u"Select FileName From tblPlayListDetail"_s); }
    QStringList files(const QString &folder = {})
    {
        return QDir(music(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    qint64 notes() { return store.valueOf(u"Select Count(*) From tblRenameNotes"_s).toLongLong(); }
    QString row() { return value(sos, u"PathName"_s) + value(sos, u"FileName"_s); }
    /** Types the names, with OK at each warning, and saves. */
    void rename(const QString &path, const QString &name, bool closes = true)
    {
        if (!isOpen())
            edit(sos);
        if (name != shown(u"txtFileName"_s)) {
            desktop.willPassWarning(true);
            enter(u"txtFileName"_s, name);
            press(Qt::Key_Tab);
        }
        if (path != shown(u"txtPathName"_s)) {
            desktop.willPassWarning(true);
            enter(u"txtPathName"_s, path);
            press(Qt::Key_Tab);
        }
        press(u"cmdSave"_s);
        EXPECT_EQ(isOpen(), !closes);
    }

    /** Without the screen, which a child of the test can't show: the song as the editor opens on it. */
    SongSave saver(std::function<QDateTime()> clock = {})
    {
        display();
        EXPECT_TRUE(set.Data1().findRecord(sos));
        state.EditMode = true;
        state.RecordSaved = false;
        return SongSave({.services = store.services(desktop),
                         .set = set,
                         .state = state,
                         .now = clock ? std::move(clock) : [this] { return now; }});
    }
    SaveOutcome saveAs(SongSave &save, const QString &path, const QString &name, const QString &id = {})
    {
        state.RecordDirty = true;
        SongTexts texts = textsOf(set.Data1().Recordset());
        texts[u"PathName"_s] = path;
        texts[u"FileName"_s] = name;
        texts[u"AlbumName"_s] = u"saved"_s;
        texts[u"ID"_s] = id;
        return save.save(texts).outcome;
    }
    /** One row, one file and its tracks, and nothing beside them. */
    void expectTogether(const QString &elsewhere)
    {
        EXPECT_EQ(bytesOf(row()), "SOS");
        EXPECT_EQ(tracks(), QStringList({row(), music(u"sos.mp3"_s), music(u"Other.mp3"_s)}));
        EXPECT_EQ(files().size() + QDir(elsewhere).entryList(QDir::Files | QDir::Hidden).size(),
                  elsewhere == music() ? 4 : 2)
            << qPrintable(files().join(u'|'));
        EXPECT_EQ(notes(), 0);
    }
    using Steps = std::function<void(SongSave &)>;
    void expectDeathsLeaveAllTogether(const QString &path, const Steps &before, const Steps &road,
                                      const QString &end);

    qint64 sos = 0, other = 0, list = 0;
};

TEST_F(TheSave, RenamesAndMovesTheFileAndItsTracksOnly)
{
    const QString folder = music(u"it's \"12\\inch\"/"_s);
    QDir().mkpath(folder);
    const std::pair<QString, QString> places[] = {
        {music(), u"S.O.S. live.mp3"_s}, {folder, u"S.O.S. live.mp3"_s}, {music(u"new/"_s), u"back.mp3"_s}};
    for (const auto &[path, name] : places) {
        rename(path, name);
        EXPECT_EQ(row(), path + name);
        EXPECT_EQ(bytesOf(row()), "SOS");
        EXPECT_EQ(tracks(), QStringList({row(), music(u"sos.mp3"_s), music(u"Other.mp3"_s)}));
        EXPECT_EQ(notes(), 0);
    }
    edit(sos);
    desktop.willType(u"Save Our Souls"_s).willPassWarning(true);
    press(u"cmdBrowseFile"_s);
    EXPECT_EQ(desktop.lastCall().offered, u"SOS"_s);
    EXPECT_EQ(shown(u"txtFileName"_s), u"Save Our Souls.mp3"_s);
    press(Qt::Key_Tab);
    desktop.willBrowse(music()).willPassWarning(true);
    press(u"cmdBrowsePath"_s);
    EXPECT_EQ(LastMusicFolder, music(u"new/"_s));
    press(u"cmdSave"_s);
    reopen();
    EXPECT_EQ(row(), music(u"Save Our Souls.mp3"_s));
    EXPECT_EQ(bytesOf(row()), "SOS");
    EXPECT_EQ(files(), QStringList({u"Other.mp3"_s, u"Save Our Souls.mp3"_s}));
}

TEST_F(TheSave, KeepsTheFileWhenTheOtherFileSystemIsFull)
{
    if (folderOnAnotherFileSystem().isEmpty())
        GTEST_SKIP() << "This machine has no second file system to move a song to.";
    QTemporaryDir elsewhere(folderOnAnotherFileSystem());
    ASSERT_TRUE(elsewhere.isValid());
    const QString target = elsewhere.filePath(u"SOS.mp3"_s);
    constexpr int Large = 4 << 20;
    write(u"SOS.mp3"_s, QByteArray(Large, 's'));
    {
        const FullDisk full(Large / 2);
        edit(sos);
        desktop.willPassWarning(true);
        desktop.willSee(u"The disk is full.  There is no room for '%1'."_s.arg(target));
        enter(u"txtPathName"_s, elsewhere.path());
        press(u"cmdSave"_s);
    }
    EXPECT_TRUE(state.RecordDirty && !state.RecordSaved);
    EXPECT_EQ(bytesOf(music(u"SOS.mp3"_s)).size(), Large);
    EXPECT_TRUE(QDir(elsewhere.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    EXPECT_EQ(row(), music(u"SOS.mp3"_s));
    EXPECT_EQ(tracks().first(), row());
    EXPECT_EQ(notes(), 0);
    EXPECT_EQ(focus(), u"txtPathName"_s);
    desktop.willPassWarning(true);
    press(u"cmdSave"_s);
    reopen();
    EXPECT_EQ(row(), target);
    EXPECT_EQ(tracks().first(), target);
    EXPECT_EQ(bytesOf(target).size(), Large);
    EXPECT_FALSE(QFile::exists(music(u"SOS.mp3"_s)));
}

void TheSave::expectDeathsLeaveAllTogether(const QString &path, const Steps &before, const Steps &road,
                                           const QString &end)
{
    const QString catalogue = store.catalogue().DatabaseFile;
    store.close();
    ASSERT_TRUE(QFile::copy(catalogue, catalogue + u".before"_s));
    int deaths = 0;
    int between = 0;
    for (bool died = true; died; deaths += died) {
        SCOPED_TRACE(deaths);
        std::optional<SongSave> save;
        died = diesAt(
            deaths + 1,
            [&] {
                store.open();
                before(save.emplace(saver()));
            },
            [&] { road(*save); });
        store.open();
        between += !QFile::exists(row());
        EXPECT_EQ(RenameNotes(store.catalogue()).settle(), QStringList());
        expectTogether(path);
        EXPECT_TRUE(died || row() == end);
        EXPECT_EQ(died || row() == music(u"SOS.mp3"_s), died || value(sos, u"AlbumName"_s) != u"saved"_s);
        const QString left = row();
        store.close();
        QFile::remove(left);
        write(u"SOS.mp3"_s, "SOS");
        for (const QString &ending : {u""_s, u"-wal"_s, u"-shm"_s})
            QFile::remove(catalogue + ending);
        ASSERT_TRUE(QFile::copy(catalogue + u".before"_s, catalogue));
    }
    QFile::remove(catalogue + u".before"_s);
    store.open();
    EXPECT_GT(deaths, 4);
    EXPECT_GT(between, 0) << "it died between the rename and the record";
}

// Saved at once, or refused behind the rename and then saved there, saved under another name, or given up.
TEST_F(TheSave, KilledAtAnyStepLeavesFileRecordAndTracksTogether)
{
    if (folderOnAnotherFileSystem().isEmpty())
        GTEST_SKIP() << "This machine has no second file system to move a song to.";
    store.db().Execute(u"Update tblContacts Set ID='7' Where RecordID="_s + QString::number(other));
    QTemporaryDir elsewhere(folderOnAnotherFileSystem());
    ASSERT_TRUE(elsewhere.isValid());
    for (const QString &path : {music(), elsewhere.path() + u'/'}) {
        SCOPED_TRACE(qPrintable(path));
        const auto expect = [](bool held) {
            if (!held)
                std::_Exit(1);
        };
        const auto refused = [&](SongSave &save) {
            desktop.willSee(u"the same ID number"_s);
            expect(saveAs(save, path, u"b.mp3"_s, u"7"_s) == SaveOutcome::Refused &&
                   bytesOf(path + u"b.mp3"_s) == "SOS");
        };
        const auto opened = [](SongSave &) {};
        const auto savedAs = [&](const QString &name) {
            return [&, name](SongSave &save) { expect(saveAs(save, path, name) == SaveOutcome::Saved); };
        };
        const auto givenUp = [&](SongSave &save) { expect(save.giveUp() == QString()); };
        expectDeathsLeaveAllTogether(path, opened, savedAs(u"b.mp3"_s), path + u"b.mp3"_s);
        if (path == music())
            expectDeathsLeaveAllTogether(path, refused, savedAs(u"b.mp3"_s), path + u"b.mp3"_s);
        expectDeathsLeaveAllTogether(path, refused, savedAs(u"c.mp3"_s), path + u"c.mp3"_s);
        expectDeathsLeaveAllTogether(path, refused, givenUp, music(u"SOS.mp3"_s));
    }
}

TEST_F(TheSave, TriesAgainWhenTheRecordChangesMeanwhile)
{
    int writes = 0;
    // The clock is read between the record's opening for the change and its writing.
    const auto saveWhileWritten = [&](int times) {
        SongSave save = saver([&, times] {
            if (writes++ < times)
                store.db().Execute(u"Update tblContacts Set Code='%1'"_s.arg(writes));
            return now;
        });
        return saveAs(save, music(), u"b.mp3"_s);
    };
    EXPECT_EQ(saveWhileWritten(2), SaveOutcome::Saved);
    EXPECT_EQ(writes, 3);
    EXPECT_EQ(row(), music(u"b.mp3"_s));
    EXPECT_EQ(value(sos, u"AlbumName"_s), u"saved"_s);
    EXPECT_EQ(value(other, u"Code"_s), u"2"_s);
    desktop.willSee();
    EXPECT_EQ(saveWhileWritten(99), SaveOutcome::Refused);
    EXPECT_EQ(writes, 6);
    EXPECT_TRUE(state.RecordDirty && !state.RecordSaved);
}

TEST_F(TheSave, GoesBackWhenTheWarningIsNotAccepted)
{
    edit(sos);
    desktop.willPassWarning(false);
    enter(u"txtFileName"_s, u"b.mp3"_s);
    press(u"cmdSave"_s);
    EXPECT_EQ(focus(), u"txtFileName"_s);
    EXPECT_EQ(shown(u"txtFileName"_s), u"SOS.mp3"_s);
    // One click does, with the warning in between.
    desktop.willPassWarning(true);
    enter(u"txtFileName"_s, u"b.mp3"_s);
    press(u"cmdSave"_s);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(bytesOf(music(u"b.mp3"_s)), "SOS");
}

TEST_F(TheSave, NeverOverwritesAFile)
{
    write(u"new/SOS.mp3"_s, "mine");
    rename(music(u"new/"_s), u"SOS.mp3"_s);
    reopen();
    EXPECT_EQ(row(), music(u"new/SOS.mp3"_s));
    EXPECT_EQ(bytesOf(music(u"new/SOS.mp3"_s)), "mine");
    EXPECT_EQ(bytesOf(music(u"SOS.mp3"_s)), "SOS");
    EXPECT_EQ(tracks().first(), music(u"SOS.mp3"_s));
}

TEST_F(TheSave, LeavesTheDiskAloneWhenToldSoAndTakesNewNamesOfAFileThatIsGone)
{
    options.FileRenameDisabled = true;
    edit(sos);
    enter(u"txtFileName"_s, u"b.mp3"_s);
    press(u"cmdSave"_s);
    EXPECT_EQ(row(), music(u"b.mp3"_s));
    EXPECT_EQ(files(), QStringList({u"Other.mp3"_s, u"SOS.mp3"_s}));
    EXPECT_EQ(tracks().first(), music(u"SOS.mp3"_s));
    options.FileRenameDisabled = false;
    edit(sos);
    enter(u"txtFileName"_s, u"c.mp3"_s);
    press(u"cmdSave"_s);
    reopen();
    EXPECT_EQ(row(), music(u"c.mp3"_s));
}

TEST_F(TheSave, RefusedBehindTheRenameStandsUntilItIsSavedRenamedAnewOrGivenUp)
{
    store.db().Execute(u"Update tblContacts Set ID='7' Where RecordID="_s + QString::number(other));
    const auto refuse = [this](const QString &name) {
        edit(sos);
        enter(u"txtID"_s, u"7"_s);
        desktop.willPassWarning(true);
        enter(u"txtFileName"_s, name);
        desktop.willSee(u"You cannot have a Song with the same ID number as an existing Song."_s);
        press(u"cmdSave"_s);
        EXPECT_EQ(focus(), u"txtID"_s);
        EXPECT_EQ(bytesOf(music(name)), "SOS");
        EXPECT_NE(row(), music(name));
        EXPECT_EQ(tracks().first(), music(name));
        EXPECT_EQ(notes(), 1);
    };
    refuse(u"b.mp3"_s);
    enter(u"txtSongName"_s, u" other "_s);
    press(u"cmdSave"_s);
    EXPECT_EQ(row(), music(u"b.mp3"_s));
    expectTogether(music());

    store.db().Execute(u"Update tblContacts Set SongName='SOS', ID='' Where RecordID="_s +
                       QString::number(sos));
    refuse(u"c.mp3"_s);
    desktop.willAnswer(Answer::Yes, u"Lose any changes?"_s);
    press(Qt::Key_Escape);
    EXPECT_EQ(row(), music(u"b.mp3"_s));
    expectTogether(music());

    refuse(u"d.mp3"_s);
    enter(u"txtID"_s, {});
    enter(u"txtFileName"_s, u"e.mp3"_s);
    press(u"cmdSave"_s);
    reopen();
    EXPECT_EQ(row(), music(u"e.mp3"_s));
    expectTogether(music());
}

TEST_F(TheSave, LeavesTheDiskAloneWhereAnotherRecordHasTheName)
{
    QFile::remove(music(u"Other.mp3"_s));
    edit(sos);
    desktop.willPassWarning(true);
    enter(u"txtFileName"_s, u"Other.mp3 "_s);
    desktop.willSee(u"is the file of another record already, the song \"Other\"."_s);
    press(u"cmdSave"_s);
    EXPECT_EQ(focus(), u"txtFileName"_s);
    EXPECT_EQ(files(), QStringList(u"SOS.mp3"_s));
    desktop.willAnswer(Answer::Yes, u"Lose any changes?"_s);
    press(Qt::Key_Escape);
    add();
    enter(u"txtSongName"_s, u"New"_s);
    enter(u"txtFileName"_s, u"SOS.mp3"_s);
    enter(u"txtPathName"_s, music(u"./"_s));
    desktop.willSee(u"the song \"SOS\"."_s);
    press(u"cmdSave"_s);
    ASSERT_TRUE(isOpen());
    desktop.willAnswer(Answer::Yes, u"Lose any changes?"_s);
    press(Qt::Key_Escape);
    reopen();
    EXPECT_EQ(row(), music(u"SOS.mp3"_s));
    EXPECT_EQ(tracks().first(), row());
}

TEST_F(TheSave, RefusesHalfNamesAndBadOnes)
{
    edit(sos);
    const auto refuse = [this](const QString &path, const QString &name, const QString &text) {
        control<QLineEdit>(u"txtPathName"_s).setText(music());
        control<QLineEdit>(u"txtFileName"_s).setText(u"SOS.mp3"_s);
        control(u"txtSongName"_s).setFocus();
        control<QLineEdit>(u"txtPathName"_s).setText(path);
        control<QLineEdit>(u"txtFileName"_s).setText(name);
        desktop.willSee(text);
        press(u"cmdSave"_s);
        EXPECT_TRUE(isOpen()) << text.toStdString();
    };
    refuse(music(), u"a?.mp3"_s, u"File Name contains illegal characters.  Please correct it."_s);
    refuse({}, {}, u"File Name is blank.  Please correct it."_s);
    options.FileRenameDisabled = true;
    refuse(u"/nowhere/"_s, u"SOS.mp3"_s, u"The Path name does not exist."_s);
    refuse({}, u"SOS.mp3"_s, u"The Path name cannot be blank if the File name is not blank."_s);
    refuse(music(), {}, u"The File name cannot be blank if the Path name is not blank."_s);
    EXPECT_EQ(focus(), u"txtFileName"_s);
    refuse(music(u"SOS.mp3"_s), u"x.mp3"_s, u"The Path name does not exist."_s);
    refuse(u"new/"_s, u"SOS.mp3"_s, u"The Path name must be complete"_s);
    EXPECT_EQ(focus(), u"txtPathName"_s);
    EXPECT_FALSE(state.RecordSaved);
    EXPECT_TRUE(state.RecordDirty);
    desktop.willAnswer(Answer::Yes, u"Lose any changes?"_s);
    press(Qt::Key_Escape);
    reopen();
    EXPECT_EQ(row(), music(u"SOS.mp3"_s));
}

TEST_F(TheSave, TellsWhatTheDiskRefusesAndKeepsEverything)
{
    QDir().mkpath(music(u"closed"_s));
    const LockedFolder closed(music(u"closed"_s), store.folder());
    edit(sos);
    desktop.willPassWarning(true).willSee();
    enter(u"txtPathName"_s, music(u"closed"_s));
    press(u"cmdSave"_s);
    EXPECT_TRUE(isOpen() && state.RecordDirty);
    EXPECT_EQ(notes(), 0);
    desktop.willPassWarning(true).willSee();
    enter(u"txtPathName"_s, music());
    enter(u"txtFileName"_s, QString(255, u'ü'));
    press(u"cmdSave"_s);
    EXPECT_EQ(files(), QStringList({u"Other.mp3"_s, u"SOS.mp3"_s}));
    EXPECT_EQ(row(), music(u"SOS.mp3"_s));
    EXPECT_EQ(tracks().first(), music(u"SOS.mp3"_s));
    desktop.willAnswer(Answer::Yes, u"Lose any changes?"_s);
    press(Qt::Key_Escape);
    QFile(music(u"closed"_s)).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(TheSave, SurvivesARowThatWasDeletedElsewhere)
{
    edit(sos);
    store.db().Execute(u"Delete From tblContacts Where RecordID="_s + QString::number(sos));
    enter(u"txtAlbum"_s, u"x"_s);
    desktop.willSee();
    press(u"cmdSave"_s);
    EXPECT_TRUE(isOpen() && state.RecordDirty);
    desktop.willSee();
    press(u"cmdNext"_s);
    EXPECT_EQ(shown(u"txtAlbum"_s), u"x"_s);
    desktop.willAnswer(Answer::Yes, u"Lose any changes?"_s);
    press(Qt::Key_Escape);
    EXPECT_EQ(files(), QStringList({u"Other.mp3"_s, u"SOS.mp3"_s}));
    EXPECT_EQ(value(other, u"AlbumName"_s), QString());
}

TEST_F(TheSave, SavesNothingFromADuplicateView)
{
    store.db().Execute(u"Update tblContacts Set SongName='SOS', FileSize='1 MB'"_s);
    ensureDuplicateQueries(store.db());
    display();
    ASSERT_TRUE(set.duplicateView(u"qryDuplicateSongs"_s));
    edit(sos);
    EXPECT_FALSE(control(u"cmdSave"_s).isEnabled() || control(u"cmdAddNew"_s).isEnabled());
    enter(u"txtAlbum"_s, u"x"_s);
    press(u"cmdNext"_s);
    EXPECT_TRUE(isOpen());
    enter(u"txtAlbum"_s, u"y"_s);
    press(u"cmdCancel"_s);
    reopen();
    EXPECT_EQ(store.valueOf(u"Select Count(*) From tblContacts Where AlbumName > ''"_s), 0);
}

} // namespace
