// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/FileMove.h"
#include "platform/shell/FileSteps.h"
#include "support/Errors.h"
#include "support/Files.h"
#include "support/Limits.h"

#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quaverly::test;

namespace {

constexpr auto Rights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;

/** Files of music in two folders, and a third one: on another file system where this machine has two. */
class MusicFiles : public testing::Test
{
protected:
    MusicFiles()
    {
        QDir(m_folder.path()).mkpath(u"to/deep"_s);
        write(path(u"a.mp3"_s), "the song");
        QFile::setPermissions(path(u"a.mp3"_s), Rights);
    }
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }
    [[nodiscard]] QString elsewhere(const QString &name) const { return m_elsewhere.filePath(name); }
    static void write(const QString &file, const QByteArray &content)
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) << qPrintable(file);
        ASSERT_EQ(out.write(content), content.size());
        ASSERT_TRUE(out.setFileTime(QDateTime::fromMSecsSinceEpoch(1'000'000'123'456),
                                    QFileDevice::FileModificationTime));
    }
    [[nodiscard]] QStringList names(const QString &folder = {}) const
    {
        return QDir(path(folder))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }
    static int moveError(const QString &from, const QString &to)
    {
        return errorOf([&] { shell::moveFile(from, to); });
    }
    static int byCopyError(const QString &from, const QString &to)
    {
        return errorOf(
            [&] { shell::moveByCopy(shell::FilePath::ofSource(from), shell::FilePath::ofTarget(to)); });
    }
    static int copyError(const QString &from, const QString &to, const shell::CopyOptions &how = {})
    {
        return errorOf([&] { EXPECT_TRUE(shell::copyFile(from, to, how)); });
    }
    static void expectTheSong(const QString &file, const QByteArray &content = "the song")
    {
        EXPECT_EQ(bytesOf(file), content) << qPrintable(file);
        EXPECT_EQ(QFileInfo(file).lastModified().toMSecsSinceEpoch(), 1'000'000'123'456);
        EXPECT_EQ(QFile::permissions(file) & QFile::Permissions(0x7077), Rights) << qPrintable(file);
    }

    QTemporaryDir m_folder;
    QTemporaryDir m_elsewhere{folderOnAnotherFileSystem()};
};

TEST_F(MusicFiles, AreRenamedAndMovedAsTheyAre)
{
    const QString longest = QString(251, u'x') + u".mp3"_s;
    QString now = path(u"a.mp3"_s);
    for (const QString &next : {path(u"b \"quoted\".mp3"_s), path(u"to/A.mp3"_s), path(u"to/deep/a.mp3"_s),
                                elsewhere(u"日本 א & '%2'.mp3"_s), path(u" trailing . "_s),
                                elsewhere(longest), path(longest), path(u"a.mp3"_s), path(u"A.mp3"_s)}) {
        ASSERT_EQ(moveError(now, next), 0) << qPrintable(next);
        EXPECT_FALSE(QFileInfo::exists(now));
        now = next;
        expectTheSong(now);
    }
    EXPECT_EQ(moveError(now, now), 0);
    EXPECT_EQ(names(), (QStringList{u"A.mp3"_s, u"to"_s}));
}

TEST_F(MusicFiles, StayWhenTheyCannotBeMovedOrCopied)
{
    write(path(u"to/a.mp3"_s), "another");
    ASSERT_EQ(::mkfifo(path(u"pipe.mp3"_s).toLocal8Bit().constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(path(u"gone"_s), path(u"dangling.mp3"_s)));
    // Another file under a name that only differs in case, and one more name of the same file.
    write(path(u"to/A.MP3"_s), "capitals");
    ASSERT_EQ(::link(path(u"a.mp3"_s).toLocal8Bit().constData(), path(u"A.mp3"_s).toLocal8Bit().constData()),
              0);
    const QStringList before = names();
    struct
    {
        QString from;
        QString to;
        int number;
    } const cases[] = {
        {u"none.mp3"_s, u"b.mp3"_s, 53},
        {u"dangling.mp3"_s, u"b.mp3"_s, 53},
        {u"pipe.mp3"_s, u"b.mp3"_s, 53},
        {u"to"_s, u"b.mp3"_s, 53},
        {u"a.mp3"_s + QChar(u'\0'), u"b.mp3"_s, 53},
        {u"a.mp3"_s, u"to/a.mp3"_s, 58},
        {u"a.mp3"_s, u"to/A.MP3"_s, 58},
        {u"a.mp3"_s, u"to"_s, 58},
        {u"a.mp3"_s, u"dangling.mp3"_s, 58},
        {u"a.mp3"_s, u"nowhere/a.mp3"_s, 76},
        {u"a.mp3"_s, u"to/a.mp3/b.mp3"_s, 76},
        {u"a.mp3"_s, QString(256, u'x'), 75},
        {u"a.mp3"_s, u"b\xD800.mp3"_s, 75},
    };
    for (const auto &[from, to, number] : cases) {
        SCOPED_TRACE(qPrintable(from + u" > "_s + to));
        EXPECT_EQ(moveError(path(from), path(to)), number);
        EXPECT_EQ(copyError(path(from), path(to)), number);
        EXPECT_EQ(names(), before);
        EXPECT_EQ(bytesOf(path(u"to/a.mp3"_s)), "another");
        expectTheSong(path(u"a.mp3"_s));
    }
    EXPECT_EQ(moveError(path(u"a.mp3"_s), path(u"A.mp3"_s)), 58);
    EXPECT_FALSE(shell::isOwnNameInOtherCapitals(path(u"a.mp3"_s), path(u"A.mp3"_s)));
    EXPECT_TRUE(shell::freeSpace(m_folder.path()).value_or(0) > 0 && !shell::freeSpace(path(u"none"_s)));
    EXPECT_EQ(copyError(path(u"a.mp3"_s), path(u"A.mp3"_s), {true, {}}), 75);
    EXPECT_EQ(names(u"to"_s), (QStringList{u"A.MP3"_s, u"a.mp3"_s, u"deep"_s}));
}

TEST_F(MusicFiles, StayWithoutRights)
{
    write(path(u"to/deep/b.mp3"_s), "locked in");
    const LockedFolder locked(path(u"to/deep"_s), m_folder.path());
    EXPECT_EQ(moveError(path(u"a.mp3"_s), path(u"to/deep/a.mp3"_s)), 70);
    EXPECT_EQ(copyError(path(u"a.mp3"_s), path(u"to/deep/a.mp3"_s)), 70);
    EXPECT_EQ(moveError(path(u"to/deep/b.mp3"_s), path(u"b.mp3"_s)), 70);
    EXPECT_EQ(byCopyError(path(u"to/deep/b.mp3"_s), path(u"b.mp3"_s)), 70);
    EXPECT_EQ(names(), (QStringList{u"a.mp3"_s, u"to"_s}));
    EXPECT_EQ(names(u"to/deep"_s), QStringList(u"b.mp3"_s));
}

TEST_F(MusicFiles, MoveByCopyingWhole)
{
    // Around the size of a chunk, and none at all.
    for (const int size : {0, 1, 512 * 1024 - 1, 512 * 1024, 1'300'000}) {
        const QByteArray content = QByteArray("0123456789abcdef!").repeated(size / 17 + 1).first(size);
        write(path(u"a.mp3"_s), content);
        ASSERT_EQ(byCopyError(path(u"a.mp3"_s), path(u"to/b.mp3"_s)), 0);
        expectTheSong(path(u"to/b.mp3"_s), content);
        EXPECT_EQ(names(), QStringList(u"to"_s));
        ASSERT_TRUE(QFile::rename(path(u"to/b.mp3"_s), path(u"a.mp3"_s)));
    }
    write(path(u"to/a.mp3"_s), "another");
    EXPECT_EQ(byCopyError(path(u"a.mp3"_s), path(u"to/a.mp3"_s)), 58);
    EXPECT_EQ(byCopyError(path(u"a.mp3"_s), path(u"nowhere/a.mp3"_s)), 76);
    {
        const FullDisk disk(600'000);
        EXPECT_EQ(byCopyError(path(u"a.mp3"_s), path(u"to/b.mp3"_s)), 61);
        EXPECT_EQ(copyError(path(u"a.mp3"_s), path(u"to/a.mp3"_s), {true, {}}), 61);
    }
    EXPECT_EQ(QFileInfo(path(u"a.mp3"_s)).size(), 1'300'000);
    EXPECT_EQ(bytesOf(path(u"to/a.mp3"_s)), "another");
    EXPECT_EQ(names(u"to"_s), (QStringList{u"a.mp3"_s, u"deep"_s}));
}

TEST_F(MusicFiles, LinksStayLinksToTheSameFile)
{
    ASSERT_TRUE(QFile::link(u"a.mp3"_s, path(u"relative.mp3"_s)));
    ASSERT_TRUE(QFile::link(path(u"a.mp3"_s), path(u"absolute.mp3"_s)));
    for (const QString &link : {u"relative.mp3"_s, u"absolute.mp3"_s}) {
        ASSERT_EQ(moveError(path(link), path(u"to/deep/"_s + link)), 0);
        EXPECT_TRUE(QFileInfo(path(u"to/deep/"_s + link)).isSymLink());
        EXPECT_EQ(bytesOf(path(u"to/deep/"_s + link)), "the song");
        EXPECT_EQ(moveError(path(u"to/deep/"_s + link), path(u"a.mp3"_s)), 58);
        ASSERT_EQ(moveError(path(u"to/deep/"_s + link), path(link)), 0);
        EXPECT_EQ(bytesOf(path(link)), "the song");
    }
    EXPECT_EQ(QFile::symLinkTarget(path(u"relative.mp3"_s)), path(u"a.mp3"_s));
    ASSERT_EQ(moveError(path(u"relative.mp3"_s), elsewhere(u"b.mp3"_s)), 0);
    EXPECT_EQ(bytesOf(elsewhere(u"b.mp3"_s)), "the song");
    EXPECT_EQ(names(), (QStringList{u"a.mp3"_s, u"absolute.mp3"_s, u"to"_s}));
    EXPECT_EQ(names(u"to/deep"_s), QStringList());
}

TEST_F(MusicFiles, AreRenamedWithoutReplacingWhereTheSystemHasNoSuchStep)
{
    write(path(u"taken.mp3"_s), "another");
    for (const auto rename : {&shell::renameByLink, &shell::renameOverPlaceholder}) {
        const QByteArray from = path(u"a.mp3"_s).toUtf8();
        EXPECT_EQ(rename(from, path(u"taken.mp3"_s).toUtf8()), EEXIST);
        EXPECT_EQ(rename(path(u"none.mp3"_s).toUtf8(), path(u"b.mp3"_s).toUtf8()), ENOENT);
        EXPECT_EQ(names(), (QStringList{u"a.mp3"_s, u"taken.mp3"_s, u"to"_s}));
        EXPECT_EQ(rename(from, path(u"b.mp3"_s).toUtf8()), 0);
        expectTheSong(path(u"b.mp3"_s));
        ASSERT_TRUE(QFile::rename(path(u"b.mp3"_s), path(u"a.mp3"_s)));
    }
    EXPECT_EQ(bytesOf(path(u"taken.mp3"_s)), "another");
    shell::renameCapitals(shell::FilePath::ofSource(path(u"a.mp3"_s)),
                          shell::FilePath::ofTarget(path(u"A.mp3"_s)));
    EXPECT_EQ(names(), (QStringList{u"A.mp3"_s, u"taken.mp3"_s, u"to"_s}));
}

TEST_F(MusicFiles, AreCopiedUnderAnotherNameUntilTheyAreWhole)
{
    write(path(u"a.mp3"_s), QByteArray(1'300'000, 'x'));
    QList<qint64> seen;
    const auto lookOn = [&](qint64 done, qint64 all) {
        EXPECT_EQ(all, 1'300'000);
        EXPECT_EQ(bytesOf(path(u"to/a.mp3"_s)), "another");
        EXPECT_EQ(names(u"to"_s).size(), 3) << "the copy in the making";
        seen.append(done);
        return true;
    };
    write(path(u"to/a.mp3"_s), "another");
    EXPECT_FALSE(shell::copyFile(path(u"a.mp3"_s), path(u"to/a.mp3"_s),
                                 {true, [](qint64 done, qint64) { return done == 0; }}));
    EXPECT_EQ(bytesOf(path(u"to/a.mp3"_s)), "another");
    EXPECT_EQ(names(u"to"_s), (QStringList{u"a.mp3"_s, u"deep"_s}));
    ASSERT_EQ(copyError(path(u"a.mp3"_s), path(u"to/a.mp3"_s), {true, lookOn}), 0);
    EXPECT_EQ(seen, (QList<qint64>{0, 524288, 1048576, 1300000}));
    expectTheSong(path(u"to/a.mp3"_s), QByteArray(1'300'000, 'x'));

    // Changed while it is copied: neither the old nor the new song.
    const auto rewrite = [&](qint64 done, qint64) {
        if (done > 0)
            QFile::resize(path(u"a.mp3"_s), 600'000);
        return true;
    };
    EXPECT_EQ(copyError(path(u"a.mp3"_s), path(u"to/b.mp3"_s), {false, rewrite}), 75);
    EXPECT_EQ(names(u"to"_s), (QStringList{u"a.mp3"_s, u"deep"_s}));
}

} // namespace
