// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/cMP3ID3v2.h"
#include "intake/fuzz/Mp3TagFuzz.h"
#include "support/Files.h"
#include "support/Mutation.h"
#include "support/QtPrinters.h"
#include "support/TagBytes.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tagbytes;

namespace quaverly::test {

namespace {

/** A tag whose size says @p size, whatever follows. */
QByteArray tag(char version, quint32 size, const QByteArray &frames)
{
    return "ID3" + QByteArray(1, version) + QByteArray(2, '\0') + bigEndian(size) + frames;
}

QByteArray shortFrame(const QByteArray &id, const QByteArray &content)
{
    return id + bigEndian(static_cast<quint32>(content.size())).mid(1) + content;
}

QString sourceOf(const std::function<void()> &act)
{
    try {
        act();
    } catch (const Mp3TagError &error) {
        return error.source;
    }
    return u"no error"_s;
}

class Mp3Tag : public ::testing::Test
{
protected:
    QString write(const QByteArray &bytes)
    {
        const QString file = m_folder.filePath(u"song.mp3"_s);
        writeFile(file, bytes);
        return file;
    }
    cMP3ID3v2 &read(const QByteArray &bytes)
    {
        m_tag.setMP3File(write(bytes));
        return m_tag;
    }
    [[nodiscard]] QStringList frames() const
    {
        QStringList ids;
        for (qint32 i = 1; i <= m_tag.FrameCount(); ++i)
            ids += m_tag.Frame(i);
        return ids;
    }

    QTemporaryDir m_folder;
    cMP3ID3v2 m_tag;
    const QByteArray m_title = latin1Frame("TIT2", "Tiger");
    /** Two artists and a title. */
    const QByteArray m_frames = latin1Frame("TPE1", "Abba") + m_title + latin1Frame("TPE1", "Blur") +
                                latin1Frame("TPE1", "Cher") + QByteArray(64, '\0');
};

} // namespace

TEST_F(Mp3Tag, IsFoundBeforeTheFirstSound)
{
    const QByteArray all = tag(3, 100'000, m_title + QByteArray(99, '\0'));
    const std::pair<QByteArray, bool> cases[] = {{all, true},
                                                 {QByteArray(4094, 'x') + all, true},
                                                 {"\xFF\xFB" + QByteArray(500, 'x') + all, true},
                                                 {"\xFF\xFB" + QByteArray(5000, 'x') + all, false},
                                                 {{}, false},
                                                 {"xID3", false},
                                                 {QByteArray(9000, 'x'), false}};
    for (const auto &[file, found] : cases) {
        cMP3ID3v2 fresh;
        fresh.setMP3File(write(file));
        EXPECT_EQ(fresh.HasID3v2Tag(), found) << file.left(10).toHex().constData() << file.size();
        EXPECT_EQ(fresh.FrameCount(), found ? 1 : 0);
    }
    read(all);
    EXPECT_TRUE(read("nothing").HasID3v2Tag()) << "position and version are those of the file before";
    EXPECT_EQ(m_tag.FrameCount(), 0);
    EXPECT_THROW((void)cMP3ID3v2().FrameCount(), dao::DaoError) << "before any file";
}

TEST_F(Mp3Tag, ReadsSizesAsPlainNumbers)
{
    for (const char version : {char(1), char(5)}) {
        EXPECT_EQ(read(tag(version, 1000, m_frames)).ID3v2TagVersion(), version);
        EXPECT_EQ(m_tag.FrameCount(), 0);
    }
    // A packed size of 2048 reads as 4096, so that a frame of 3000 is still within it.
    read(tag(4, 0x1000, latin1Frame("TIT2", QByteArray(2999, 'x'))));
    EXPECT_EQ(m_tag.Tag(u"TIT2"_s, 1).size(), 2999);
    // Each header counts as 16, which leaves no room for the second frame.
    read(tag(3, 42, m_title + m_title + m_title));
    EXPECT_EQ(m_tag.TagsInFrame(u"TIT2"_s), 1);
    // The position counts from the start of the file.
    read(QByteArray(500, 'x') + tag(3, 400, m_frames));
    EXPECT_EQ(frames(), QStringList{u"TPE1"_s});
}

TEST_F(Mp3Tag, KeepsWhatTellsTheEncodingAndTurnsShortIdsIntoLongOnes)
{
    const QByteArray wide("\1\xFF\xFE"
                          "A\0b\0",
                          7);
    read(tag(3, 1000,
             frame("TIT2", wide) + frame("TALB", "\3\xC3\xA9") + frame("TCOM", QByteArray("\0\xE9t", 3)) +
                 frame("COMM", QByteArray("\0eng\0one", 8)) + frame("COMM", QByteArray("\0deu\0two", 8))));
    EXPECT_EQ(m_tag.Tag(u"TIT2"_s, 1), u"\u0001ÿþAb"_s);
    EXPECT_EQ(m_tag.Tag(u"TALB"_s, 1), u"\u0003é"_s);
    EXPECT_EQ(m_tag.Tag(u"TCOM"_s, 1), u"ét"_s);
    EXPECT_EQ(m_tag.Comment(), u"one"_s + QChar(u'\0') + u"\r\ndeutwo"_s);
    m_tag.setComment(u"mine"_s);
    EXPECT_EQ(m_tag.Tag(u"COMM"_s, 1), QChar(u'\0') + u"nt"_s + QChar(u'\0') + u"mine"_s);

    read(tag(2, 1000,
             shortFrame("TT2", QByteArray("\0Tiger", 6)) + shortFrame("ULT", "words") +
                 shortFrame("COM", QByteArray("\0eng\0fine", 9)) + QByteArray(10, '\0')));
    EXPECT_EQ(frames(), (QStringList{u"TIT2"_s, u""_s, u"COMM"_s}));
    EXPECT_EQ(m_tag.Comment(), u"fine"_s);
}

TEST_F(Mp3Tag, CountsAndChangesTheTextsOfItsFrames)
{
    read(tag(3, 1000, m_frames));
    EXPECT_EQ(frames(), (QStringList{u"TPE1"_s, u"TIT2"_s}));
    EXPECT_EQ(m_tag.TagsInFrame(1), 1) << "a count that grew has moved behind the others";
    EXPECT_EQ(m_tag.Tag(u"TPE1"_s, 3), u"Cher"_s);
    EXPECT_THROW((void)m_tag.Frame(3), dao::DaoError);
    EXPECT_THROW((void)m_tag.Tag(u"TPE1"_s, 4), dao::DaoError);

    m_tag.RemoveTag(u"TPE1"_s, 2);
    EXPECT_EQ(m_tag.TagsInFrame(u"TPE1"_s), 2);
    EXPECT_EQ(m_tag.Tag(u"TPE1"_s, 2), u"Cher"_s);
    EXPECT_THROW((void)m_tag.Tag(u"TIT2"_s, 1), dao::DaoError) << "the other frames' texts go with it";
    EXPECT_EQ(m_tag.TagsInFrame(u"TIT2"_s), 1);
    m_tag.AddTag(u"TYER"_s, u"1976"_s);
    m_tag.RemoveTag(u"TYER"_s, 1);
    m_tag.RemoveFrame(u"TPE1"_s);
    EXPECT_EQ(frames(), QStringList{u"TIT2"_s});

    const QString program = QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
    read(tag(3, 1000, m_frames));
    EXPECT_EQ(sourceOf([&] { m_tag.RemoveTag(u"TPE1"_s, 9); }), program + u".cMP3ID3v2"_s);
    m_tag.RemoveFrame(1);
    EXPECT_EQ(m_tag.TagsInFrame(u"TPE1"_s), 3) << "by number, the first count goes: the title's";
    EXPECT_EQ(sourceOf([&] { m_tag.setMP3File(m_folder.filePath(u"none.mp3"_s)); }),
              program + u".cMP3ID3v1"_s);
    EXPECT_EQ(m_tag.FrameCount(), 0);
}

TEST_F(Mp3Tag, SurvivesAnything)
{
    const QByteArray seed =
        tag(3, 0x7FFFFFFF, m_frames + frame("COMM", "\1eng") + "APIC" + bigEndian(0x7FFFFF00U) + "xx");
    EXPECT_EQ(faultOfTag(seed, m_folder.path()), QString());
    EXPECT_THROW(read(tag(4, 1000, "TIT2" + bigEndian(0xFFFFFF00U) + "xx")), dao::DaoError) << "below 0";
    QRandomGenerator random(1);
    for (int run = 0; run < 3000 && !HasFailure(); ++run) {
        const QByteArray input = mutated(seed, seed, {bigEndian(0x7FFFFFFFU), bigEndian(0U)}, random);
        EXPECT_EQ(faultOfTag(input, m_folder.path()), QString()) << input.toBase64().constData();
    }
}

} // namespace quaverly::test
