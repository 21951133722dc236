// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/IntakeFixture.h"
#include "samples/Silence.h"
#include "support/Limits.h"

#include <QDir>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace tagbytes;

namespace quaverly::test {

TEST_F(IntakeTest, HostileFilesDoNotKeepTheGoodOnesOut)
{
    const QByteArray song = mp3File(latin1Frame("TIT2", "Good"));
    const QByteArray hugeAtom = m4aFile(itemAtom("\251nam", "n")) + QByteArray::fromHex("7fffffff") + "mdat";
    const QByteArray negativeAtom = QByteArray::fromHex("80000000") + "ftypM4A ";
    const QString longName = QString(251, u'n') + u".mp3"_s;
    writeAll({u"empty.mp3", u"empty.flac"}, {});
    write(u"text.mp3"_s, "This is a letter, no song.\n");
    write(u"cut.m4a"_s, m4aFile(itemAtom("\251nam", "n")).left(150));
    write(u"huge.m4a"_s, hugeAtom);
    write(u"negative.m4a"_s, negativeAtom);
    writeAll({u"a\nline.mp3", u"it's \"quoted\".mp3", u"zz/last.mp3"}, song);
    write(longName, song);
    write(u"sparse.wav"_s, samples::silence(u"wav"));
    ASSERT_TRUE(QFile(music(u"sparse.wav"_s)).resize(qint64(2) << 30));
    ASSERT_EQ(::mkfifo(QFile::encodeName(music(u"fifo.mp3"_s)).constData(), 0600), 0);
    ASSERT_EQ(::symlink("/dev/zero", QFile::encodeName(music(u"device.mp3"_s)).constData()), 0);
    QDir().mkpath(music(u"folder.mp3"_s));
    ASSERT_TRUE(QFile::copy(music(u"zz/last.mp3"_s), music(u"latin.mp3"_s)));
    ASSERT_EQ(::rename(QFile::encodeName(music(u"latin.mp3"_s)).constData(),
                       QByteArray(QFile::encodeName(music()) + "caf\xE9.mp3").constData()),
              0);

    QString listed;
    m_desktop.willAnswer(Answer::More).meanwhile([&] { listed = report(); });
    m_loader->LoadMusicFiles(music(), {});
    EXPECT_TRUE(m_desktop.lastCall().text.startsWith(u"Number of songs added to database: 11\r"_s));
    EXPECT_TRUE(m_desktop.lastCall().text.contains(
        u"\r\n\r\nPassed over: 1 name that the system refuses and 2 files that can't be reached.\r\n\r\n"_s));
    EXPECT_EQ(m_desktop.lastCall().offered, u"Show &Report"_s);
    EXPECT_EQ(m_desktop.urls().last().toLocalFile(), m_store.path(u"state/report.txt"_s));
    EXPECT_EQ(listed, report()) << "whole before the box shows";
    for (const QString &name : {longName, u"a\nline.mp3"_s, u"it's \"quoted\".mp3"_s})
        EXPECT_EQ(stored(u"SongName"_s, name).toString(), u"Good"_s) << name.toStdString();
    EXPECT_EQ(stored(u"PathName"_s, u"last.mp3"_s).toString(), music(u"zz/"_s));
    EXPECT_EQ(stored(u"SongName"_s, u"text.mp3"_s).toString(), u"text.mp3"_s);

    const QStringList lines = report().split(u'\n', Qt::SkipEmptyParts);
    const auto isReported = [&](const QString &path) {
        return std::any_of(lines.begin(), lines.end(), [&](const QString &line) {
            return line.section(u'\t', 0, 0) == path && !line.section(u'\t', 1).isEmpty();
        });
    };
    for (const char16_t *name :
         {u"empty.mp3", u"empty.flac", u"text.mp3", u"fifo.mp3", u"device.mp3", u"caf\uFFFD.mp3"})
        EXPECT_TRUE(isReported(music(QString::fromUtf16(name)))) << QString::fromUtf16(name).toStdString();
    EXPECT_FALSE(isReported(music(u"zz/last.mp3"_s)));
    EXPECT_TRUE(scan().contains(u"already in database: 11\r"_s));
    // No QString names it, so that the folder's own tidying would leave it.
    ::unlink((QFile::encodeName(music()) + "caf\xE9.mp3").constData());
}

TEST_F(IntakeTest, WhatVanishesDuringTheScanIsPassedOver)
{
    writeAll({u"a/1.mp3", u"b/2.mp3", u"c/3.mp3", u"c/4.ogg"}, mp3File());
    // By then the folders are gathered.
    m_desktop.atEvents(12, [&] {
        EXPECT_TRUE(QDir(music(u"b"_s)).removeRecursively());
        EXPECT_TRUE(QFile::remove(music(u"c/3.mp3"_s)));
    });
    scan();
    EXPECT_EQ(stored(u"FileName"_s), u"1.mp3|4.ogg"_s);
    EXPECT_EQ(report(), music(u"b/"_s) + u"\tThe folder can't be read\n"_s);
}

TEST_F(IntakeTest, UnreadableMusicIsAddedByItsName)
{
    write(u"locked.mp3"_s, mp3File(latin1Frame("TIT2", "Hidden")));
    write(u"locked.ogg"_s, oggFile({"TITLE=Hidden"}));
    {
        const LockedFolder mp3(music(u"locked.mp3"_s), m_store.folder(), {});
        const LockedFolder ogg(music(u"locked.ogg"_s), m_store.folder(), {});
        scan();
    }
    EXPECT_EQ(stored(u"SongName"_s), u"locked.mp3|locked.ogg"_s);
    EXPECT_EQ(report().count(u'\n'), 2);
}

TEST_F(IntakeTest, WhatTheCatalogueCannotHoldOrTheUserMayNotReadIsToldEveryTime)
{
    const QString deep = QString(120, u'd') + u'/' + QString(120, u'e') + u'/';
    writeAll({u"good.mp3", u"shut/in.mp3"}, mp3File());
    write(deep + u"long.mp3"_s, mp3File());
    const LockedFolder shut(music(u"shut"_s), m_store.folder(), {});
    for (const auto &added : {u"1\r"_s, u"0\r"_s}) {
        const QString text = scan();
        EXPECT_TRUE(text.startsWith(u"Number of songs added to database: "_s + added));
        EXPECT_TRUE(text.contains(
            u"Passed over: 1 folder that can't be read and 1 path of more than 255 characters."_s));
    }
    EXPECT_EQ(stored(u"FileName"_s), u"good.mp3"_s);
    EXPECT_EQ(report(), music(u"shut/"_s) + u"\tThe folder can't be read\n"_s + music(deep) +
                            u"long.mp3\tThe path is longer than the database holds\n"_s);
}

TEST_F(IntakeTest, AFolderSpeltOtherwiseIsTheSameFolder)
{
    writeAll({u"a/1.mp3", u"a/b/2.mp3"}, mp3File());
    scan();
    m_store.db().Execute(
        u"Update tblContacts Set PathName = '%1' Where FileName = '2.mp3'"_s.arg(music(u"/a/./b//"_s)));
    for (const auto *spelt : {u"", u"/", u"/a//", u"a/../a/b/"}) {
        m_desktop.willSee(u"Number of songs added to database: 0\r"_s);
        m_loader->LoadMusicFiles(music(QString::fromUtf16(spelt)), {});
    }
    EXPECT_EQ(m_state.LastMusicFolder, music(u"a/b/"_s));
}

TEST_F(IntakeTest, WithoutACatalogueTheScanStillEnds)
{
    writeAll({u"a.mp3", u"b.mp3"}, mp3File());
    m_store.close();
    const QString text = scan();
    EXPECT_TRUE(text.startsWith(u"Number of songs added to database: 2\r"_s))
        << "a refused row counts as well";
    EXPECT_TRUE(text.contains(u"Passed over: 2 songs that the database refused."_s));
    EXPECT_TRUE(report().contains(u'\n' + music(u"a.mp3"_s) + u'\t'));
    EXPECT_FALSE(report().contains(music() + u'\t')) << "by file, not by folder";
    EXPECT_TRUE(m_mainScreen.window.isEnabled());
}

} // namespace quaverly::test
