// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FileHelpers.h"
#include "platform/store/DaoError.h"
#include "support/Files.h"

#include <QTemporaryDir>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

class FileHelpers : public ::testing::Test
{
protected:
    QString make(const QString &name)
    {
        test::writeFile(path(name));
        return path(name);
    }
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};

TEST_F(FileHelpers, FileExistsMeansAFileOfThatExactName)
{
    make(u"Song.mp3"_s);
    make(u"a*b?.mp3"_s);
    make(u".hidden"_s);
    make(u" blanks "_s);
    make(u"Ünï\u4E2D.mp3"_s);
    QFile::setPermissions(make(u"readonly"_s), QFile::ReadOwner);
    ASSERT_TRUE(QDir().mkdir(path(u"folder"_s)));
    ASSERT_TRUE(QFile::link(path(u"Song.mp3"_s), path(u"link"_s)));
    ASSERT_TRUE(QFile::link(path(u"gone"_s), path(u"dangling"_s)));
    ASSERT_TRUE(QFile::link(path(u"folder"_s), path(u"folderlink"_s)));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), S_IRUSR), 0);

    for (const QString &name : {u"Song.mp3"_s, u"a*b?.mp3"_s, u".hidden"_s, u" blanks "_s, u"Ünï\u4E2D.mp3"_s,
                                u"readonly"_s, u"link"_s, u"folder/../Song.mp3"_s})
        EXPECT_TRUE(FileExists(path(name))) << name.toStdString();
    for (const QString &name :
         {u"song.mp3"_s, u"*"_s, u"S*.mp3"_s, u"Song.mp3/"_s, u"Song.mp3 "_s, u"folder"_s, u"folder/"_s,
          u"dangling"_s, u"folderlink"_s, u"pipe"_s, u"Song.mp3"_s + QChar(u'\0'),
          u"Song.mp3"_s + QChar(u'\0') + u"x"_s, QString(300, u'x'), u"Song.mp3/below"_s})
        EXPECT_FALSE(FileExists(path(name))) << name.toStdString();
    EXPECT_FALSE(FileExists(QString()));
}

TEST_F(FileHelpers, AHalfCharacterNamesNoOtherFile)
{
    const QString half = u"x"_s + QChar(0xD800);
    make(QFile::decodeName(QFile::encodeName(half)));
    EXPECT_FALSE(FileExists(path(half)));
}

TEST_F(FileHelpers, FolderExistsWithAndWithoutSeparator)
{
    make(u"file"_s);
    ASSERT_TRUE(QDir().mkdir(path(u"Folder"_s)));
    ASSERT_TRUE(QFile::link(path(u"Folder"_s), path(u"link"_s)));
    for (const QString &folder : {path(u"Folder"_s), path(u"Folder/"_s), path(u"link"_s), u"/"_s})
        EXPECT_TRUE(FolderExists(folder)) << folder.toStdString();
    for (const QString &folder :
         {path(u"folder"_s), path(u"file"_s), path(u"file/"_s), path(u"F*"_s), QString()})
        EXPECT_FALSE(FolderExists(folder)) << folder.toStdString();
}

TEST(FileNames, ValidOnes)
{
    for (const QString &name :
         {u"a"_s, u" a "_s, u"Song & Dance (1).mp3"_s, u"'quoted'"_s, u"Ünï"_s, u".hidden"_s})
        EXPECT_TRUE(IsValidFileName(name)) << name.toStdString();
    for (const QString &name : {QString(), u" "_s, u"   "_s, u"a"_s + QChar(u'\0')})
        EXPECT_FALSE(IsValidFileName(name)) << name.toStdString();
    for (const char16_t c : {u'*', u'\\', u'/', u':', u'?', u'|', u'<', u'>', u'"'})
        EXPECT_FALSE(IsValidFileName(u"a"_s + QChar(c) + u"b"_s)) << static_cast<char>(c);
}

TEST_F(FileHelpers, DeleteFileRemovesReadOnlyFilesAndLinksAloneAndTellsWhatStays)
{
    const QString file = make(u"readonly"_s);
    QFile::setPermissions(file, QFile::ReadOwner);
    ASSERT_TRUE(QFile::link(file, path(u"link"_s)));
    DeleteFile(path(u"link"_s));
    EXPECT_FALSE(FileExists(path(u"link"_s)));
    EXPECT_TRUE(FileExists(file));
    DeleteFile(file);
    EXPECT_FALSE(FileExists(file));
    ASSERT_TRUE(QDir().mkdir(path(u"folder"_s)));
    for (const QString &passedOver : {path(u"folder"_s), path(u"missing"_s), QString()})
        EXPECT_NO_THROW(DeleteFile(passedOver));
    EXPECT_TRUE(FolderExists(path(u"folder"_s)));
    EXPECT_THROW(DeleteFile(u"/proc/self/status"_s), dao::DaoError);
}

} // namespace
