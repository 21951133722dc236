// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/Pictures.h"

#include "platform/richtext/RichText.h"
#include "platform/text/Twips.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

/** A side longer than that is shown smaller. */
constexpr int LongestSide = 2000;
constexpr QSize FrameSize(96, 64);

/** Where the file's own bytes are kept, beside the image that is drawn. */
QUrl sourceUrl(const QString &name)
{
    return QUrl(name + u"#file"_s);
}

QSize bounded(QSize size, QSize most)
{
    const bool fits = size.width() <= most.width() && size.height() <= most.height();
    return fits ? size : size.scaled(most, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

/** Null for what is no picture or needs more memory than a picture may. */
QImage drawn(const QByteArray &bytes, QSize most)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (size.isValid() && !size.isEmpty())
        reader.setScaledSize(bounded(size, most));
    return reader.read();
}

QImage frame()
{
    QImage image(FrameSize, QImage::Format_RGB32);
    image.fill(Qt::lightGray);
    return image;
}

/** The bytes of a bitmap without a file's head get one. */
QByteArray withHead(const Picture &picture)
{
    if (!picture.words.contains("\\dibitmap"))
        return picture.bytes;
    constexpr int HeadSize = 14;
    QByteArray head("BM\0\0\0\0\0\0\0\0\0\0\0\0", HeadSize);
    return head + picture.bytes;
}

QByteArray asPng(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

bool isJpeg(const QByteArray &file)
{
    return file.startsWith("\xFF\xD8\xFF");
}

bool isPng(const QByteArray &file)
{
    return file.startsWith("\x89PNG\r\n\x1a\n");
}

bool insertBytes(QTextCursor &cursor, const QByteArray &file, QSize size, QSize most)
{
    const QSize shown = bounded(size, most);
    PictureBudget budget;
    const QByteArray words = pictureWords(isJpeg(file) ? "jpegblip" : "pngblip", size, shown);
    // What is typed behind it looks as the text in front of it.
    QTextCharFormat format = cursor.charFormat();
    format.merge(addPicture(*cursor.document(), {words, file, shown}, budget));
    if (budget.wasDamaged())
        return false;
    cursor.insertImage(format.toImageFormat());
    return true;
}

} // namespace

QImage PictureBudget::imageOf(const Picture &picture, QSize &shown)
{
    const QSize most = QSize(LongestSide, LongestSide);
    if (!shown.isEmpty())
        shown = bounded(shown, most);
    const qint64 pixels = shown.isEmpty() ? 0 : qint64{shown.width()} * shown.height();
    QImage image = m_pixels > pixels ? drawn(withHead(picture), shown.isEmpty() ? most : shown) : QImage();
    if (image.isNull()) {
        // A drawing of another system can't be shown here, but is no damage.
        m_damaged = m_damaged || picture.words.contains("pngblip") || picture.words.contains("jpegblip");
        if (shown.isEmpty())
            shown = FrameSize;
        return frame();
    }
    m_pixels -= qint64{image.width()} * image.height();
    if (shown.isEmpty())
        shown = image.size();
    return image;
}

QTextImageFormat addPicture(QTextDocument &document, const Picture &picture, PictureBudget &budget)
{
    const QByteArray sum =
        QCryptographicHash::hash(picture.words + '\0' + picture.bytes, QCryptographicHash::Sha1);
    const QString name = u"picture:"_s + QString::fromLatin1(sum.toHex());
    QSize shown = picture.shown;
    if (!document.resource(QTextDocument::UserResource, sourceUrl(name)).isValid()) {
        document.addResource(QTextDocument::ImageResource, QUrl(name), budget.imageOf(picture, shown));
        document.addResource(QTextDocument::UserResource, sourceUrl(name),
                             QVariantList{picture.words, picture.bytes, shown});
    } else {
        shown = document.resource(QTextDocument::UserResource, sourceUrl(name)).toList().value(2).toSize();
    }
    QTextImageFormat format;
    format.setName(name);
    format.setWidth(shown.width());
    format.setHeight(shown.height());
    return format;
}

QByteArray pictureWords(const QByteArray &kind, QSize pixels, QSize shown)
{
    const auto twips = [](int length) { return QByteArray::number(length * quaverly::TwipsPerPixel); };
    return '\\' + kind + "\\picw" + QByteArray::number(pixels.width()) + "\\pich" +
           QByteArray::number(pixels.height()) + "\\picwgoal" + twips(shown.width()) + "\\pichgoal" +
           twips(shown.height());
}

Picture pictureOf(const QTextDocument &document, const QTextImageFormat &format)
{
    const QString name = format.name();
    const QVariantList source = document.resource(QTextDocument::UserResource, sourceUrl(name)).toList();
    if (source.size() == 3)
        return {source[0].toByteArray(), source[1].toByteArray(), source[2].toSize()};
    const auto image = document.resource(QTextDocument::ImageResource, QUrl(name)).value<QImage>();
    if (image.isNull())
        return {};
    const QSize shown = format.width() > 0 && format.height() > 0
                            ? QSizeF(format.width(), format.height()).toSize()
                            : image.size();
    return {pictureWords("pngblip", image.size(), shown), asPng(image), shown};
}

bool insertPicture(QTextCursor &cursor, const QByteArray &file, QSize most)
{
    QBuffer buffer;
    buffer.setData(file);
    const QSize size = QImageReader(&buffer).size();
    if (!size.isEmpty() && (isJpeg(file) || isPng(file)))
        return insertBytes(cursor, file, size, most);
    return insertPicture(cursor, drawn(file, QSize(LongestSide, LongestSide)), most);
}

bool insertPicture(QTextCursor &cursor, const QImage &image, QSize most)
{
    if (image.isNull())
        return false;
    const QSize size = bounded(image.size(), QSize(LongestSide, LongestSide));
    const QImage kept = image.size() == size ? image : image.scaled(size);
    return insertBytes(cursor, asPng(kept), size, most);
}

} // namespace richtext
