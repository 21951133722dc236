// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/TestPictures.h"

#include "support/TagBytes.h"

#include <QBuffer>
#include <QPainter>
#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <cmath>

namespace quaverly::test {

QImage colourful(int width, int height)
{
    QRandomGenerator random(1);
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int grain = random.bounded(8);
            const int wave = static_cast<int>(60 * std::sin(x / 40.0) * std::cos(y / 31.0));
            image.setPixel(x, y,
                           qRgb(120 + wave + grain, 255 * y / (height + 8) + grain, 130 - wave + grain));
        }
    }
    return image;
}

QImage drawn(int width, int height)
{
    QImage image = plain(width, height, Qt::white);
    QPainter painter(&image);
    for (int i = 0; i < 12; ++i)
        painter.fillRect(i * width / 12, i * height / 12, width / 9 + 1, height / 5 + 1,
                         QColor::fromHsv(i * 30, 200, 220));
    return image;
}

QImage plain(int width, int height, const QColor &color)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

QByteArray fileOf(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, format)) << format;
    return bytes;
}

QByteArray orientedJpeg(const QImage &image, char orientation)
{
    using namespace tagbytes;
    QByteArray exif("Exif\0\0II*\0\10\0\0\0\1\0\x12\1\3\0\1\0\0\0", 24);
    exif += QByteArray(1, orientation) + QByteArray(7, '\0');
    QByteArray file = fileOf(image, "JPG");
    return file.insert(2, "\xFF\xE1" + bigEndian(static_cast<quint16>(exif.size() + 2)) + exif);
}

QByteArray bomb(quint32 width, quint32 height)
{
    using namespace tagbytes;
    return fileOf(plain(4, 4, Qt::red), "BMP").replace(18, 8, littleEndian(width) + littleEndian(height));
}

QByteArray inkJpeg()
{
    return QByteArray::fromBase64(
        "/9j/7gAOQWRvYmUAZAAAAAAC/9sAQwANCQoLCggNCwoLDg4NDxMgFRMSEhMnHB4XIC4pMTAuKS0sMzpKPjM2RjcsLUBXQUZM"
        "TlJTUjI+WmFaUGBKUVJP/9sAQwEODg4TERMmFRUmTzUtNU9PT09PT09PT09PT09PT09PT09PT09PT09PT09PT09PT09PT09P"
        "T09PT09PT09PT09P/8AAFAgADAAQBAERAAIRAQMRAQQRAP/EABYAAQEBAAAAAAAAAAAAAAAAAAAFBv/EABwQAAEEAwEAAAAA"
        "AAAAAAAAAAACAwRSEhMVkf/EABcBAQEBAQAAAAAAAAAAAAAAAAAGBAf/xAAcEQABAwUAAAAAAAAAAAAAAAAAAQMUAhIVUVL/"
        "2gAOBAEAAhEDEQQAAD8As5uUV4YM9SQUNzk0fek0WM3KK8GepENzkd6TRZf0N1Ie9TocdvRoOdGoNDdReojt6HOjUP/Z");
}

QByteArray webp()
{
    return QByteArray::fromBase64("UklGRhwAAABXRUJQVlA4TA8AAAAvD8ACAAcQ/Y/+ByKi/wEA");
}

QByteArray animatedGif()
{
    return QByteArray::fromBase64("R0lGODlhAwACAPAAAP8AAAAAACH5BAAAAAAAIf8LTkVUU0NBUEUyLjADAQAAACwAAAAAAwAC"
                                  "AAACAoRfACH5BAAAAAAALAAAAAADAAIAgAAA/wAAAAIChF8AOw==");
}

bool isNear(const QColor &a, const QColor &b)
{
    return a.isValid() && std::abs(a.red() - b.red()) < 12 && std::abs(a.green() - b.green()) < 12 &&
           std::abs(a.blue() - b.blue()) < 12;
}

} // namespace quaverly::test
