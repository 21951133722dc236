// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/TagWriter.h"
#include "platform/store/DaoError.h"
#include "samples/SampleMaker.h"
#include "shell/ShellFixture.h"
#include "support/Errors.h"

#include <QDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using quaverly::test::bytesOf;

namespace {

const shell::TagEdit Edit{.fields = {{u"TITLE"_s, {u"Τίτλος \"1\""_s}},
                                     {u"ARTIST"_s, {u"Ä"_s, u"B"_s}},
                                     {u"ALBUMARTIST"_s, {u"Various"_s}},
                                     {u"DISCNUMBER"_s, {u"1/2"_s}},
                                     {u"COMMENT"_s, {}},
                                     {u"REPLAYGAIN_TRACK_GAIN"_s, {u"-6.50 dB"_s}}}};

class TagWriterTest : public ShellFixture
{
protected:
    /** A new song with tags, and its path. */
    [[nodiscard]] QString sample(const QString &name)
    {
        samples::SongTags tags;
        tags.title = u"Old"_s;
        tags.artist = u"Abba"_s;
        tags.comment = u"To go"_s;
        write(name, m_maker.song(QFileInfo(name).suffix(), tags));
        return path(name);
    }

    samples::SampleMaker m_maker;

    /** Writes, and returns what takes it back. */
    static shell::FilePatch writeTags(const QString &file, const shell::TagEdit &edit = Edit,
                                      const shell::RewriteOptions &options = {})
    {
        shell::TagWriter writer(file, edit, shell::readFileTags(file).stamp, options);
        const shell::FilePatch back = writer.back();
        writer.build();
        writer.takePlace();
        return *shell::FilePatch::unpacked(back.packed());
    }

    QStringList names() const
    {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

TEST_F(TagWriterTest, EveryKindTakesWhatIsAskedAndGivesItsBytesBack)
{
    for (const char *kind : {"mp3", "m4a", "wma", "wav", "flac", "ogg", "mp4", "aac"}) {
        SCOPED_TRACE(kind);
        const QString file = sample(u"a."_s + QString::fromLatin1(kind));
        const QByteArray before = bytesOf(file);
        const shell::FileTags old = shell::readFileTags(file);
        const shell::FilePatch back = writeTags(file);
        const shell::FileTags now = shell::readFileTags(file);
        for (auto field = Edit.fields.cbegin(); field != Edit.fields.cend(); ++field)
            EXPECT_EQ(now.fields.value(field.key()).join("; "_L1), field->join("; "_L1));
        EXPECT_EQ(now.milliseconds, old.milliseconds);
        shell::applyPatch(file, back);
        EXPECT_EQ(bytesOf(file), before);
    }
}

TEST_F(TagWriterTest, FramesThatItDoesNotKnowKeepTheirBytes)
{
    // A frame that no library knows, one that newer versions dropped, and a picture.
    const auto frame = [](const QByteArray &id, const QByteArray &content) {
        return id + QByteArray("\0\0\0", 3) + static_cast<char>(content.size()) + QByteArray("\0\0", 2) +
               content;
    };
    const QByteArray kept = frame("XQVL", "odd bytes") + frame("RVAD", QByteArray("\x03\x10\x01\x02", 4)) +
                            frame("APIC", QByteArray("\0image/png\0\x03\0PNG", 16));
    const QByteArray frames = frame("TIT2", QByteArray("\0Old", 4)) + kept;
    const QByteArray head = QByteArray("ID3\x03\0\0\0\0\0", 9) + static_cast<char>(frames.size());
    const QByteArray sound = m_maker.song(u"mp3"_s, {});
    write(u"a.mp3"_s, head + frames + sound);
    writeTags(path(u"a.mp3"_s));
    const QByteArray now = bytesOf(path(u"a.mp3"_s));
    EXPECT_EQ(now.first(4), QByteArray("ID3\x03"));
    EXPECT_TRUE(now.contains(kept));
    EXPECT_TRUE(now.endsWith(sound));
    EXPECT_EQ(shell::readFileTags(path(u"a.mp3"_s)).pictures.size(), 1);
}

TEST_F(TagWriterTest, ARefusalLeavesTheFileAndNothingBeside)
{
    const QString file = sample(u"tagged.flac"_s);
    const QByteArray before = bytesOf(file);
    const shell::FileStamp seen = shell::readFileTags(file).stamp;
    const auto refused = [&](const std::function<void()> &act) {
        const QByteArray present = bytesOf(file);
        EXPECT_THROW(act(), dao::DaoError);
        EXPECT_EQ(bytesOf(file), present);
        EXPECT_EQ(names(), QStringList(u"tagged.flac"_s));
    };
    ASSERT_EQ(::chmod(file.toUtf8(), S_IRUSR), 0);
    refused([&] { writeTags(file); });
    ASSERT_EQ(::chmod(file.toUtf8(), S_IRUSR | S_IWUSR), 0);
    refused([&] { writeTags(file, {.fields = {{u"BAD=NAME"_s, {u"x"_s}}}}); });
    {
        shell::TagWriter writer(file, Edit, seen);
        writer.build();
        write(u"tagged.flac"_s, before + "x");
        EXPECT_THROW(shell::TagWriter(file, Edit, seen), dao::DaoError);
        EXPECT_THROW(writer.takePlace(), dao::DaoError);
    }
    EXPECT_EQ(bytesOf(file), before + "x");
    EXPECT_EQ(names(), QStringList(u"tagged.flac"_s));
    write(u"tagged.flac"_s, before);
    const shell::FilePatch back = writeTags(file);
    write(u"tagged.flac"_s, bytesOf(file) + "x");
    refused([&] { shell::applyPatch(file, back); });
}

TEST_F(TagWriterTest, RightsTimesAndOtherNamesAreHeeded)
{
    const QString file = sample(u"tagged.mp3"_s);
    ASSERT_EQ(::chmod(file.toUtf8(), S_IRUSR | S_IWUSR | S_IXUSR), 0);
    struct stat before = {};
    ASSERT_EQ(::stat(file.toUtf8(), &before), 0);
    ASSERT_EQ(::link(file.toUtf8(), path(u"other.mp3"_s).toUtf8()), 0);
    EXPECT_THROW(writeTags(file), dao::DaoError);
    ASSERT_EQ(::symlink("tagged.mp3", path(u"link.mp3"_s).toUtf8()), 0);
    writeTags(path(u"link.mp3"_s), Edit, {.keepTimes = true, .splitLinks = true});
    struct stat now = {};
    ASSERT_EQ(::lstat(file.toUtf8(), &now), 0);
    EXPECT_EQ(now.st_mode, before.st_mode);
    EXPECT_EQ(now.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    EXPECT_NE(bytesOf(file), bytesOf(path(u"other.mp3"_s)));
    EXPECT_TRUE(QFileInfo(path(u"link.mp3"_s)).isSymLink());
}

} // namespace
