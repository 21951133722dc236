// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

/** Bytes of small music files, made up of their parts. */
namespace quaverly::test {

/** Comments, each behind its length, as the head of a FLAC or Ogg file holds them. */
[[nodiscard]] QByteArray vorbisComments(const QList<QByteArray> &comments);

/** A whole Ogg-like head: some bytes of a page and the comments. */
[[nodiscard]] QByteArray oggFile(const QList<QByteArray> &comments);

/** An atom with its size in front. */
[[nodiscard]] QByteArray atom(const QByteArray &type, const QByteArray &payload);
/** An atom of the item list with a text. */
[[nodiscard]] QByteArray textAtom(const QByteArray &type, const QByteArray &value);
/** The numeric genre atom. */
[[nodiscard]] QByteArray genreAtom(int number);
/** The usual head of an M4A file, and @p items as its item list. */
[[nodiscard]] QByteArray m4aFile(const QByteArray &items);

/** ID3v2.3 tag with Latin-1 text frames, and @p frames MPEG frames of 128 kbps. */
[[nodiscard]] QByteArray mp3File(const QList<std::pair<QByteArray, QByteArray>> &texts, int frames = 40);

/** A second of silence at 8 kHz, 8 bits. */
[[nodiscard]] QByteArray wavFile();

} // namespace quaverly::test
