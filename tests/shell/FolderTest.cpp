// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleMaker.h"
#include "shell/ShellFixture.h"

#include <QStorageInfo>

#include <algorithm>
#include <random>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

bool isMountPoint(const QString &folder)
{
    const QStorageInfo volume(folder);
    return volume.isValid() && volume.rootPath() == folder;
}

class Folders : public ShellFixture
{
protected:
    [[nodiscard]] QStringList names(const shell::ShellTraits &traits = {}) const
    {
        const auto folder = shell::makeShell(traits)->NameSpace(m_folder.path() + u'/');
        QStringList result;
        for (qsizetype i = 0; folder && i < folder->count(); ++i)
            result += folder->item(i).name();
        return result;
    }
    [[nodiscard]] QString column(const QString &name, int column) const
    {
        const auto folder = shell::makeShell()->NameSpace(m_folder.path());
        for (qsizetype i = 0; folder && i < folder->count(); ++i) {
            if (folder->item(i).name() == name)
                return folder->item(i).detail(column);
        }
        return u"(not found)"_s;
    }
};

TEST_F(Folders, ListTheirItemsInNaturalOrder)
{
    const QStringList ordered{u"1 one.mp3"_s, u"2 two.mp3"_s,  u"10 ten.mp3"_s, u"a.mp3"_s, u"A.mp3"_s,
                              u"b2"_s,        u"b10"_s,        u"é.mp3"_s,      u"Z.mp3"_s, u"z10.mp3"_s,
                              u"Ж.mp3"_s,     u"東京 3.mp3"_s, u"東京 20.mp3"_s};
    QStringList shuffled = ordered;
    std::ranges::shuffle(shuffled, std::mt19937(5)); // NOLINT: the same each time is what is wanted
    for (const QString &name : shuffled) {
        if (name.endsWith("mp3"_L1))
            write(name, "x");
        else
            ASSERT_TRUE(QDir().mkdir(path(name)));
    }
    EXPECT_EQ(names(), ordered);
}

TEST_F(Folders, TellSizeTypeAndAttributes)
{
    const std::pair<qint64, const char16_t *> cases[] = {
        {0, u"0 bytes"},         {1, u"1 byte"},           {1023, u"1023 bytes"},
        {1024, u"1.00 KB"},      {44'953, u"43.8 KB"},     {44'954, u"43.9 KB"},
        {1'023'999, u"999 KB"},  {1'024'000, u"0.976 MB"}, {4'603'248, u"4.38 MB"},
        {4'603'249, u"4.39 MB"}, {3LL << 30, u"3.00 GB"},  {3000LL << 30, u"2.92 TB"}};
    for (const auto &[bytes, text] : cases) {
        write(u"sized.txt"_s, {});
        ASSERT_TRUE(QFile::resize(path(u"sized.txt"_s), bytes)) << bytes;
        EXPECT_EQ(column(u"sized.txt"_s, 1), QString::fromUtf16(text));
    }
    ASSERT_TRUE(QDir().mkdir(path(u"Album.mp3"_s)));
    write(u"song.m4a"_s, "x");
    write(u".hidden.mp3"_s, "x");
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(u"pipe.mp3"_s)).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(path(u"Album.mp3"_s), path(u"linked"_s)));
    for (const auto &[name, number, text] : {std::tuple{u"Album.mp3"_s, 6, u"D"_s},
                                             {u"linked"_s, 6, u"D"_s},
                                             {u"song.m4a"_s, 6, u"A"_s},
                                             {u".hidden.mp3"_s, 6, u"HA"_s},
                                             {u"Album.mp3"_s, 1, u""_s},
                                             {u"Album.mp3"_s, 2, u"File folder"_s},
                                             {u"song.m4a"_s, 2, u"MPEG-4 Audio"_s},
                                             {u"sized.txt"_s, 21, u""_s}})
        EXPECT_EQ(column(name, number), text) << qPrintable(name);
    EXPECT_FALSE(column(u"pipe.mp3"_s, 6).contains(u'D'));
}

TEST_F(Folders, HideExtensionsOfKnownTypesOnly)
{
    for (const QString &name : {u"one.mp3"_s, u"two.FLAC"_s, u"three.xyz"_s, u".ogg"_s})
        write(name, "x");
    ASSERT_TRUE(QDir().mkdir(path(u"four.mp3"_s)));
    EXPECT_EQ(names({.hideFileExt = true}),
              (QStringList{u".ogg"_s, u"four.mp3"_s, u"one"_s, u"three.xyz"_s, u"two"_s}));
}

TEST_F(Folders, RefuseNamesThatAreNotUtf8)
{
    write(u"fine.mp3"_s, "x");
    write(u"\uFEFFmarked.mp3"_s, "x");
    const QByteArray badPath = m_folder.path().toUtf8() + "/bad\xFF.mp3";
    const int fd = ::creat(badPath.constData(), 0600);
    ASSERT_GE(fd, 0);
    ::close(fd);

    QStringList refused;
    auto found = shell::makeShell()->search(m_folder.path(), &refused);
    std::ranges::sort(found, {}, &shell::Entry::name);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].name, u"fine.mp3"_s);
    EXPECT_EQ(found[1].name, u"\uFEFFmarked.mp3"_s);
    ASSERT_EQ(refused.size(), 1);
    EXPECT_TRUE(refused[0].startsWith("bad"_L1));
    EXPECT_EQ(names().size(), 2);
    ASSERT_EQ(::unlink(badPath.constData()), 0);
}

TEST_F(Folders, AreTheSameByWhateverPathAndNoneOnPseudoFileSystems)
{
    const auto shell = shell::makeShell();
    ASSERT_TRUE(QDir().mkdir(path(u"music"_s)));
    ASSERT_TRUE(QFile::link(path(u"music"_s), path(u"link"_s)));
    write(u"file.mp3"_s, "x");
    EXPECT_TRUE(shell->identity(path(u"music"_s)).has_value());
    EXPECT_EQ(shell->identity(path(u"music/"_s)), shell->identity(path(u"link"_s)));
    EXPECT_NE(shell->identity(path(u"music"_s)), shell->identity(m_folder.path()));
    QStringList nowhere{path(u"gone"_s), path(u"file.mp3"_s), u"/proc"_s, u"/proc/self"_s, QString()};
    // A cage may have a plain folder in their place.
    for (const auto &pseudo : {u"/sys"_s, u"/dev"_s}) {
        if (isMountPoint(pseudo))
            nowhere.append(pseudo);
    }
    for (const QString &none : nowhere) {
        EXPECT_FALSE(shell->identity(none).has_value()) << qPrintable(none);
        EXPECT_EQ(shell->NameSpace(none), nullptr) << qPrintable(none);
    }
    ASSERT_NE(shell->NameSpace(path(u"music"_s)), nullptr);
    EXPECT_EQ(shell->NameSpace(path(u"music"_s))->count(), 0);
}

TEST_F(Folders, ReadAheadGivesTheSameAsReadingOnDemand)
{
    samples::SampleMaker maker;
    for (int i = 0; i < 120; ++i) {
        samples::SongTags tags;
        tags.title = u"Song %1"_s.arg(i);
        const auto type = std::array{u"mp3", u"m4a", u"wma", u"wav", u"flac", u"ogg"}[std::size_t(i) % 6];
        maker.makeSong(path(u"%1."_s.arg(i) + QString::fromUtf16(type)), tags);
    }
    const auto all = [this](int threads, bool shuffled) {
        const auto shell = shell::makeShell({.readAheadThreads = threads});
        const auto folder = shell->NameSpace(m_folder.path());
        std::vector<qsizetype> order(static_cast<size_t>(folder->count()));
        std::iota(order.begin(), order.end(), 0);
        if (shuffled)
            std::ranges::shuffle(order, std::mt19937(3)); // NOLINT: the same each time
        QMap<QString, QMap<int, QString>> result;
        for (const qsizetype i : order)
            result.insert(folder->item(i).name(), detailsOf(folder->item(i)));
        return result;
    };
    const auto direct = all(0, false);
    EXPECT_EQ(std::ranges::count_if(direct, [](const auto &columns) { return columns.contains(27); }), 120);
    for (const auto &[threads, shuffled] : {std::pair{1, false}, {3, false}, {2, true}})
        EXPECT_EQ(all(threads, shuffled), direct);
}

TEST_F(Folders, ShowWhatIsThereThoughTheirListingsAreKept)
{
    samples::SampleMaker maker;
    samples::SongTags tags;
    const auto addSong = [&](const QString &name) {
        tags.title = name;
        maker.makeSong(path(name), tags);
    };
    QStringList folders;
    for (int i = 0; i < 30; ++i) {
        folders += u"%1/"_s.arg(i, 2, 10, QChar(u'0'));
        ASSERT_TRUE(QDir().mkdir(path(folders.last())));
        for (int song = 0; song < i % 4; ++song)
            addSong(folders.last() + u"%1.%2"_s.arg(song).arg(song % 2 ? u"ogg"_s : u"mp3"_s));
    }
    const auto timeOf = [this](const QString &folder) {
        struct stat about
        {};
        ::stat(QFile::encodeName(path(folder)).constData(), &about);
        return std::pair(about.st_mtim.tv_sec, about.st_mtim.tv_nsec);
    };
    const auto change = [&](const QString &folder) {
        const auto before = timeOf(folder);
        for (int i = 0; timeOf(folder) == before; ++i)
            addSong(folder + u"new %1.mp3"_s.arg(i));
    };
    const auto walked = [&](shell::Shell &shell) {
        QStringList seen;
        for (const QString &folder : std::as_const(folders)) {
            if (folder == u"07/"_s) // passed over
                continue;
            const auto items = shell.NameSpace(path(folder));
            for (qsizetype i = 0; items && i < items->count(); ++i) {
                const shell::Item &item = items->item(i);
                const bool wanted = item.name().endsWith("mp3"_L1);
                seen += folder + item.name() + (item.isFile() ? u"="_s : u"?"_s) +
                        (wanted ? item.detail(21) : QString());
            }
        }
        return seen;
    };
    for (const int threads : {0, 1, 2}) {
        const auto shell = shell::makeShell({.readAheadThreads = threads, .timeGrain = -1});
        const shell::ListingsKept kept(*shell);
        for (const QString &folder : std::as_const(folders))
            EXPECT_EQ(shell->search(path(folder)).size(), QDir(path(folder)).count() - 2)
                << qPrintable(folder);
        change(u"05/"_s);
        ASSERT_TRUE(QDir(path(u"11/"_s)).removeRecursively());
        ASSERT_TRUE(QFile::rename(path(u"15/"_s), path(u"11/"_s)));
        const QStringList seen = walked(*shell);
        EXPECT_EQ(seen, walked(*shell::makeShell()));
        EXPECT_EQ(walked(*shell), seen) << "a second walk lists anew";
        EXPECT_TRUE(seen.contains(u"05/new 0.mp3=05/new 0.mp3"_s));
        ASSERT_TRUE(QFile::rename(path(u"11/"_s), path(u"15/"_s)));
        ASSERT_TRUE(QDir().mkdir(path(u"11/"_s)));
    }
}

TEST_F(Folders, MayGoWhileTheirItemsAreReadAhead)
{
    samples::SampleMaker maker;
    samples::SongTags tags;
    tags.title = u"Here"_s;
    for (int i = 0; i < 200; ++i)
        maker.makeSong(path(u"%1.mp3"_s.arg(i)), tags);
    const auto shell = shell::makeShell({.readAheadThreads = 2});
    for (int round = 0; round < 20; ++round) {
        const auto folder = shell->NameSpace(m_folder.path());
        for (qsizetype i = 0; i < 5; ++i)
            EXPECT_EQ(folder->item(i).detail(21), tags.title);
    }
    std::unique_ptr<shell::Shell> other = shell::makeShell();
    auto outlives = other->NameSpace(m_folder.path());
    other.reset();
    EXPECT_EQ(outlives->item(199).detail(21), tags.title);
}

TEST(Drives, HoldTheRootAndNoPseudoVolume)
{
    const auto drives = shell::makeShell()->drives();
    ASSERT_FALSE(drives.empty());
    EXPECT_EQ(drives.front().mountPoint, QString());
    for (const shell::Drive &drive : drives) {
        EXPECT_FALSE(drive.mountPoint.endsWith(u'/')) << qPrintable(drive.mountPoint);
        for (const auto pseudo : {"/proc"_L1, "/sys"_L1, "/dev"_L1})
            EXPECT_FALSE(drive.mountPoint.startsWith(pseudo)) << qPrintable(drive.mountPoint);
    }
    if (!isMountPoint(u"/"_s))
        GTEST_SKIP() << "The root is no mount point in this cage, so its size can't be told.";
    EXPECT_GT(drives.front().bytesTotal, 0U);
}

} // namespace
