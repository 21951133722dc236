// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/Picture.h"
#include "pictures/PictureFiles.h"
#include "pictures/TestPictures.h"
#include "support/Files.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace quaverly::test {

TEST(PictureSize, MeetsTheBoxInItsProportions)
{
    const std::pair<QSize, QSize> cases[] = {
        {{1024, 768}, {1024, 768}}, {{100, 100}, {768, 768}},    {{200, 100}, {1024, 512}},
        {{100, 200}, {384, 768}},   {{4000, 3000}, {1024, 768}}, {{1, 1}, {768, 768}},
        {{30000, 10}, {1024, 1}},   {{10, 30000}, {1, 768}},     {{110, 100}, {845, 768}}};
    for (const auto &[own, fitted] : cases)
        EXPECT_EQ(fittedSize(own, PictureBoxSize), fitted) << own.width() << " by " << own.height();
}

TEST(PictureNames, EndInJpg)
{
    using Names = std::pair<const char *, const char *>;
    for (const auto &[name, link] : {Names{"cover.png", "cover.jpg"},
                                     {"Cover.JPG", "Cover.JPG"},
                                     {"abcd", "abcd"},
                                     {"cover", "c.jpg"},
                                     {"", ""},
                                     {"a.gif", "a.jpg"}})
        EXPECT_EQ(asLinkName(QLatin1StringView(name)), QLatin1StringView(link));
    for (const auto &[path, link] : {Names{"/a/b/front.cover.webp", "front.cover.jpg"},
                                     {"/a/x:y\"?.png", "xy.jpg"},
                                     {"/a/.png", ".png.jpg"},
                                     {"/a/???", "Picture.jpg"}})
        EXPECT_EQ(linkNameOf(QLatin1StringView(path)), QLatin1StringView(link));
}

TEST(PictureReading, TakesWhatIsAPictureWhateverItsName)
{
    const QTemporaryDir folder;
    const QImage wide = plain(30000, 20, Qt::green);
    const QByteArray photo = fileOf(colourful(800, 600), "JPG");
    const QByteArray drawing = fileOf(drawn(800, 600), "PNG");
    const QByteArray bitmap = fileOf(plain(40, 30, Qt::blue), "BMP");
    struct Case
    {
        const char *what;
        QByteArray bytes;
        QSize size;
        std::optional<QRgb> corner{};
        bool isDamaged = false;
    };
    const Case cases[] = {
        {"nothing at all", {}, {}},
        {"text", "no picture", {}},
        {"a drawing that names files", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>", {}},
        {"a bomb", bomb(30000, 30000), {}},
        {"a bomb as large as may be", bomb(0x7FFFFFFF, 0x7FFFFFFF), {}},
        {"one pixel", fileOf(plain(1, 1, Qt::red), "PNG"), {1, 1}, qRgb(255, 0, 0)},
        {"30,000 pixels wide", fileOf(wide, "JPG"), {30000, 20}, qRgb(0, 255, 0)},
        {"four inks", inkJpeg(), {16, 12}},
        {"a moving picture's first", animatedGif(), {3, 2}, qRgb(255, 0, 0)},
        {"a bitmap", bitmap, {40, 30}, qRgb(0, 0, 255)},
        {"a WebP file", webp(), {16, 12}, qRgb(255, 0, 0)},
        {"half a file", photo.left(photo.size() / 2), {800, 600}, colourful(800, 600).pixel(0, 0), true},
        {"half a bitmap", bitmap.left(bitmap.size() / 2), {40, 30}, std::nullopt, true},
        {"half a GIF", animatedGif().left(60), {3, 2}, std::nullopt, true},
        {"half a drawing", drawing.left(drawing.size() - 20), {800, 600}, std::nullopt, true},
        {"a head alone", photo.left(300), {}},
        {"lying on its side", orientedJpeg(plain(60, 20, Qt::red), 6), {20, 60}, qRgb(255, 0, 0)},
        {"large and lying", orientedJpeg(plain(3000, 1000, Qt::red), 8), {1000, 3000}, qRgb(255, 0, 0)},
    };
    rusage before = {};
    getrusage(RUSAGE_SELF, &before);
    for (const Case &c : cases) {
        const QString path = folder.filePath(u"picture.gif"_s);
        writeFile(path, c.bytes);
        const auto picture = readPicture(path, PictureBoxSize);
        EXPECT_EQ(picture.value_or(Picture{}).size, c.size.isNull() ? Picture{}.size : c.size) << c.what;
        EXPECT_EQ(!picture.value_or(Picture{}).fault.isEmpty(), c.isDamaged) << c.what;
        if (!picture || !c.corner)
            continue;
        EXPECT_TRUE(isNear(picture->image.pixel(0, 0), *c.corner)) << c.what;
        EXPECT_TRUE(isNear(paintedBox(*picture, PictureBoxSize).pixel(0, 0), *c.corner)) << c.what;
        EXPECT_LE(picture->image.width(), std::max(c.size.width(), 1024)) << c.what;
    }
    rusage after = {};
    getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 300 * 1024) << "kilobytes";
    EXPECT_FALSE(readPicture(folder.path(), PictureBoxSize));
    EXPECT_FALSE(takePicture(QImage(60000, 2000, QImage::Format_Mono), PictureBoxSize));
}

} // namespace quaverly::test
