// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <memory>

class QIODevice;
class QImage;
class QTextCursor;
class QTextDocument;

/**
 * Documents as rich text files (RTF): fonts, sizes, colours, bold, italic, underline, paragraphs, page
 * breaks and pictures, as word processors read and write them.
 */
namespace richtext {

/** A page break, as a character of a document's text. */
inline constexpr char16_t PageBreak = u'\f';

/** The most that is read of one text; what stands behind is left out. */
inline constexpr qsizetype MostCharacters = 4'000'000;
inline constexpr int MostParagraphs = 150'000;

/** What became of a text that was read. */
struct Reading
{
    /** False for a text that is none of ours: it is taken as plain text. */
    bool isRtf = true;
    /** False when the text breaks off, holds a damaged picture or is longer than what is read. */
    bool isWhole = true;
    /** False when the document leaves something out (tables, headers, objects): written again, it is lost. */
    bool keepsAll = true;
};

/** Puts the text in place of what @p document holds. Whatever the bytes are, it ends, in bounded memory. */
Reading readRtf(QByteArrayView rtf, QTextDocument &document);
/** The same for a text that was kept as text. */
Reading readRtfText(const QString &rtf, QTextDocument &document);

/** Deletes a document. What a long one took goes back to the system, not only to this program. */
void discard(std::unique_ptr<QTextDocument> document);

struct WriteOptions
{
    /** Margin on all four sides of a page, in twips; the reader's own without one. */
    int marginTwips = -1;
};

/** Plain ASCII: it may be kept as text. @throws dao::DaoError when the device does not take it. */
void writeRtf(const QTextDocument &document, QIODevice &device, const WriteOptions &options = {});
[[nodiscard]] QByteArray toRtf(const QTextDocument &document, const WriteOptions &options = {});
/** The whole file or, on an error, what was there before. @throws dao::DaoError 61, 70 or 75. */
void saveRtf(const QTextDocument &document, const QString &path, const WriteOptions &options = {});

/**
 * Puts a picture in place of the selection. JPEG and PNG go in as they are, other formats as PNG; shown no
 * larger than @p most, in pixels. False, and no change, for bytes that are no picture.
 */
bool insertPicture(QTextCursor &cursor, const QByteArray &file, QSize most);
/** The same for an image; a very large one goes in smaller. */
bool insertPicture(QTextCursor &cursor, const QImage &image, QSize most);

} // namespace richtext
