// SPDX-License-Identifier: GPL-3.0-or-later
#include "MaintenanceFixture.h"

#include "desktop/FileHelpers.h"
#include "desktop/QtDesktop.h"
#include "desktop/WorkingForm.h"
#include "maintenance/InvalidFileSearch.h"
#include "maintenance/MaintenanceCommands.h"
#include "maintenance/frmChangeFileNamePath.h"
#include "maintenance/frmChangeFilePath.h"
#include "platform/options/OptionsStore.h"
#include "support/UserActs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPointer>
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
        set.showAll();
    }
    QStringList folders() { return store.column(u"Select PathName From tblContacts Order By RecordID"_s); }
    QStringList tracks() { return store.column(u"Select FileName From tblPlayListDetail"_s); }
    template <typename Form> QPointer<Form> shown()
    {
        QPointer<Form> form = new Form(parts);
        form->showModally();
        return form;
    }
};

TEST_F(Locations, ChangesFoldersOfSongsAndFilesOfPlayLists)
{
    const auto form = shown<frmChangeFilePath>();
    auto *original = child<QLineEdit>(*form, u"txtOrigPath"_s);
    auto *replacement = child<QLineEdit>(*form, u"txtNewPath"_s);
    desktop.willSee(u"Both the original and the new file path or string must be specified."_s);
    click(*form, u"OKButton"_s);
    desktop.willBrowse(u"/nowhere"_s).willBrowse(u"/new"_s);
    click(*form, u"cmdBrowseOrig"_s);
    click(*form, u"cmdBrowseNew"_s);
    EXPECT_EQ(desktop.lastCall().text, u"Pick the new Folder"_s);
    EXPECT_EQ(replacement->text(), u"/new/"_s);
    desktop.willSee(u"The characters you specified were not found in any file names."_s);
    click(*form, u"OKButton"_s);
    retype(original, u"/old/"_s);
    desktop.willAnswer(Answer::Yes, u"file names that contain \"/old/\" is: 2.\nNumber of songs in your play "
                                    "lists that contain \"/old/\" is: 1.\nAre you sure you want to replace "
                                    "this part of the file name with \"/new/\" for every one"_s);
    desktop.willSee(u"Update completed. Total number of replacements made: 3"_s);
    click(*form, u"OKButton"_s);
    EXPECT_EQ(folders(), (QStringList{u"/new/a/"_s, u"/new/b/"_s, u"/x \"old\"/"_s, u"/other/"_s}));
    EXPECT_EQ(tracks(), (QStringList{u"/new/a/old.mp3"_s, u"/other/a.mp3"_s}));
    EXPECT_EQ(data().currentText(u"PathName"_s), folders().constFirst()) << "the list follows";
    EXPECT_EQ(backups, 1);
    EXPECT_FALSE(form && form->isVisible());
}

TEST_F(Locations, ReadsDoubleQuotesAsPartOfAName)
{
    const auto form = shown<frmChangeFilePath>();
    retype(child<QLineEdit>(*form, u"txtOrigPath"_s), u"\"old\""_s);
    retype(child<QLineEdit>(*form, u"txtNewPath"_s), u"\"n\"e'w"_s);
    desktop.willAnswer(Answer::Yes, u"is: 1."_s).willSee(u"made: 1"_s);
    click(*form, u"OKButton"_s);
    EXPECT_EQ(folders()[2], u"/x \"n\"e'w/"_s);
}

TEST_F(Locations, KeepsWhatWasChangedBeforeTwoPathsBecomeEqual)
{
    store.addSong(Song(u"there"_s).file(u"/new/b/"_s, u"old.mp3"_s));
    const auto form = shown<frmChangeFilePath>();
    retype(child<QLineEdit>(*form, u"txtOrigPath"_s), u"/old/"_s);
    retype(child<QLineEdit>(*form, u"txtNewPath"_s), u"/new/"_s);
    desktop.willAnswer(Answer::Yes).willSee(u"duplicate"_s);
    click(*form, u"OKButton"_s);
    EXPECT_TRUE(form->isVisible());
    delete form.data();
    set.Data1().Close();
    store.reopen();
    EXPECT_EQ(folders().mid(0, 2), (QStringList{u"/new/a/"_s, u"/old/b/"_s}));
    EXPECT_EQ(tracks().constFirst(), u"/OLD/a/old.mp3"_s) << "nothing behind the refusal";
}

TEST_F(Locations, ChangesPlayListsAlone)
{
    const auto form = shown<frmChangeFileNamePath>();
    auto *original = child<QLineEdit>(*form, u"txtOrig"_s);
    desktop.willSee(u"Both the original text and the new replacement text must be specified."_s);
    click(*form, u"cmdOK"_s);
    retype(child<QLineEdit>(*form, u"txtNew"_s), u"new"_s);
    retype(original, u" /x/ "_s);
    desktop.willSee(u"The text you specified was not found in the FileName in any PlayList."_s);
    click(*form, u"cmdOK"_s);
    EXPECT_EQ(original->text(), u"/x/"_s);
    retype(original, u"old"_s);
    desktop.willAnswer(Answer::Yes, u"The number of records that contain  old  is: 1.  Are you sure you want "
                                    "to replace this part of the FileName with  new  for every one"_s);
    desktop.willSee(u"Update completed."_s);
    click(*form, u"cmdOK"_s);
    EXPECT_EQ(tracks(), (QStringList{u"/new/a/new.mp3"_s, u"/other/a.mp3"_s}));
    EXPECT_EQ(folders()[1], u"/old/b/"_s);
}

class InvalidFiles : public Maintenance
{
protected:
    MaintenanceCommands commands{parts, [] {}, [] {}};
};

TEST_F(InvalidFiles, ShowsSongsWhoseFileIsGoneOrUnnamed)
{
    store.db().Execute(u"Delete * from tblContacts"_s);
    const QString folder = store.folder();
    ASSERT_TRUE(QDir(folder).mkpath(u"album.mp3"_s));
    for (const QString &name : {u"here \"1\".mp3"_s, u"a*.mp3"_s}) {
        QFile file(folder + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    QStringList expected;
    const auto add = [&](const QString &name, const QVariant &fileName, bool isThere) {
        store.addSong(Song(name).with(u"PathName"_s, folder).with(u"FileName"_s, fileName));
        if (!isThere)
            expected.append(name);
    };
    add(u"1 here"_s, u"here \"1\".mp3"_s, true);
    add(u"2 star"_s, u"a*.mp3"_s, true);
    add(u"3 star elsewhere"_s, u"*.mp3"_s, false);
    add(u"4 folder"_s, u"album.mp3"_s, false);
    add(u"5 empty"_s, u""_s, false);
    add(u"6 none"_s, {}, false);
    store.db().workspace().BeginTrans();
    for (int i = 0; i < 2000; ++i)
        add(u"7 gone %1"_s.arg(i, 4, 10, QChar(u'0')), u"%1.mp3"_s.arg(i), false);
    store.db().workspace().CommitTrans();
    load();
    commands.mnuFindInvalidFilenames_Click();
    EXPECT_EQ(names(), expected);
    EXPECT_EQ(screen.lblFilterMsg(), u"Records with invalid path/file names"_s);
    EXPECT_FALSE(screen.isEnabled(MainControl::cmdAdd));
    EXPECT_EQ(backups, 0);

    store.db().Execute(u"Delete * from tblContacts Where SongName > '3'"_s);
    set.showAll();
    desktop.willSee(u"No records with invalid path/file names exist."_s);
    commands.mnuFindInvalidFilenames_Click();
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(store.valueOf(u"Select count(*) as N from tblOrphanFileNames"_s).toInt(), 0);
}

/** A file system that answers the first question and hangs at the second, until it is let go. */
TEST_F(InvalidFiles, ASearchThatHangsEndsWithItsWindowAndChangesNothing)
{
    QTemporaryDir config;
    OptionsStore optionsStore(config.filePath(u"Quaverly.ini"_s));
    QtDesktop window(optionsStore);
    MaintenanceParts real{store.catalogue(), set, screen, window, options, [] { return true; }};
    auto gate = std::make_shared<std::binary_semaphore>(0);
    auto done = std::make_shared<std::binary_semaphore>(0);
    store.db().Execute(u"Update tblContacts Set FileName = SongName"_s);
    store.addRow(u"tblOrphanFileNames"_s, {{u"RecordIdOrphan"_s, sos}});
    InvalidFileSearch search(real, [gate, done](const QString &path) {
        if (path == "SOS"_L1) {
            gate->acquire();
            done->release();
        }
        return false;
    });
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *form = qobject_cast<WorkingForm *>(widget); form && form->isVisible()) {
                EXPECT_TRUE(search.isRunning());
                click(form);
            }
        }
    });
    user.start(0);
    search.run();
    EXPECT_FALSE(search.isRunning());
    EXPECT_EQ(rows(), 7);
    EXPECT_EQ(store.column(u"Select RecordIdOrphan From tblOrphanFileNames"_s),
              QStringList(QString::number(sos)));
    gate->release();
    done->acquire();
}

TEST_F(InvalidFiles, AnErrorIsToldWithItsNumber)
{
    const QString file = store.catalogue().DatabaseFile;
    desktop.atEvents(1, [&] { ASSERT_TRUE(QFile::rename(file, file + u".gone"_s)); });
    desktop.willSee(u".  Error number:3024"_s);
    commands.mnuFindInvalidFilenames_Click();
    EXPECT_EQ(desktop.lastCall().title, u"Error"_s);
    EXPECT_FALSE(commands.isBusy());
    ASSERT_TRUE(QFile::rename(file + u".gone"_s, file));
}

} // namespace
