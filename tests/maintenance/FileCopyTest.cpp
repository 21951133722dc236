// SPDX-License-Identifier: GPL-3.0-or-later
#include "MaintenanceFixture.h"

#include "desktop/MusicFolder.h"
#include "maintenance/FileCopyCommands.h"
#include "support/Files.h"
#include "support/Limits.h"

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

const QString Shared = u"O\"Hara & 'x'.mp3"_s;
const QString Big = u"日本.mp3"_s;

/** Four songs: three files, one of them under a name that another has, too, and one that is missing. */
class FileCopy : public Maintenance
{
protected:
    void SetUp() override
    {
        QDir().mkpath(stick);
        store.db().Execute(u"Delete * from tblContacts"_s);
        add(u"music/a/"_s, Shared, "first");
        add(u"music/b/"_s, Shared, "second");
        add(u"music/b/"_s, Big, QByteArray(300'000, 'i'));
        add(u"gone/"_s, u"lost.mp3"_s, {});
        QFile::remove(store.path(u"gone/lost.mp3"_s));
        set.ShowAllMenu_Click();
    }
    void add(const QString &folder, const QString &name, const QByteArray &sound)
    {
        store.addSong(Song(folder).file(store.path(folder), name));
        writeFile(store.path(folder + name), sound);
    }
    [[nodiscard]] QStringList onStick() const
    {
        return QDir(stick).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    /** The boxes behind the user's Yes are those of @p closing. */
    void copyAll(const QStringList &closing, const QString &folder = {})
    {
        desktop.willBrowse(folder.isEmpty() ? stick : folder).willAnswer(Answer::Yes, u"copy all 4 files"_s);
        for (const QString &box : closing)
            desktop.willSee(box);
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
    copyAll({done + u'2'}, stick + u'/');
    EXPECT_EQ(desktop.calls().at(0).startFolder, musicFolder());
    EXPECT_EQ(onStick(), (QStringList{Shared, Big}));
    EXPECT_EQ(bytesOf(stick + Shared), "first") << "the list's first";
    EXPECT_EQ(bytesOf(stick + Big).size(), 300'000);
    EXPECT_FALSE(busy);

    copyAll({done + u'0'});
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
        copyAll(tick == 12 ? QStringList(stick + u" = 1"_s) : QStringList());
        EXPECT_EQ(onStick().size(), tick == 12 ? 1 : 0);
    }
}

TEST_F(FileCopy, TellsHowManyArrivedWhenTheDiskIsFullOrShut)
{
    {
        const FullDisk disk(100'000);
        copyAll({u"Number of files that could not be copied: 1\nThe disk is full."_s, u" = 1"_s});
        EXPECT_EQ(onStick(), QStringList(Shared));
        QFile::remove(stick + Shared);
    }
    {
        const LockedFolder locked(stick, store.folder());
        copyAll({u"could not be copied: 3\nPermission denied"_s, u" = 0"_s});
        EXPECT_EQ(onStick(), QStringList());
    }
    copyAll({u"These music files need "_s}, u"/proc/"_s);
}

TEST_F(FileCopy, CopiesTheCurrentFileAndReplacesOnlyWhenTold)
{
    desktop.willBrowse(stick).willSee(u"File "_s + Big + u"\ncopied to folder\n"_s + stick);
    copyOne(3);
    desktop.willBrowse(stick).willSee(u"File "_s + Shared);
    copyOne(1);
    const QString overwrite =
        u"Copying to selected folder:\n%1\nA file with the same name already exists in the "
        "selected folder.\nOverwrite?"_s.arg(stick);
    desktop.willBrowse(stick).willAnswer(Answer::No, overwrite);
    copyOne(2);
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
    EXPECT_EQ(bytesOf(stick + Shared), "first");
    desktop.willBrowse(stick).willAnswer(Answer::Yes, overwrite).willSee(u"copied to folder"_s);
    copyOne(2);
    EXPECT_EQ(bytesOf(stick + Shared), "second");
    {
        const FullDisk disk(100'000);
        desktop.willBrowse(stick).willAnswer(Answer::Yes).willSee(u"The disk is full."_s);
        copyOne(3);
        EXPECT_EQ(bytesOf(stick + Big).size(), 300'000) << "the old one is whole";
    }
    desktop.willBrowse(store.path(u"music/b/"_s)).willAnswer(Answer::Yes);
    desktop.willSee(u"File can not be copied onto itself."_s);
    copyOne(2);
    EXPECT_EQ(bytesOf(store.path(u"music/b/"_s) + Shared), "second");
    desktop.willSee(u"File not found to copy.  It may have been moved or deleted since last cataloged."_s);
    copyOne(4);
    desktop.willBrowse({});
    copyOne(2);
    EXPECT_EQ(onStick().size(), 2);
}

} // namespace

} // namespace quaverly::test
