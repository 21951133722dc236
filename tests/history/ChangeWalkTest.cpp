// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ChangeWalk.h"
#include "history/ChangeTexts.h"
#include "platform/shell/FileMove.h"
#include "platform/store/Sqlite.h"
#include "support/Death.h"
#include "support/Files.h"
#include "support/store/StoreFixture.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

/** A song with a file and two tracks, whose file was renamed as the editor does it. */
class ARenamedSong : public ::testing::Test
{
protected:
    void SetUp() override
    {
        store.catalogue().CatalogueDb->endChange();
        QDir(store.folder()).mkpath(u"m"_s);
        QFile file(old.path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("sound");
        file.close();
        song = store.addSong(Song(u"Sun"_s, u"Abba"_s).file(old.PathName, old.FileName));
        for (int i = 0; i < 2; ++i)
            store.addRow(u"tblPlayListDetail"_s, {{u"ListID"_s, 1}, {u"FileName"_s, old.path()}});
        store.db().endChange();
        RenameNotes notes(store.catalogue());
        notes.keep(song, old, renamed);
        shell::moveFile(old.path(), renamed.path());
        notes.renameTracks(old.path(), renamed.path());
        store.db().endChange();
        dao::Transaction saved(store.db().workspace());
        store.db().Execute(u"Update tblContacts Set FileName = 'new.mp3', Genre = 'Pop'"_s);
        notes.rowWritten(song);
        saved.commit();
        store.db().endChange();
    }

    QStringList go(WalkDirection direction)
    {
        const dao::History history(store.db());
        return ChangeWalk(store.catalogue())
            .go(direction == WalkDirection::Back ? *history.undoable() : *history.redoable(), direction);
    }
    /** Record, file and tracks name one place, which is that of the file. */
    void expectTogether(const SongFile &place)
    {
        EXPECT_EQ(store.songValue(song, u"FileName"_s), place.FileName);
        EXPECT_EQ(store.column(u"Select FileName From tblPlayListDetail"_s), QStringList(2, place.path()));
        EXPECT_EQ(QDir(old.PathName).entryList(QDir::Files | QDir::Hidden), QStringList(place.FileName));
        EXPECT_EQ(store.valueOf(u"Select Count(*) From tblRenameNotes"_s), 0);
    }

    StoreFixture store;
    const SongFile old{store.folder() + u"m/"_s, u"old.mp3"_s};
    const SongFile renamed{store.folder() + u"m/"_s, u"new.mp3"_s};
    qint64 song = 0;
};

TEST_F(ARenamedSong, GoesBackAndForthWithItsFile)
{
    const ChangeTexts texts(store.db());
    EXPECT_EQ(texts.sentence(*dao::History(store.db()).undoable()), u"Edit: Sun, by Abba (file renamed)"_s);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(go(WalkDirection::Back), QStringList());
        expectTogether(old);
        EXPECT_EQ(store.songValue(song, u"Genre"_s), QVariant());
        EXPECT_EQ(go(WalkDirection::Again), QStringList());
        expectTogether(renamed);
        EXPECT_EQ(store.songValue(song, u"Genre"_s), u"Pop"_s);
        store.reopen();
    }
}

TEST_F(ARenamedSong, StaysWhereSomethingStandsInItsWay)
{
    {
        QFile other(old.path());
        ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    }
    EXPECT_EQ(go(WalkDirection::Back), QStringList(u"There is another file now: \"%1\"."_s.arg(old.path())));
    QFile::remove(old.path());
    expectTogether(renamed);
    {
        dao::Connection elsewhere(store.catalogue().DatabaseFile, dao::Connection::Mode::ReadWrite);
        elsewhere.execute("UPDATE tblContacts SET Genre = 'Rock'");
    }
    EXPECT_EQ(go(WalkDirection::Back), QStringList(u"Sun, by Abba"_s));
    expectTogether(renamed);
    QFile::rename(renamed.path(), store.folder() + u"gone"_s);
    EXPECT_EQ(go(WalkDirection::Back),
              QStringList(u"The file \"%1\" is no longer there."_s.arg(renamed.path())));
    EXPECT_EQ(store.songValue(song, u"FileName"_s), renamed.FileName);
}

TEST_F(ARenamedSong, IsOneChangeWithTheTracksThatADeadSaveRenamed)
{
    EXPECT_EQ(go(WalkDirection::Back), QStringList());
    {
        RenameNotes notes(store.catalogue());
        notes.keep(song, old, renamed);
        shell::moveFile(old.path(), renamed.path());
        notes.renameTracks(old.path(), renamed.path());
    }
    store.reopen();
    EXPECT_EQ(RenameNotes(store.catalogue()).settle(), QStringList());
    expectTogether(renamed);
    EXPECT_EQ(go(WalkDirection::Back), QStringList());
    expectTogether(old);
    EXPECT_EQ(go(WalkDirection::Again), QStringList());
    expectTogether(renamed);
}

TEST_F(ARenamedSong, KilledOnItsWayBackIsWholeAtTheNextStart)
{
    const QString catalogue = store.catalogue().DatabaseFile;
    store.close();
    QFile::copy(catalogue, catalogue + u".before"_s);
    int deaths = 0;
    for (int step = 1;; ++step) {
        SCOPED_TRACE(step);
        const bool died = diesAt(
            step, [&] { store.open(); },
            [&] {
                if (!go(WalkDirection::Back).isEmpty())
                    std::_Exit(1);
            });
        store.open();
        EXPECT_EQ(RenameNotes(store.catalogue()).settle(), QStringList());
        store.db().endChange();
        const bool isBack = QFile::exists(old.path());
        expectTogether(isBack ? old : renamed);
        // Whatever the death left, the history leads to where the song was before it was renamed.
        while (store.songValue(song, u"Genre"_s) == u"Pop"_s)
            ASSERT_EQ(go(WalkDirection::Back), QStringList());
        expectTogether(old);
        store.close();
        for (const QString &ending : {u""_s, u"-wal"_s, u"-shm"_s})
            QFile::remove(catalogue + ending);
        QFile::copy(catalogue + u".before"_s, catalogue);
        QFile::rename(old.path(), renamed.path());
        if (!died)
            break;
        ++deaths;
    }
    EXPECT_GT(deaths, 4);
    store.open();
}

/** Six songs with a track each, whose files one change renamed; the last one took the name of another. */
class RenamedSongs : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QDir(store.folder()).mkpath(u"m"_s);
        store.db().endChange();
        for (int i = 1; i <= 6; ++i) {
            writeFile(path(u"old %1"_s.arg(i)), "sound");
            store.addSong(Song(u"Song %1"_s.arg(i)).file(folder, u"old %1"_s.arg(i)));
            store.addRow(u"tblPlayListDetail"_s,
                         {{u"ListTrackID"_s, i}, {u"FileName"_s, path(u"old %1"_s.arg(i))}});
        }
        writeFile(path(u"cover"_s), "picture");
        store.db().endChange();
        for (int i = 1; i <= 5; ++i)
            rename(i, u"old %1"_s.arg(i), u"new %1"_s.arg(i));
        rename(6, u"old 6"_s, u"between"_s);
        rename(6, u"between"_s, u"old 5"_s);
        dao::History(store.db()).notePictureMoved(5, path(u"cover"_s), path(u"retired"_s));
        QFile::rename(path(u"cover"_s), path(u"retired"_s));
        store.db().endChange();
    }
    void rename(qint64 song, const QString &from, const QString &to)
    {
        RenameNotes notes(store.catalogue());
        notes.keep(song, {folder, from}, {folder, to});
        shell::moveFile(path(from), path(to));
        notes.renameTracks(path(from), path(to));
        store.db().Execute(u"Update tblContacts Set FileName = '%1' Where RecordID = %2"_s.arg(to).arg(song));
        notes.rowWritten(song);
    }
    [[nodiscard]] QString path(const QString &name) const { return folder + name; }
    [[nodiscard]] QStringList go(WalkDirection direction, ChangeWalk::Conflicts conflicts)
    {
        const dao::History history(store.db());
        return ChangeWalk(store.catalogue())
            .go(direction == WalkDirection::Back ? *history.undoable() : *history.redoable(), direction,
                conflicts);
    }
    /** The files that the songs and the tracks name, which have to be the same. */
    [[nodiscard]] QString named()
    {
        const QStringList songs = store.column(u"Select FileName From tblContacts Order By RecordID"_s);
        QStringList tracks;
        for (const QString &track :
             store.column(u"Select FileName From tblPlayListDetail Order By ListTrackID"_s))
            tracks += track.mid(folder.size());
        EXPECT_EQ(songs, tracks);
        return songs.join(u',');
    }

    StoreFixture store;
    const QString folder = store.folder() + u"m/"_s;
};

TEST_F(RenamedSongs, GoBackTogetherOrWithoutThoseWhoseFilesAreGoneOrOthers)
{
    using Conflicts = ChangeWalk::Conflicts;
    const QString renamed = named();
    ASSERT_EQ(renamed, u"new 1,new 2,new 3,new 4,new 5,old 5"_s);
    for (const WalkDirection direction : {WalkDirection::Back, WalkDirection::Again}) {
        const bool back = direction == WalkDirection::Back;
        EXPECT_EQ(go(direction, Conflicts::Stop), QStringList());
        EXPECT_EQ(named(), back ? u"old 1,old 2,old 3,old 4,old 5,old 6"_s : renamed);
        EXPECT_EQ(QFile::exists(path(u"cover"_s)), back);
    }
    QFile::remove(path(u"new 1"_s));
    QFile::rename(path(u"new 2"_s), path(u"other"_s));
    QFile::copy(path(u"other"_s), path(u"new 2"_s));
    writeFile(path(u"new 3"_s), "sound, and more");
    writeFile(path(u"old 4"_s), "a newer one");
    const QStringList inTheWay = {u"There is another file now: \"%1\"."_s.arg(path(u"old 4"_s)),
                                  u"The file \"%1\" is another one, or was changed."_s.arg(path(u"new 3"_s)),
                                  u"The file \"%1\" is another one, or was changed."_s.arg(path(u"new 2"_s)),
                                  u"The file \"%1\" is no longer there."_s.arg(path(u"new 1"_s))};
    const auto sorted = [](QStringList lines) {
        lines.sort();
        return lines;
    };
    EXPECT_EQ(sorted(go(WalkDirection::Back, Conflicts::Stop)), sorted(inTheWay));
    EXPECT_EQ(named(), renamed);
    EXPECT_EQ(sorted(go(WalkDirection::Back, Conflicts::LeaveOut)), sorted(inTheWay));
    EXPECT_EQ(named(), u"new 1,new 2,new 3,new 4,old 5,old 6"_s);
    EXPECT_TRUE(QFile::exists(path(u"cover"_s)));
    EXPECT_EQ(go(WalkDirection::Again, Conflicts::LeaveOut).size(), 4);
    EXPECT_EQ(named(), renamed);
    EXPECT_EQ(store.valueOf(u"Select Count(*) From tblRenameNotes"_s), 0);
    // A song whose row was changed keeps its file.
    {
        dao::Connection elsewhere(store.catalogue().DatabaseFile, dao::Connection::Mode::ReadWrite);
        elsewhere.execute("UPDATE tblContacts SET FileName = 'elsewhere' WHERE RecordID = 4");
    }
    QFile::remove(path(u"old 4"_s));
    EXPECT_TRUE(go(WalkDirection::Back, Conflicts::LeaveOut).contains(u"Song 4"_s));
    EXPECT_TRUE(QFile::exists(path(u"new 4"_s)));
}

} // namespace

} // namespace quaverly::test
