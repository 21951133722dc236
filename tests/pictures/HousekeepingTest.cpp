// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PicturesFixture.h"
#include "support/Limits.h"

#include <filesystem>
#include <fstream>

using namespace Qt::StringLiterals;

namespace quaverly::test {

class HousekeepingTest : public PicturesTest
{
protected:
    static qsizetype count(const QString &folder)
    {
        return QDir(folder).entryList(QDir::Files | QDir::System | QDir::Hidden).size();
    }
};

TEST_F(HousekeepingTest, DeletesPicturesThatNoSongHas)
{
    m_desktop.willSee(u"No pictures exist."_s);
    m_housekeeping.OphanedPictures_Click();
    const QStringList linked{u"a.jpg"_s, u"Say \"hi\".jpg"_s, u"Été.jpg"_s, u"EIGHT.JPG"_s};
    for (const QString &name : linked + QStringList{u"lost.jpg"_s, u"lost \"2\".jpg"_s})
        writeFile(pictures(name));
    song(u"One"_s, {u"a.jpg"_s, u"Say \"hi\".jpg"_s});
    song(u"Two"_s, {u"été.jpg"_s, {}, {}, {}, {}, {}, {}, u"eight.jpg"_s});
    m_desktop.willAnswer(Answer::Yes, u"Number of orphaned pictures found: 2.\r\nThese are"_s)
        .willSee(u"Orphaned pictures deleted."_s)
        .willSee(u"No orphaned pictures found."_s);
    m_housekeeping.OphanedPictures_Click();
    EXPECT_EQ(m_desktop.calls().at(1).title, u"Clean-up Confirmation"_s);
    EXPECT_EQ(m_desktop.calls().at(1).defaultAnswer, Answer::No);
    EXPECT_EQ(count(pictures()), linked.size());
    m_housekeeping.OphanedPictures_Click();
}

TEST_F(HousekeepingTest, MovesThemOrLeavesThem)
{
    writeFile(pictures(u"lost.jpg"_s), "new");
    writeFile(deleted(u"lost.jpg"_s), "old");
    const std::string odd = QFile::encodeName(pictures()).toStdString() + "M\xFCller.jpg";
    std::ofstream(odd) << "old name";
    m_desktop.willAnswer(Answer::No, u"pictures found: 2."_s)
        .willAnswer(Answer::No, u"move them"_s)
        .willSee(u"left in the Quaverly"_s);
    m_housekeeping.OphanedPictures_Click();
    EXPECT_EQ(m_desktop.lastCall().title, u"Pictures not deleted."_s);
    EXPECT_EQ(bytesOf(deleted(u"lost.jpg"_s)), "old");
    m_desktop.willAnswer(Answer::No).willAnswer(Answer::Yes).willSee(u"moved to the Quaverly Deleted"_s);
    m_housekeeping.OphanedPictures_Click();
    EXPECT_EQ(bytesOf(deleted(u"lost.jpg"_s)), "new");
    EXPECT_EQ(count(pictures()), 0);
    EXPECT_FALSE(std::filesystem::exists(odd));
    EXPECT_EQ(countFilesOf(deleted()), 2);
    m_desktop.willAnswer(Answer::Yes).willSee(u"Files deleted."_s);
    m_housekeeping.EmptyDeletedPicturesFolder_Click();
    EXPECT_EQ(countFilesOf(deleted()), 0);
}

TEST_F(HousekeepingTest, EmptiesOneFolderAndNothingElse)
{
    m_desktop.willSee(u"No Deleted Pictures exist."_s);
    m_housekeeping.EmptyDeletedPicturesFolder_Click();
    const QString precious = m_store.path(u"precious/"_s);
    for (const QString &path : {precious + u"one"_s, deleted(u"sub/two"_s), deleted(u"*.jpg"_s)})
        writeFile(path);
    QFile::link(precious, deleted(u"link to folder"_s));
    QFile::link(precious + u"one"_s, deleted(u"link to file"_s));
    QFile(deleted(u"*.jpg"_s)).setPermissions(QFile::ReadOwner);
    m_desktop.willAnswer(Answer::No, u"from the \r\n"_s + deleted() + u" folder?"_s);
    m_housekeeping.EmptyDeletedPicturesFolder_Click();
    EXPECT_EQ(count(deleted()), 2);
    m_desktop.willAnswer(Answer::Yes).willSee(u"Files deleted."_s);
    m_housekeeping.EmptyDeletedPicturesFolder_Click();
    EXPECT_EQ(QDir(deleted()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System),
              QStringList{u"sub"_s});
    EXPECT_TRUE(QFile::exists(precious + u"one"_s) && QFile::exists(deleted(u"sub/two"_s)));

    QDir(deleted()).removeRecursively();
    QFile::link(precious, m_store.path(u"Deleted Pictures"_s));
    m_desktop.willSee(u"No Deleted Pictures exist."_s);
    m_housekeeping.EmptyDeletedPicturesFolder_Click();
    EXPECT_TRUE(QFile::exists(precious + u"one"_s)) << "the folder itself is a link";
}

TEST_F(HousekeepingTest, SaysWhatItCannotDelete)
{
    writeFile(deleted(u"one.jpg"_s));
    {
        const LockedFolder locked(deleted(), m_store.folder());
        m_desktop.willAnswer(Answer::Yes).willSee(u"Path/File access error: "_s + deleted(u"one.jpg"_s));
        m_housekeeping.EmptyDeletedPicturesFolder_Click();
    }
    EXPECT_EQ(count(deleted()), 1);
}

} // namespace quaverly::test
