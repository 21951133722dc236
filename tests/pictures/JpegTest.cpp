// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/TestPictures.h"
#include "pictures/cImage.h"
#include "pictures/cJpeg.h"
#include "platform/store/DaoError.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

QByteArray encoded(const QImage &image, cJpeg &jpeg)
{
    jpeg.SampleHDC(image, image.width(), image.height());
    return jpeg.encoded();
}

/** Contents of all segments with that marker, up to the first scan. */
QByteArrayList segments(const QByteArray &file, int marker)
{
    QByteArrayList found;
    for (qsizetype at = 2; at + 4 <= file.size() && quint8(file[at + 1]) != 0xDA;) {
        const int length = quint8(file[at + 2]) << 8 | quint8(file[at + 3]);
        if (quint8(file[at + 1]) == marker)
            found += file.mid(at + 4, length - 2);
        at += 2 + length;
    }
    return found;
}

/** In decibels. */
double likeness(const QImage &image, const QByteArray &file)
{
    const QImage before = image.convertToFormat(QImage::Format_RGB888);
    const QImage after = QImage::fromData(file).convertToFormat(QImage::Format_RGB888);
    if (after.size() != before.size())
        return 0;
    double sum = 0.001;
    for (int y = 0; y < before.height(); ++y)
        for (int x = 0; x < 3 * before.width(); ++x)
            sum += std::pow(before.constScanLine(y)[x] - after.constScanLine(y)[x], 2);
    return 20 * std::log10(255 / std::sqrt(sum / (3.0 * before.width() * before.height())));
}

QString errorOf(const std::function<void()> &act)
{
    try {
        act();
    } catch (const dao::DaoError &error) {
        return error.description;
    }
    return u"no error"_s;
}

} // namespace

TEST(Jpeg, IsABaselineFileWithTheUsualTables)
{
    cJpeg jpeg;
    jpeg.SetSamplingFrequencies(2, 2, 1, 1, 1, 1);
    jpeg.setComment(u"Cover of a song"_s);
    const QByteArray file = encoded(colourful(1024, 768), jpeg);
    EXPECT_EQ(file.left(2).toHex(), "ffd8");
    EXPECT_EQ(file.right(2).toHex(), "ffd9");
    EXPECT_EQ(segments(file, 0xE0), QByteArrayList{QByteArray("JFIF\0\1\1\0\0\1\0\1\0\0", 14)});
    EXPECT_EQ(segments(file, 0xFE), QByteArrayList{"Cover of a song"});
    EXPECT_EQ(segments(file, 0xC0), QByteArrayList{QByteArray::fromHex("0803000400"
                                                                       "03012200021101031101")});
    EXPECT_EQ(segments(file, 0xC4).size(), 4);
    EXPECT_FALSE(file.contains("\xFF\xDD"_ba)) << "no restarts";
    const QString longest(65535, u'é');
    jpeg.setComment(longest);
    const QByteArray commented = encoded(colourful(16, 16), jpeg);
    EXPECT_EQ(segments(commented, 0xFE).join(), longest.toUtf8()) << "over several markers";
    EXPECT_EQ(QImage::fromData(commented).size(), QSize(16, 16));
}

TEST(Jpeg, ScalesItsTables)
{
    // In zig-zag order; a half goes to the even number.
    const std::pair<int, const char *> cases[] = {{75, "0806060806060808"},  {50, "100c0c0e0c0a100e"},
                                                  {100, "0101010101010101"}, {1, "ffffffffffffffff"},
                                                  {25, "2016181c1814201c"},  {0, "0806060806060808"},
                                                  {101, "0806060806060808"}};
    for (const auto &[quality, first] : cases) {
        cJpeg jpeg;
        jpeg.setQuality(quality);
        const QByteArray table = segments(encoded(colourful(8, 8), jpeg), 0xDB).value(0);
        EXPECT_EQ(table.size(), 65);
        EXPECT_EQ(table.mid(1, 8).toHex(), first) << quality;
    }
}

TEST(Jpeg, LooksAsGoodAndIsAsSmallAsQtsOwn)
{
    for (const QImage &image : {colourful(1024, 768), colourful(333, 77), drawn(640, 480)}) {
        cJpeg jpeg;
        jpeg.SetSamplingFrequencies(2, 2, 1, 1, 1, 1);
        const QByteArray ours = encoded(image, jpeg);
        const QByteArray theirs = fileOf(image, "JPG");
        EXPECT_GT(likeness(image, ours), likeness(image, theirs) - 0.5);
        EXPECT_LT(double(ours.size()), double(theirs.size()) * 1.03);
    }
}

TEST(Jpeg, TakesAllFactorsAndSizes)
{
    const std::array<int, 6> factors[] = {{1, 1, 1, 1, 1, 1}, {2, 1, 1, 1, 1, 1}, {1, 2, 1, 1, 1, 1},
                                          {4, 1, 1, 1, 1, 1}, {4, 4, 1, 1, 2, 2}, {4, 4, 4, 4, 4, 4},
                                          {4, 2, 2, 1, 1, 2}, {2, 2, 2, 2, 2, 2}};
    for (const QSize size : {QSize(1, 1), QSize(8, 8), QSize(17, 33), QSize(100, 63)}) {
        const QImage image = drawn(size.width(), size.height()).convertToFormat(QImage::Format_Grayscale8);
        for (const auto &f : factors) {
            cJpeg jpeg;
            jpeg.setQuality(95);
            jpeg.SetSamplingFrequencies(f[0], f[1], f[2], f[3], f[4], f[5]);
            EXPECT_GT(likeness(image, encoded(image, jpeg)), 30)
                << size.width() << " wide, factors " << ::testing::PrintToString(f);
        }
    }
}

TEST(Jpeg, RefusesWhatItCannotWrite)
{
    const std::vector<int> ones(64, 1);
    const std::vector<int> large(64, 256);
    cJpeg jpeg;
    const std::pair<QString, std::function<void()>> cases[] = {
        {u"Invalid Sampling Value"_s, [&] { jpeg.SetSamplingFrequencies(2, 2, 0, 1, 1, 1); }},
        {u"Invalid Sampling Value"_s, [&] { jpeg.SetSamplingFrequencies(5, 2, 1, 1, 1, 1); }},
        {u"Illegal Comment Length"_s, [&] { jpeg.setComment(QString(65536, u'x')); }},
        {u"Illegal precission in Quantization Table"_s, [&] { (void)QuantizationTable(2, ones); }},
        {u"Bad Quantization Table"_s, [&] { (void)QuantizationTable(0, large); }},
        {u"Bad Quantization Table"_s, [&] { (void)QuantizationTable(1, std::span(large).first(63)); }},
        {u"no error"_s, [&] { (void)QuantizationTable(1, large); }}};
    for (const auto &[text, act] : cases)
        EXPECT_EQ(errorOf(act), text);
    for (const HuffmanSpec &bad :
         {HuffmanSpec{{2}, {1, 2}}, HuffmanSpec{{0, 2}, {1, 1}}, HuffmanSpec{{0, 2}, {1}}, HuffmanSpec{}})
        EXPECT_EQ(errorOf([&] { (void)HuffmanCodes(bad); }), u"Bad Huffman Table"_s);
    EXPECT_NE(errorOf([&] { jpeg.SampleHDC(colourful(8, 8), 0, 8); }), u"no error"_s);
    EXPECT_NE(errorOf([&] { (void)jpeg.encoded(); }), u"no error"_s);
}

TEST(Image, TurnsMirrorsAndGreys)
{
    QImage picture(4, 2, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    picture.setPixelColor(0, 0, Qt::red);
    cImage image;
    EXPECT_EQ(image.BitCount(), 0);
    EXPECT_FALSE(image.Create(4, 2, 7));
    EXPECT_TRUE(image.Create(3, 2, 24));
    EXPECT_EQ(image.BytesPerScanLine(), 12);
    image.CopyStdPicture(picture);
    EXPECT_EQ(image.BitCount(), 32);
    EXPECT_EQ(image.hDC().pixelColor(3, 1), QColor(Qt::white)) << "what shows through";
    image.Mirror(true, false);
    EXPECT_EQ(image.hDC().pixelColor(3, 0), QColor(Qt::red));
    image.Rotate(90);
    EXPECT_EQ(QSize(image.Width(), image.Height()), QSize(2, 4));
    image.Resample(8, 16);
    EXPECT_EQ(image.Height(), 16);
    image.Greyscale();
    EXPECT_TRUE(image.hDC().allGray());
}

} // namespace quaverly::test
