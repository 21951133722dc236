// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/richtext/RichText.h"
#include "platform/richtext/RtfState.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QRgb>

class QBrush;
class QTextBlock;
class QTextBlockFormat;
class QTextCharFormat;

namespace richtext {

/** Writes a document as RTF, in pieces, so that a long one is never in memory as a whole. */
class RtfWriter final
{
public:
    /** Both outlive the writer. */
    RtfWriter(const QTextDocument &document, QIODevice &device);

    /** @throws dao::DaoError when the device does not take it. */
    void write(const WriteOptions &options);

private:
    void collectTables();
    void writeHead(const WriteOptions &options);
    void writeBlock(const QTextBlock &block);
    void writeParagraphStyle(const QTextBlockFormat &format);
    void writeCharStyle(const QTextCharFormat &format);
    void writeText(QStringView text, const QTextCharFormat &format);
    void writeCharacter(QChar c);
    void writePicture(const QTextCharFormat &format);
    void flushLongOutput();
    void flush();

    [[nodiscard]] QString familyOf(const QTextCharFormat &format) const;
    [[nodiscard]] CharState stateOf(const QTextCharFormat &format) const;
    [[nodiscard]] int colorNumber(const QBrush &brush) const;

    const QTextDocument &m_document;
    QIODevice &m_device;
    QByteArray m_out;
    QHash<QString, int> m_fonts;
    QStringList m_families;
    QHash<QRgb, int> m_colorNumbers;
    QList<QRgb> m_colors;
    CharState m_state;
    ParagraphState m_shape;
};

} // namespace richtext
