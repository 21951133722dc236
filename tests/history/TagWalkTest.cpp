// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/TagNotes.h"
#include "history/ChangeWalk.h"
#include "platform/shell/TagWriter.h"
#include "samples/SampleMaker.h"
#include "support/Death.h"
#include "support/Files.h"
#include "support/store/StoreFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

/** A song whose file's tags are about to be written. */
class ATaggedSong : public ::testing::Test
{
protected:
    void SetUp() override
    {
        samples::SongTags tags;
        tags.title = u"Old"_s;
        samples::SampleMaker().makeSong(path, tags);
        song = store.addSong(Song(u"Old"_s, u"Abba"_s).file(store.folder(), u"a.mp3"_s));
        store.db().endChange();
        before = bytesOf(path);
    }
    static void write(Catalogue &catalogue, qint64 song, const QString &path)
    {
        shell::TagWriter writer(path, {.fields = {{u"TITLE"_s, {u"New"_s}}}},
                                shell::readFileTags(path).stamp);
        TagNotes(catalogue).write(song, path, writer);
        catalogue.CatalogueDb->endChange();
    }
    QStringList go(WalkDirection direction)
    {
        const dao::History history(store.db());
        return ChangeWalk(store.catalogue())
            .go(direction == WalkDirection::Back ? *history.undoable() : *history.redoable(), direction);
    }
    [[nodiscard]] QStringList hidden() const
    {
        return QDir(store.folder()).entryList({u".quaverly-*"_s}, QDir::Files | QDir::Hidden);
    }

    StoreFixture store;
    const QString path = store.folder() + u"a.mp3"_s;
    QByteArray before;
    qint64 song = 0;
};

TEST_F(ATaggedSong, GoesBackByteForByteUnlessAnotherProgramChangedIt)
{
    write(store.catalogue(), song, path);
    const QByteArray after = bytesOf(path);
    EXPECT_FALSE(after == before);
    EXPECT_EQ(go(WalkDirection::Back), QStringList());
    EXPECT_TRUE(bytesOf(path) == before);
    EXPECT_EQ(go(WalkDirection::Again), QStringList());
    EXPECT_TRUE(bytesOf(path) == after);
    writeFile(path, after + "x");
    EXPECT_EQ(go(WalkDirection::Back).size(), 1);
    EXPECT_TRUE(bytesOf(path) == after + "x");
}

TEST_F(ATaggedSong, ADeathAtAnyStepLeavesTheOldFileOrTheNewOneInTheHistory)
{
    int deaths = 0;
    for (bool died = true; died; deaths += died ? 1 : 0) {
        store.close();
        writeFile(path, before);
        died = diesAt(
            deaths + 1, [this] { store.open(); }, [this] { write(store.catalogue(), song, path); });
        store.open();
        TagNotes(store.catalogue()).settle();
        EXPECT_EQ(hidden(), QStringList());
        if (bytesOf(path) != before) {
            EXPECT_EQ(shell::readFileTags(path).fields[u"TITLE"_s], QStringList(u"New"_s));
            EXPECT_EQ(go(WalkDirection::Back), QStringList());
        }
        EXPECT_TRUE(bytesOf(path) == before);
    }
    EXPECT_GT(deaths, 4);
}

} // namespace

} // namespace quaverly::test
