// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/RenameNotes.h"
#include "catalogue/CatalogueSchema.h"
#include "support/Files.h"
#include "support/Limits.h"
#include "support/store/StoreFixture.h"

#include <sys/file.h>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

/** A catalogue with one song in two play lists, and its file. */
class TheRename : public testing::Test
{
protected:
    TheRename()
    {
        QDir(data.folder()).mkdir(u"new"_s);
        writeFile(from + name);
        data.addSong(Song(u"SOS"_s).file(from, name));
        for (const auto &list : {u"one"_s, u"two"_s}) {
            const qint64 id = data.addPlayList(list);
            data.addRow(u"tblPlayListDetail"_s, {{u"ListID"_s, id}, {u"FileName"_s, from + name}});
        }
    }
    void keep(qint64 song = 1) { notes.keep(song, {from, name}, {to, newName}); }
    [[nodiscard]] QString file(qint64 song = 1)
    {
        return data.songValue(song, u"PathName"_s).toString() +
               data.songValue(song, u"FileName"_s).toString();
    }
    [[nodiscard]] QStringList tracks()
    {
        return data.column(u"Select FileName from tblPlayListDetail Order By ListID"_s);
    }
    [[nodiscard]] qint64 notesLeft()
    {
        return data.valueOf(u"Select Count(*) from tblRenameNotes"_s).toLongLong();
    }
    void expectAt(const QString &path)
    {
        EXPECT_EQ(file(), path);
        EXPECT_EQ(tracks(), QStringList({path, path}));
    }

    StoreFixture data;
    const QString from = data.folder();
    const QString to = data.path(u"new/"_s);
    const QString name = u"O\"Hara 'x'.mp3"_s;
    const QString newName = u"b \"2\".mp3"_s;
    RenameNotes notes{data.catalogue()};
};

TEST_F(TheRename, IsSettledByWhatTheDiskHolds)
{
    const auto expectAfter = [&](const QStringList &files, const QString &path, qint64 left) {
        SCOPED_TRACE(qPrintable(files.join(u'|')));
        keep();
        QFile::remove(from + name);
        for (const QString &there : files)
            writeFile(there);
        data.reopen();
        EXPECT_EQ(notes.settle(), QStringList());
        expectAt(path);
        EXPECT_EQ(notesLeft(), left);
        for (const QString &there : files)
            QFile::remove(there);
    };
    expectAfter({}, from + name, 0);
    expectAfter({from + name}, from + name, 0);
    expectAfter({from + name, to + newName}, from + name, 0);
    // The volume is gone, and comes back with the file.
    ASSERT_TRUE(QDir(data.folder()).rename(u"new"_s, u"away"_s));
    expectAfter({}, from + name, 1);
    ASSERT_TRUE(QDir(data.folder()).rename(u"away"_s, u"new"_s));
    expectAfter({to + newName}, to + newName, 0);
}

TEST_F(TheRename, LeavesAloneWhatIsNotItsOwn)
{
    // One row was given another file by hand, one song bears the new file already, one track another case.
    const qint64 changed = data.addSong(Song(u"b"_s).file(from, u"by hand.mp3"_s));
    const QString twin = from + name.toUpper();
    data.addRow(u"tblPlayListDetail"_s, {{u"ListID"_s, 9}, {u"FileName"_s, twin}});
    keep(changed);
    ASSERT_TRUE(QFile::rename(from + name, to + newName));
    EXPECT_EQ(notes.settle(), QStringList());
    EXPECT_EQ(file(changed), from + u"by hand.mp3"_s);
    EXPECT_EQ(tracks(), QStringList({to + newName, to + newName, twin}));

    keep(77);
    EXPECT_EQ(notes.settle(), QStringList());
    EXPECT_EQ(notesLeft(), 0);
}

TEST_F(TheRename, IsUndoneWhereAnotherSongHasTheFile)
{
    const qint64 twin = data.addSong(Song(u"Twin"_s).file(to, newName));
    data.addRow(u"tblPlayListDetail"_s,
                {{u"ListID"_s, 9}, {u"FileName"_s, to + newName}, {u"ContactRecordID"_s, twin}});
    keep();
    ASSERT_TRUE(QFile::rename(from + name, to + newName));
    // Its old name is taken: the note stays, and is told at each start.
    ASSERT_TRUE(QDir().mkdir(from + name));
    for (int start = 0; start < 2; ++start) {
        data.reopen();
        const QString told = notes.settle().join(u'|');
        EXPECT_TRUE(told.contains(u"The file of \"SOS\" was renamed"_s) && told.contains(u"\"Twin\""_s) &&
                    told.endsWith(u"tries again at each start."_s))
            << qPrintable(told);
        EXPECT_EQ(notesLeft(), 1);
        EXPECT_EQ(file(), from + name);
        EXPECT_EQ(tracks(), QStringList(3, to + newName)) << "where the file is";
    }
    ASSERT_TRUE(QDir().rmdir(from + name));
    EXPECT_TRUE(notes.settle().join(u'|').endsWith(u"The file has its old name again."_s));
    EXPECT_TRUE(QFile::exists(from + name) && !QFile::exists(to + newName));
    EXPECT_EQ(tracks(), QStringList({from + name, from + name, to + newName}));
    EXPECT_EQ(notesLeft(), 0);
}

TEST_F(TheRename, ClearsWhatAMoveLeftHalfDone)
{
    const QString part = to + u".quaverly-aB3dE6.part"_s;
    const QString taken = to + u".quaverly-taken1.part"_s;
    writeFile(taken, "another process");
    QFile held(taken);
    ASSERT_TRUE(held.open(QIODevice::ReadOnly));
    ASSERT_EQ(::flock(held.handle(), LOCK_EX), 0);
    struct
    {
        QByteArray second;
        bool stays;
    } const cases[] = {{"the song", false}, {"", false}, {"their song", true}};
    for (const auto &[second, stays] : cases) {
        SCOPED_TRACE(second.constData());
        writeFile(from + name, "the song");
        writeFile(to + newName, second);
        writeFile(part, "the so");
        keep();
        EXPECT_EQ(notes.settle(), QStringList());
        expectAt(from + name);
        EXPECT_EQ(bytesOf(from + name), "the song");
        EXPECT_EQ(QFile::exists(to + newName), stays);
        EXPECT_TRUE(!QFile::exists(part) && QFile::exists(taken));
        EXPECT_EQ(notesLeft(), 0);
    }
    QFile::remove(to + newName);
    // It died between two spellings.
    keep();
    ASSERT_TRUE(QFile::rename(from + name, from + u".quaverly-aB3dE6.song"_s));
    EXPECT_EQ(notes.settle(), QStringList());
    EXPECT_EQ(bytesOf(from + name), "the song");
    // One file under a folder's two names is no second copy.
    ASSERT_TRUE(QFile::link(from, data.path(u"alias"_s)));
    notes.keep(1, {from, name}, {data.path(u"alias/"_s), name});
    EXPECT_EQ(notes.settle(), QStringList());
    EXPECT_EQ(bytesOf(from + name), "the song");
}

TEST_F(TheRename, IsNotedInOlderCataloguesAndNotBegunInReadOnlyOnes)
{
    const QString old = data.path(u"old.mdb"_s);
    dao::DBEngine(catalogueSchema(1)).CreateEmpty(old);
    data.close();
    data.catalogue().DatabaseFile = old;
    for (const bool writable : {false, true}) {
        const LockedFolder locked(old, data.folder(),
                                  writable ? QFile::ReadOwner | QFile::WriteOwner : QFile::ReadOwner);
        data.open();
        if (writable)
            EXPECT_NO_THROW(keep());
        else
            EXPECT_THROW(keep(), dao::DaoError);
        EXPECT_TRUE(!writable || notesLeft() == 1);
        EXPECT_EQ(notes.settle(), QStringList());
        data.close();
    }
}

} // namespace
