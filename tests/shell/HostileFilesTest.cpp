// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleMaker.h"
#include "samples/Silence.h"
#include "shell/ShellFixture.h"

#include <ctime>
#include <functional>
#include <random>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace tagbytes;

namespace {

QByteArray nested(const QByteArray &head, const QByteArray &between, int depth)
{
    // From the inside out, each around the one before, without copying it all each time.
    QByteArray result;
    const qsizetype level = head.size() + 4 + between.size();
    for (int i = 0; i < depth; ++i) {
        const auto length = static_cast<quint32>((depth - i) * level);
        result += (head == "CHAP" ? head + bigEndian(length - 10) : bigEndian(length) + head) + between;
    }
    return result;
}

QByteArray wavHead(quint32 riffLength, quint32 dataLength)
{
    QByteArray head = samples::silence(u"wav").first(44);
    head.replace(4, 4, littleEndian(riffLength));
    head.replace(40, 4, littleEndian(dataLength));
    return head;
}

QByteArray asfWithObjects(quint32 count, quint64 length)
{
    const QByteArray header("\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C", 16);
    return header + littleEndian(quint64(100)) + littleEndian(count) + QByteArray("\1\2", 2) +
           QByteArray(16, '\x55') + littleEndian(length) + QByteArray(64, '\0');
}

class HostileFiles : public ShellFixture
{
protected:
    /** Reads all columns of the file within bounds that no reasonable file comes near. */
    void readWithinBounds(const QString &name)
    {
        SCOPED_TRACE(qPrintable(name));
        const std::clock_t before = std::clock();
        const qint64 memoryBefore = mostMemory();
        m_columns = details(name);
        EXPECT_LT(double(std::clock() - before) / CLOCKS_PER_SEC, 10.0);
        EXPECT_LT(mostMemory() - memoryBefore, 500 * 1024);
    }
    /** The most that the process has held so far, in kilobytes. */
    static qint64 mostMemory()
    {
        rusage usage{};
        ::getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss;
    }
    void readSparse(const QString &name, const QByteArray &head, qint64 length)
    {
        write(name, head);
        ASSERT_TRUE(QFile::resize(path(name), length));
        readWithinBounds(name);
    }

    QMap<int, QString> m_columns;
};

TEST_F(HostileFiles, ThatAreNoFilesSayWhy)
{
    write(u"empty.mp3"_s, {});
    for (const char16_t *type : {u"mp3", u"m4a", u"wma", u"wav", u"aac", u"ogg", u"flac", u"mp4"})
        write(u"text."_s + QString::fromUtf16(type), "This is no sound at all.\n");
    write(u"short.wav"_s, "RIFF");
    write(u"picture.jpg"_s, "\xFF\xD8\xFF");
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(u"pipe.mp3"_s)).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(u"/dev/zero"_s, path(u"zeros.wav"_s)));
    ASSERT_TRUE(QFile::link(path(u"gone.mp3"_s), path(u"dangling.mp3"_s)));
    const auto folder = shell::makeShell()->NameSpace(m_folder.path());
    ASSERT_EQ(folder->count(), 14);
    for (qsizetype i = 0; i < folder->count(); ++i) {
        const auto columns = detailsOf(folder->item(i));
        EXPECT_EQ(columns.keys(), QList<int>{-1}) << qPrintable(folder->item(i).name());
    }
}

TEST_F(HostileFiles, WithSparseGigabytes)
{
    readSparse(u"zeros.wav"_s, {}, 2LL << 30);
    EXPECT_TRUE(m_columns.contains(-1));
    readSparse(u"claims7f.wav"_s, wavHead(0x7FFFFFFF, 0x7FFFFFFF), 2LL << 30);
    EXPECT_EQ(m_columns.value(28), u"\u200E64kbps"_s);
    readSparse(u"claims80.wav"_s, wavHead(0x80000000, 0x80000000), 44 + 8000 * 60);
    EXPECT_EQ(m_columns.value(27), u"00:01:00"_s);
    readSparse(u"zeros.mp3"_s, {}, 2LL << 30);
    readSparse(u"oneframe.mp3"_s, samples::silence(u"mp3").first(192), 2LL << 30);
    readSparse(u"far.mp3"_s, samples::silence(u"mp3").first(192), 1LL << 40);
    readSparse(u"oneframe.aac"_s, samples::silence(u"aac"), 2LL << 30);
    readSparse(u"ftyp.m4a"_s, atom("ftyp", "M4A \0\0\0\0"), 2LL << 30);
    readSparse(u"pages.ogg"_s, samples::silence(u"ogg"), 2LL << 30);
    readSparse(u"blocks.flac"_s, samples::silence(u"flac"), 2LL << 30);
    readSparse(u"objects.wma"_s, asfWithObjects(0xFFFFFFFF, 0), 2LL << 30);
    readSparse(u"hugetag.mp3"_s, QByteArray("ID3\3\0\0\x7F\x7F\x7F\x7F", 10) + latin1Frame("TIT2", "Still"),
               2LL << 30);
    EXPECT_EQ(m_columns.value(21), u"Still"_s);
}

TEST_F(HostileFiles, WithLyingSizes)
{
    const QByteArray mp3 = samples::silence(u"mp3");
    const QByteArray wav = samples::silence(u"wav");
    const QByteArray ftyp = atom("ftyp", "M4A \0\0\0\0");
    const QByteArray sound(100, '\1');
    for (const quint32 size : {0U, 1U, 7U, 9U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        SCOPED_TRACE(size);
        const quint64 wide = quint64(size) << 32 | size;
        const auto read = [this](const QString &name, const QByteArray &bytes) {
            write(name, bytes);
            readWithinBounds(name);
        };
        for (const char *name : {"moov", "udta", "mdat", "free"})
            read(u"atom.m4a"_s, ftyp + bigEndian(size) + name + sound);
        read(u"wide.m4a"_s, ftyp + bigEndian(quint32(1)) + "moov" + bigEndian(wide) + sound);
        read(u"object.wma"_s, asfWithObjects(size, wide));
        read(u"chunk.wav"_s, wav + "LIST" + littleEndian(size) + "INFOINAM" + littleEndian(size));
        EXPECT_EQ(m_columns.value(27), u"00:00:01"_s);
        read(u"frame.mp3"_s, id3v2("TIT2" + bigEndian(size) + QByteArray(20, '\0')) + mp3);
        EXPECT_EQ(m_columns.value(27), u"00:00:01"_s);
        read(u"ape.mp3"_s, mp3 + "APETAGEX" + littleEndian(quint32(2000)) + littleEndian(size) +
                               littleEndian(size) + QByteArray(12, '\0'));
        EXPECT_EQ(m_columns.value(28), u"\u200E32kbps"_s);
    }
}

TEST_F(HostileFiles, ThatNestForEver)
{
    write(u"moov.m4a"_s, atom("ftyp", "M4A \0\0\0\0") + nested("moov", {}, 200'000));
    readWithinBounds(u"moov.m4a"_s);
    EXPECT_TRUE(m_columns.contains(-1));
    // Flags, an element's name, four times and offsets; then the chapter in the chapter.
    write(u"chapters.mp3"_s,
          id3v2(nested("CHAP", QByteArray(2 + 2 + 16, '\0'), 100'000)) + samples::silence(u"mp3"));
    readWithinBounds(u"chapters.mp3"_s);
    EXPECT_EQ(m_columns.value(27), u"00:00:01"_s);
}

TEST_F(HostileFiles, WithMoreThanMemoryHolds)
{
    const QByteArray sound = samples::silence(u"mp3");
    // Flag 0x80 of version 3: compressed, behind the length of what comes out.
    const QByteArray bomb = qCompress(QByteArray(256 << 20, 'x'), 9);
    for (const QByteArray &frames :
         {frame("TPE2", "x").repeated(1'000'000), frame("TPE1", QByteArray("\0x", 2).repeated(6 << 20)),
          frame("TPE1", bomb, 0x0080) + frame("APIC", bomb, 0x0080)}) {
        write(u"much.mp3"_s, id3v2(latin1Frame("TIT2", "First") + frames) + sound);
        readWithinBounds(u"much.mp3"_s);
        EXPECT_EQ(m_columns.value(21), u"First"_s);
    }
    write(u"packed.mp3"_s, id3v2(frame("TIT2", qCompress(QByteArray("\0Packed", 7)), 0x0080)) + sound);
    readWithinBounds(u"packed.mp3"_s);
    EXPECT_EQ(m_columns.value(21), u"Packed"_s);
}

TEST_F(HostileFiles, CutOrChangedAnywhere)
{
    samples::SongTags tags;
    tags.title = u"Title"_s;
    tags.artist = u"Artist"_s;
    tags.comment = u"A comment"_s;
    tags.track = 5;
    tags.beats = 90;
    samples::SampleMaker maker;
    std::mt19937 random(11); // NOLINT: the same each time
    for (const char *type : {"mp3", "m4a", "wma", "wav", "flac", "ogg", "mp4", "aac"}) {
        SCOPED_TRACE(type);
        const QString name = u"changed."_s + QLatin1StringView(type);
        const QByteArray whole = maker.song(QString::fromLatin1(type), tags);
        for (int i = 0; i < 60; ++i) {
            write(name, whole.first(whole.size() * i / 60));
            readWithinBounds(name);
        }
        for (int i = 0; i < 300; ++i) {
            QByteArray changed = whole;
            // Heads and tags stand in the first bytes; most changes go there.
            const auto range =
                static_cast<quint32>(i % 3 == 0 ? whole.size() : qMin<qsizetype>(whole.size(), 600));
            for (int n = 0; n < 1 + i % 5; ++n)
                changed[static_cast<qsizetype>(random() % range)] = static_cast<char>(random());
            write(name, changed);
            readWithinBounds(name);
        }
    }
}

} // namespace
