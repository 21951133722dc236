// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/FileCopyCommands.h"
#include "maintenance/MaintenanceFixture.h"
#include "support/Limits.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

/** Seven songs: three files, one of them under a name that another has, too; one is missing. */
class FileCopy : public Maintenance
{
protected:
    void SetUp() override
    {
        Maintenance::SetUp();
        for (const auto *folder : {"music/a", "music/b", "stick"})
            QDir(store.folder()).mkpath(QString::fromLatin1(folder));
        give(queen, u"music/a/"_s, u"O\"Hara & 'x'.mp3"_s, "first");
        give(sos, u"music/b/"_s, u"O\"Hara & 'x'.mp3"_s, "second");
        give(imagine, u"music/b/"_s, u"日本.mp3"_s, QByteArray(300'000, 'i'));
        give(4, u"gone/"_s, u"lost.mp3"_s, {});
        set.Data1().Refresh();
    }
    void give(qint64 song, const QString &folder, const QString &name, const QByteArray &sound)
    {
        const auto row = store.db().OpenRecordset(u"Select * from tblContacts Where RecordID=%1"_s.arg(song));
        row->Edit();
        row->setValue(u"PathName"_s, store.path(folder));
        row->setValue(u"FileName"_s, name);
        row->Update();
        QFile file(store.path(folder + name));
        EXPECT_EQ(file.open(QIODevice::WriteOnly), !sound.isEmpty());
        file.write(sound);
    }
    [[nodiscard]] QByteArray read(const QString &name) const
    {
        QFile file(store.path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
    [[nodiscard]] QStringList onStick() const
    {
        return QDir(stick).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    /** @p closing is what the last box says; nothing for none. */
    void copyAll(const QString &closing, const QString &failure = {})
    {
        desktop.willBrowse(stick).willAnswer(Answer::Yes, u"This will copy all "_s);
        if (!failure.isEmpty())
            desktop.willSee(failure);
        if (!closing.isEmpty())
            desktop.willSee(closing);
        commands.mnuFileCopy_Click();
    }
    void copyOne(qint64 song)
    {
        ASSERT_TRUE(set.Data1().findRecord(song));
        commands.mnuPopupCopyFile_Click();
    }

    const QString stick = store.path(u"stick/"_s);
    QString copyFolder;
    FileCopyCommands commands{parts, copyFolder};
};

TEST_F(FileCopy, CopiesWhatIsDisplayedOnceUnderEachName)
{
    const QString done = u"Number of files copied to folder\n%1 = "_s.arg(stick);
    desktop.willBrowse(stick + u'/').willAnswer(Answer::Yes).willSee(done + u'2');
    commands.mnuFileCopy_Click();
    EXPECT_EQ(desktop.calls().at(0).text, u"Copy Music Files"_s);
    EXPECT_EQ(desktop.calls().at(0).title, u"Select a Folder"_s);
    EXPECT_EQ(desktop.calls().at(0).startFolder, QDir::currentPath());
    EXPECT_EQ(desktop.calls().at(1).title, u"Confirmation.  Number of files to copy: 7"_s);
    EXPECT_EQ(desktop.calls().at(1).text,
              u"This will copy all 7 files displayed on the Grid to:\n%1 except any duplicate file names "
              "will only be copied once.\n\nProceed?"_s.arg(stick));
    EXPECT_EQ(desktop.lastCall().title, u"Done"_s);
    EXPECT_EQ(desktop.lastCall().text, done + u'2');
    EXPECT_EQ(onStick(), (QStringList{u"O\"Hara & 'x'.mp3"_s, u"日本.mp3"_s}));
    EXPECT_EQ(read(u"stick/O\"Hara & 'x'.mp3"_s), "first") << "the list's first";
    EXPECT_EQ(read(u"stick/日本.mp3"_s).size(), 300'000);
    EXPECT_FALSE(commands.isRunning());

    copyAll(done + u'0');
    EXPECT_EQ(desktop.calls().at(3).startFolder, stick + u'/') << "remembered";
    desktop.willBrowse({});
    commands.mnuFileCopy_Click();
    desktop.willBrowse(stick).willAnswer(Answer::No);
    commands.mnuFileCopy_Click();
    store.db().Execute(u"Delete * from tblContacts"_s);
    set.Data1().Refresh();
    desktop.willSee(u"No files to copy"_s);
    commands.mnuFileCopy_Click();
}

TEST_F(FileCopy, StopsWhenTheWaitWindowIsClosed)
{
    // Before anything, while the room is looked at, and behind the first file.
    for (const int tick : {1, 2, 12}) {
        SCOPED_TRACE(tick);
        desktop.atEvents(desktop.eventsRun() + tick, [this] { desktop.closeWorkingForm(); });
        copyAll(tick == 12 ? stick + u" = 1"_s : QString());
        EXPECT_EQ(onStick().size(), tick == 12 ? 1 : 0);
    }
}

TEST_F(FileCopy, TellsHowManyArrivedWhenTheDiskIsFullOrShut)
{
    {
        const FullDisk disk(100'000);
        desktop.willBrowse(stick).willAnswer(Answer::Yes);
        desktop.willSee(u"Number of files that could not be copied: 1\nThe disk is full."_s)
            .willSee(u" = 1"_s);
        commands.mnuFileCopy_Click();
    }
    EXPECT_EQ(onStick(), QStringList(u"O\"Hara & 'x'.mp3"_s));
    QFile::remove(stick + u"O\"Hara & 'x'.mp3"_s);
    const OrdinaryUser user({store.folder()});
    copyAll(u" = 0"_s, u"could not be copied: 3\nPermission denied"_s);
    EXPECT_EQ(onStick(), QStringList());
}

TEST_F(FileCopy, TellsOfTooLittleRoomOnceTheWaitWindowIsGone)
{
    desktop.willBrowse(u"/proc/"_s).willAnswer(Answer::Yes).willSee(u"These music files need "_s);
    desktop.meanwhile([this] { EXPECT_FALSE(commands.isRunning()); });
    commands.mnuFileCopy_Click();
}

TEST_F(FileCopy, CopiesTheCurrentFileAndReplacesOnlyWhenTold)
{
    desktop.willBrowse(stick).willSee(u"File 日本.mp3\ncopied to folder\n"_s + stick);
    copyOne(imagine);
    EXPECT_EQ(desktop.lastCall().title, u"File Copied"_s);
    EXPECT_EQ(desktop.calls().at(0).text, u"Copy to:"_s);
    EXPECT_EQ(desktop.calls().at(0).title, u"Select Destination Folder"_s);

    desktop.willBrowse(stick).willSee(u"File O\"Hara & 'x'.mp3"_s);
    copyOne(queen);
    const QString overwrite =
        u"Copying to selected folder:\n%1\nA file with the same name already exists in the "
        "selected folder.\nOverwrite?"_s.arg(stick);
    desktop.willBrowse(stick).willAnswer(Answer::No, overwrite);
    copyOne(sos);
    EXPECT_EQ(desktop.lastCall().title, u"Replace existing file?"_s);
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
    EXPECT_EQ(read(u"stick/O\"Hara & 'x'.mp3"_s), "first");
    desktop.willBrowse(stick).willAnswer(Answer::Yes, overwrite).willSee(u"copied to folder"_s);
    copyOne(sos);
    EXPECT_EQ(read(u"stick/O\"Hara & 'x'.mp3"_s), "second");
    {
        const FullDisk disk(100'000);
        desktop.willBrowse(stick).willAnswer(Answer::Yes).willSee(u"The disk is full."_s);
        copyOne(imagine);
        EXPECT_EQ(read(u"stick/日本.mp3"_s).size(), 300'000) << "the old one is whole";
    }
    desktop.willBrowse(store.path(u"music/b/"_s)).willAnswer(Answer::Yes);
    desktop.willSee(u"File can not be copied onto itself."_s);
    copyOne(sos);
    EXPECT_EQ(read(u"music/b/O\"Hara & 'x'.mp3"_s), "second");
    desktop.willSee(u"File not found to copy.  It may have been moved or deleted since last cataloged."_s);
    copyOne(4);
    EXPECT_EQ(desktop.lastCall().title, u"File does not exist"_s);
    desktop.willBrowse({});
    copyOne(sos);
    EXPECT_EQ(onStick().size(), 2);
}

} // namespace

} // namespace quaverly::test
