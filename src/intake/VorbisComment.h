// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace quaverly {

class ScanReport;
class NewSong;

/** Bytes at the head of a FLAC or Ogg file in which comments are looked for. */
inline constexpr qint64 VorbisHeadBytes = 1000;

/**
 * Value of the first four bytes, the first one lowest; with the top bit set it is negative.
 * @p Text is left holding the number's eight hexadecimal digits.
 * @throws dao::DaoError 5 for fewer than four bytes.
 */
qint32 HexLittleEndian(QByteArray &Text);

/**
 * Value of all bytes, the first one highest. @p Text is left holding their hexadecimal digits.
 * @throws dao::DaoError 5 for no bytes, 6 for more than four.
 */
qint32 HexBigEndian(QByteArray &Text);

/**
 * The value of a comment, found in @p Buffer by its key in any case: a plain search of the raw
 * bytes, so that the first match counts, whatever it stands in. @p Key is a NUL, the name in upper
 * case and "=". Empty without a match. A value that goes beyond the buffer ends with the last whole
 * character in it.
 * @throws dao::DaoError 5 when the length in front of the key is shorter than the key.
 */
[[nodiscard]] QString ReadVorbisComment(const QByteArray &Buffer, const QByteArray &Key);

/** Fills the fields from the comments in @p head, the file's first bytes. FileName must be there. */
void fillFromVorbisComments(const QByteArray &head, NewSong &song, ScanReport &report);

} // namespace quaverly
