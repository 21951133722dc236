// SPDX-License-Identifier: GPL-3.0-or-later
#include "MaintenanceFixture.h"

#include "maintenance/InvalidFileSearch.h"
#include "maintenance/PathChange.h"
#include "maintenance/frmChangeFileNamePath.h"
#include "maintenance/frmChangeFilePath.h"
#include "support/Files.h"

#include <QCompleter>
#include <QEventLoop>
#include <QTimer>

#include <semaphore>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

class Locations : public Maintenance
{
protected:
    void SetUp() override
    {
        store.db().Execute(u"Delete * from tblContacts"_s);
        for (const QString &folder : {u"/Old/a/"_s, u"/old/b/"_s, u"/x \"old\"/"_s, u"/other/"_s})
            store.addSong(Song(folder).file(folder, u"old.mp3"_s));
        store.db().Execute(u"Delete * from tblPlayListDetail"_s);
        for (const QString &file : {u"/OLD/a/old.mp3"_s, u"/other/a.mp3"_s})
            store.addRow(u"tblPlayListDetail"_s, {{u"ListID"_s, 1}, {u"FileName"_s, file}});
        set.ShowAllMenu_Click();
    }
    QString folders()
    {
        return store.column(u"Select PathName From tblContacts Order By RecordID"_s).join(u' ');
    }
    QEventLoop loop;
    QString tracks() { return store.column(u"Select FileName From tblPlayListDetail"_s).join(u' '); }
    void enterPaths(const QString &original, const QString &replacement)
    {
        show<frmChangeFilePath>();
        retype(box(u"txtOrigPath"_s), original);
        retype(box(u"txtNewPath"_s), replacement);
    }
};

TEST_F(Locations, ChangesFoldersOfSongsAndFilesOfPlayLists)
{
    show<frmChangeFilePath>();
    desktop.willSee(u"Both the original and the new file path or string must be specified."_s);
    press(u"OKButton"_s);
    const QString there = store.folder();
    writeFile(there + u"a/old.mp3"_s);
    desktop.willBrowse(u"/nowhere"_s).willBrowse(there);
    press(u"cmdBrowseOrig"_s);
    press(u"cmdBrowseNew"_s);
    EXPECT_EQ(desktop.lastCall().text, u"Pick the new Folder"_s);
    EXPECT_EQ(box(u"txtNewPath"_s)->text(), there);
    desktop.willSee(u"The characters you specified were not found in any file names."_s);
    press(u"OKButton"_s);
    retype(box(u"txtOrigPath"_s), u"/old"_s);
    desktop.willAnswer(Answer::Yes, u"file names that contain \"/old/\" is: 2.\nNumber of songs in your play "
                                    "lists that contain \"/old/\" is: 1.\nOf the first 2 of these files, 1 "
                                    "were found in the new place.\nAre you sure you want to replace "
                                    "this part of the file name with \"%1\" for every one"_s.arg(there));
    desktop.willSee(u"Update completed. Total number of replacements made: 3"_s);
    press(u"OKButton"_s);
    EXPECT_EQ(folders(), there + u"a/ "_s + there + u"b/ /x \"old\"/ /other/"_s);
    EXPECT_EQ(tracks(), there + u"a/old.mp3 /other/a.mp3"_s);
    EXPECT_EQ(data().currentText(u"PathName"_s), there + u"a/"_s) << "the list follows";
    EXPECT_EQ(backups, 1);
    EXPECT_FALSE(isOpen());

    enterPaths(u"\"old\""_s, u"\"n\"e'w"_s);
    desktop.willAnswer(Answer::Yes, u"is: 1."_s).willSee(u"made: 1"_s);
    press(u"OKButton"_s);
    EXPECT_TRUE(folders().contains(u"/x \"n\"e'w/ /other/"_s)) << "double quotes are part of a name";
}

TEST_F(Locations, BringsBothEndsToOneForm)
{
    const std::tuple<PathChange, PathChange, PathChange> cases[] = {
        {{u"/a/Music"_s, u"/a/Musik/"_s}, {u"/a/Music/"_s, u"/a/Musik/"_s}, {u"/a/Music"_s, u"/a/Musik"_s}},
        {{u"/a//Music/"_s, u"/b/../c"_s}, {u"/a/Music/"_s, u"/c/"_s}, {u"/a/Music/"_s, u"/c/"_s}},
        {{u"/a/"_s, u"b"_s}, {u"/a/"_s, u"/b/"_s}, {u"/a/"_s, u"/b/"_s}},
        {{u"MySongs"_s, u"Songs//"_s}, {u"MySongs"_s, u"Songs"_s}, {u"MySongs"_s, u"Songs"_s}},
        {{u"C:\\Music\\"_s, u"/m"_s}, {u"C:\\Music\\"_s, u"/m/"_s}, {u"C:\\Music\\"_s, u"/m/"_s}},
    };
    for (const auto &[typed, folders, files] : cases) {
        EXPECT_EQ(inOneForm(typed, PathKind::Folders), folders) << typed.original.toStdString();
        EXPECT_EQ(inOneForm(typed, PathKind::Files), files) << typed.original.toStdString();
    }
}

TEST_F(Locations, ChangesAllOrNothingAndAsksAboutAPlaceThatIsNotThere)
{
    store.addSong(Song(u"there"_s).file(u"/new/b/"_s, u"old.mp3"_s));
    const QString before = folders();
    const QString tracksBefore = tracks();
    show<frmChangeFilePath>();
    EXPECT_EQ(box(u"txtOrigPath"_s)->completer()->completionCount(), 5) << "the folders below the root";
    retype(box(u"txtOrigPath"_s), u"/old"_s);
    retype(box(u"txtNewPath"_s), u"/new"_s);
    desktop.willAnswer(Answer::No, u"There is no such folder: /new/"_s);
    press(u"OKButton"_s);
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
    EXPECT_EQ(backups, 0);
    desktop.willAnswer(Answer::Yes, u"no such folder"_s)
        .willAnswer(Answer::Yes, u"Of the first 2 of these files, 0 were found"_s)
        .willSee(u"the same file:\n/new/b/old.mp3\n\nThis song would come to it:\n/old/b/\n/old/b/old.mp3\n\n"
                 "This song has it already:\nthere\n/new/b/old.mp3\n\nNothing was changed."_s);
    press(u"OKButton"_s);
    EXPECT_EQ(folders(), before);
    EXPECT_EQ(data().currentText(u"PathName"_s), u"/Old/a/"_s);

    // Stopped behind the songs, in the midst of the play lists; a box that comes up meanwhile stores no half.
    store.db().Execute(u"Delete * from tblContacts Where PathName = '/new/b/'"_s);
    desktop.willAnswer(Answer::Yes).willAnswer(Answer::Yes).willSee(u"Nothing was changed."_s);
    desktop.atEvents(desktop.eventsRun() + 3, [this] {
        QTimer::singleShot(10, &loop, &QEventLoop::quit);
        loop.exec();
        desktop.closeWorkingForm();
    });
    press(u"OKButton"_s);
    EXPECT_TRUE(isOpen());
    set.Data1().Close();
    store.reopen();
    EXPECT_EQ(folders() + u" /new/b/"_s, before);
    EXPECT_EQ(tracks(), tracksBefore);
    EXPECT_FALSE(busy);
}

TEST_F(Locations, ChangesPlayListsAlone)
{
    show<frmChangeFileNamePath>();
    desktop.willSee(u"Both the original text and the new replacement text must be specified."_s);
    press(u"cmdOK"_s);
    retype(box(u"txtNew"_s), u"new"_s);
    retype(box(u"txtOrig"_s), u" /x/ "_s);
    desktop.willSee(u"The text you specified was not found in the FileName in any PlayList."_s);
    press(u"cmdOK"_s);
    EXPECT_EQ(box(u"txtOrig"_s)->text(), u"/x/"_s);
    retype(box(u"txtOrig"_s), u"old"_s);
    desktop.willAnswer(Answer::Yes,
                       u"The number of records that contain  old  is: 1.  Of the first 1 of these "
                       "files, 0 were found in the new place.  Are you sure you want "
                       "to replace this part of the FileName with  new  for every one"_s);
    desktop.willSee(u"Update completed.  Records changed: 1"_s);
    press(u"cmdOK"_s);
    EXPECT_EQ(tracks(), u"/new/a/new.mp3 /other/a.mp3"_s);
    EXPECT_EQ(folders(), u"/Old/a/ /old/b/ /x \"old\"/ /other/"_s);
}

using InvalidFiles = Maintenance;

TEST_F(InvalidFiles, ShowsSongsWhoseFileIsGoneOrUnnamed)
{
    store.db().Execute(u"Delete * from tblContacts"_s);
    ASSERT_TRUE(QDir(store.folder()).mkpath(u"album.mp3"_s));
    QStringList expected;
    const auto add = [&](const QVariant &fileName) {
        const QString name = u"song %1"_s.arg(expected.size(), 4, 10, QChar(u'0'));
        store.addSong(Song(name).with(u"PathName"_s, store.folder()).with(u"FileName"_s, fileName));
        expected.append(name);
    };
    for (const QString &name : {u"here \"1\".mp3"_s, u"a*.mp3"_s}) {
        writeFile(store.path(name));
        add(name);
    }
    store.db().workspace().BeginTrans();
    for (const QVariant &name : {QVariant(u"*.mp3"_s), QVariant(u"album.mp3"_s), QVariant(u""_s), QVariant()})
        add(name);
    for (int i = 0; i < 2000; ++i)
        add(u"%1.mp3"_s.arg(i));
    store.db().workspace().CommitTrans();
    load();
    many.mnuFindInvalidFilenames_Click();
    EXPECT_EQ(names(), expected.mid(2));
    EXPECT_EQ(screen.lblFilterMsg(), u"Records with invalid path/file names"_s);
    EXPECT_FALSE(screen.isEnabled(MainControl::cmdAdd));
    EXPECT_EQ(backups, 0);

    store.db().Execute(u"Delete * from tblContacts Where SongName > 'song 0001'"_s);
    set.ShowAllMenu_Click();
    desktop.willSee(u"No records with invalid path/file names exist."_s);
    many.mnuFindInvalidFilenames_Click();
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(store.valueOf(u"Select count(*) as N from tblOrphanFileNames"_s).toInt(), 0);
}

/** A file system that answers the first question and hangs at the second, until it is let go. */
TEST_F(InvalidFiles, ASearchThatHangsEndsWithItsWindowAndChangesNothing)
{
    auto gate = std::make_shared<std::binary_semaphore>(0);
    auto done = std::make_shared<std::binary_semaphore>(0);
    store.db().Execute(u"Update tblContacts Set FileName = SongName"_s);
    store.addRow(u"tblOrphanFileNames"_s, {{u"RecordIdOrphan"_s, sos}});
    InvalidFileSearch search(parts, [gate, done](const QString &path) {
        if (path == "SOS"_L1) {
            gate->acquire();
            done->release();
        }
        return false;
    });
    desktop.atEvents(desktop.eventsRun() + 5, [&] {
        EXPECT_TRUE(busy);
        desktop.closeWorkingForm();
    });
    search.run();
    EXPECT_FALSE(busy);
    EXPECT_EQ(rows(), 7);
    EXPECT_EQ(store.column(u"Select RecordIdOrphan From tblOrphanFileNames"_s),
              QStringList(QString::number(sos)));
    gate->release();
    done->acquire();
}

} // namespace
