// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/Picture.h"

#include "desktop/FileHelpers.h"
#include "pictures/PictureFaults.h"
#include "platform/options/OptionsStore.h"
#include "platform/text/Twips.h"

#include <QFile>
#include <QImageReader>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

bool isRead(const QByteArray &format)
{
    // Others, such as drawings that name further files, are no pictures here.
    static const QByteArrayList formats{"jpeg", "jpg", "bmp", "gif", "png", "webp"};
    return formats.contains(format);
}

bool isTooLarge(QSize size)
{
    return size.isEmpty() || qint64(size.width()) * size.height() > MostPixels;
}

/** The size at which it is kept: that of the box, unless the picture is smaller. */
QSize keptSize(QSize own, QSize box)
{
    const QSize fitted = fittedSize(own, box);
    return fitted.width() < own.width() ? fitted.boundedTo(own) : own;
}

/** What the decoder logged, or what it never looks at. */
QString faultOf(QFile &file, const DecoderComplaints &complaints)
{
    if (!complaints.first().isEmpty())
        return complaints.first();
    const qint64 size = file.size();
    const uchar *bytes = file.map(0, size);
    return bytes && endsEarly(QByteArrayView(bytes, size)) ? u"The file breaks off."_s : QString();
}

} // namespace

QSize fittedSize(QSize own, QSize box)
{
    const double width = own.width();
    const double height = own.height();
    // Whole twips are taken, not whole pixels: a picture of the box's proportions fills it.
    const int boxWidth = box.width() * TwipsPerPixel;
    const int boxHeight = box.height() * TwipsPerPixel;
    const int newWidth = std::min(static_cast<int>(width / height * boxWidth * 0.75), boxWidth);
    int newHeight = boxHeight;
    if (height < width)
        newHeight = std::min(static_cast<int>(height / width * boxHeight * 1.333333), boxHeight);
    // A picture of one line is still seen.
    const auto pixels = [](int twips) { return std::max(1, qRound(double(twips) / TwipsPerPixel)); };
    return {pixels(newWidth), pixels(newHeight)};
}

std::optional<Picture> readPicture(const QString &path, QSize box)
{
    if (!FileExists(path))
        return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const DecoderComplaints complaints;
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    if (!isRead(reader.format()) || isTooLarge(reader.size()))
        return std::nullopt;
    const bool isTurned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    const QSize own = isTurned ? reader.size().transposed() : reader.size();
    const QSize kept = keptSize(own, box);
    if (kept != own)
        reader.setScaledSize(isTurned ? kept.transposed() : kept);
    QImage image;
    const bool isSound = reader.read(&image);
    if (image.isNull())
        return std::nullopt;
    return Picture{image, own, isSound ? faultOf(file, complaints) : reader.errorString()};
}

std::optional<Picture> takePicture(const QImage &image, QSize box)
{
    if (isTooLarge(image.size()))
        return std::nullopt;
    const QSize kept = keptSize(image.size(), box);
    return Picture{kept == image.size() ? image
                                        : image.scaled(kept, Qt::IgnoreAspectRatio, Qt::SmoothTransformation),
                   image.size()};
}

QImage paintedBox(const Picture &picture, QSize box)
{
    QImage painted(box, QImage::Format_RGB32);
    painted.fill(Qt::white);
    QPainter painter(&painted);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRect(QPoint(), fittedSize(picture.size, box)), picture.image);
    return painted;
}

} // namespace quaverly
