// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QString>

#include <optional>

namespace quaverly {

/** The box that every stored picture fills. */
inline constexpr QSize PictureBoxSize(1024, 768);

/** Larger pictures are not read: they would take more memory than they are worth. */
inline constexpr qint64 MostPixels = 64 * 1024 * 1024;

/** A picture, upright, reduced to what is shown of it. */
struct Picture
{
    QImage image;
    /** Its own size. */
    QSize size;
    /** What the decoder says of a file that it could read in part only; empty for a sound one. */
    QString fault{};
};

/** Size at which a picture of size @p own meets the 4:3 box; proportions stay, but for what is cut to whole
 * pixels. */
[[nodiscard]] QSize fittedSize(QSize own, QSize box);

/**
 * Reads a JPEG, bitmap or GIF file, or PNG and WebP where they can be read; what it is its content tells.
 * A damaged file gives what is left of it, and its fault. Nothing comes back for one that is no picture, and
 * for one with more than MostPixels or that takes too much memory to be read. May be called on any thread.
 */
[[nodiscard]] std::optional<Picture> readPicture(const QString &path, QSize box);

/** The same for a picture that is in memory already. */
[[nodiscard]] std::optional<Picture> takePicture(const QImage &image, QSize box);

/** The box with the picture, as fitted, at its top left corner; the rest is white. */
[[nodiscard]] QImage paintedBox(const Picture &picture, QSize box);

} // namespace quaverly
