// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QTextImageFormat>

class QTextDocument;

namespace richtext {

/** A picture as the file holds it. */
struct Picture
{
    /** The words in front of its bytes, the format among them: "\pngblip\picwgoal1440". */
    QByteArray words;
    QByteArray bytes;
    /** Pixels on the screen; empty for the image's own size. */
    QSize shown;
};

/** How much pictures of one document may take in memory while they are shown. */
class PictureBudget final
{
public:
    /** An image no larger than @p shown asks for; a grey frame for a format that can't be drawn. */
    [[nodiscard]] QImage imageOf(const Picture &picture, QSize &shown);
    /** True once a picture could not be drawn. */
    [[nodiscard]] bool wasDamaged() const { return m_damaged; }

private:
    qint64 m_pixels = 32'000'000;
    bool m_damaged = false;
};

/**
 * Gives a document the picture to show and the one to write; the format stands for it in the text. The same
 * picture is kept once.
 */
[[nodiscard]] QTextImageFormat addPicture(QTextDocument &document, const Picture &picture,
                                          PictureBudget &budget);

/** What is to be written for an image in the text: the picture read, or the image drawn as PNG. */
[[nodiscard]] Picture pictureOf(const QTextDocument &document, const QTextImageFormat &format);

/** The words of a picture in a file that is shown at that size, in pixels. */
[[nodiscard]] QByteArray pictureWords(const QByteArray &kind, QSize pixels, QSize shown);

} // namespace richtext
