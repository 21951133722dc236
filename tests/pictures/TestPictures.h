// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>

namespace quaverly::test {

/** Soft colours with some grain, as a photograph has them. */
[[nodiscard]] QImage colourful(int width, int height);
/** Sharp shapes on white. */
[[nodiscard]] QImage drawn(int width, int height);
/** One colour all over. */
[[nodiscard]] QImage plain(int width, int height, const QColor &color);

[[nodiscard]] QByteArray fileOf(const QImage &image, const char *format);
/** A JPEG file with that orientation in its EXIF data. */
[[nodiscard]] QByteArray orientedJpeg(const QImage &image, char orientation);
/** The head of a bitmap of that size, and hardly more. */
[[nodiscard]] QByteArray bomb(quint32 width, quint32 height);
/** 16 by 12 pixels in four inks. */
[[nodiscard]] QByteArray inkJpeg();
/** Red, 16 by 12 pixels: Qt writes no such file by itself. */
[[nodiscard]] QByteArray webp();
/** Red, then blue; 3 by 2 pixels. */
[[nodiscard]] QByteArray animatedGif();

/** As JPEG gives a colour back. */
[[nodiscard]] bool isNear(const QColor &a, const QColor &b);

} // namespace quaverly::test
