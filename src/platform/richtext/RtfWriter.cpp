// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/RtfWriter.h"

#include "platform/richtext/Pictures.h"
#include "platform/store/DaoError.h"
#include "platform/text/Twips.h"

#include <QBuffer>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextList>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

constexpr qsizetype LongOutput = 1 << 16;
constexpr qsizetype HexLine = 64;

int twips(double pixels)
{
    return qRound(pixels * quaverly::TwipsPerPixel);
}

ParagraphState shapeOf(const QTextBlockFormat &format)
{
    ParagraphState state;
    if (format.alignment() & Qt::AlignHCenter)
        state.align = ParagraphState::Align::Centre;
    else if (format.alignment() & Qt::AlignRight)
        state.align = ParagraphState::Align::Right;
    else if (format.alignment() & Qt::AlignJustify)
        state.align = ParagraphState::Align::Justify;
    constexpr double IndentPixels = 40;
    state.left = twips(format.leftMargin() + format.indent() * IndentPixels);
    state.right = twips(format.rightMargin());
    state.firstLine = twips(format.textIndent());
    state.before = twips(format.topMargin());
    state.after = twips(format.bottomMargin());
    return state;
}

QByteArray word(const char *name, int number)
{
    return '\\' + QByteArray(name) + QByteArray::number(number);
}

QByteArray escaped(QChar c)
{
    // Some readers take a bare question mark, or what follows it, for the character itself.
    return word("u", static_cast<qint16>(c.unicode())) + "\\'3f";
}

[[noreturn]] void refuse(const QIODevice &device)
{
    const auto *file = qobject_cast<const QFileDevice *>(&device);
    const QString text =
        file ? u"'%1'.  %2"_s.arg(file->fileName(), device.errorString()) : device.errorString();
    if (file && file->error() == QFileDevice::ResourceError)
        throw dao::DaoError(dao::DiskFull, u"Disk full: "_s + text);
    throw dao::DaoError(dao::PathFileAccess, u"Path/File access error: "_s + text);
}

} // namespace

RtfWriter::RtfWriter(const QTextDocument &document, QIODevice &device)
    : m_document(document), m_device(device)
{}

void RtfWriter::write(const WriteOptions &options)
{
    collectTables();
    writeHead(options);
    for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next()) {
        writeBlock(block);
        flushLongOutput();
    }
    m_out += "}\r\n";
    flush();
}

QString RtfWriter::familyOf(const QTextCharFormat &format) const
{
    const QStringList families = format.fontFamilies().toStringList();
    return families.isEmpty() ? m_document.defaultFont().family() : families.first();
}

void RtfWriter::collectTables()
{
    const auto addFont = [this](const QString &family) {
        if (!m_fonts.contains(family)) {
            m_fonts.insert(family, static_cast<int>(m_families.size()));
            m_families.append(family);
        }
    };
    const auto addColor = [this](const QBrush &brush) {
        if (brush.style() == Qt::NoBrush || m_colorNumbers.contains(brush.color().rgb()))
            return;
        m_colors.append(brush.color().rgb());
        m_colorNumbers.insert(brush.color().rgb(), static_cast<int>(m_colors.size()));
    };
    addFont(m_document.defaultFont().family());
    for (const QTextFormat &each : m_document.allFormats()) {
        const QTextCharFormat format = each.toCharFormat();
        if (!each.isCharFormat())
            continue;
        addFont(familyOf(format));
        addColor(format.foreground());
        addColor(format.background());
    }
}

void RtfWriter::writeHead(const WriteOptions &options)
{
    m_out += "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl";
    for (qsizetype i = 0; i < m_families.size(); ++i) {
        m_out += '{' + word("f", static_cast<int>(i)) + "\\fnil\\fcharset0 ";
        for (const QChar c : m_families[i]) {
            if (c != u';')
                writeCharacter(c);
        }
        m_out += ";}";
    }
    m_out += "}\r\n{\\colortbl ;";
    for (const QRgb color : m_colors)
        m_out += word("red", qRed(color)) + word("green", qGreen(color)) + word("blue", qBlue(color)) + ';';
    m_out += "}\r\n";
    if (options.marginTwips >= 0) {
        for (const char *side : {"margl", "margr", "margt", "margb"})
            m_out += word(side, options.marginTwips);
        m_out += "\r\n";
    }
    m_out += "\\pard\\plain\\f0 ";
    m_state.font = 0;
}

void RtfWriter::writeBlock(const QTextBlock &block)
{
    writeParagraphStyle(block.blockFormat());
    if (const QTextList *list = block.textList()) {
        writeCharStyle(block.charFormat());
        writeText(list->itemText(block) + u'\t', block.charFormat());
    }
    bool hasText = false;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        writeText(it.fragment().text(), it.fragment().charFormat());
        hasText = true;
    }
    // The height of an empty line is that of its font.
    if (!hasText)
        writeCharStyle(block.charFormat());
    m_out += "\\par\r\n";
}

void RtfWriter::writeParagraphStyle(const QTextBlockFormat &format)
{
    static constexpr const char *aligns[] = {"\\ql", "\\qc", "\\qr", "\\qj"};
    const ParagraphState shape = shapeOf(format);
    if (shape == m_shape)
        return;
    m_shape = shape;
    m_out += "\\pard";
    m_out += aligns[static_cast<std::size_t>(shape.align)];
    const auto add = [this](const char *name, int value) {
        if (value != 0)
            m_out += word(name, value);
    };
    add("li", shape.left);
    add("ri", shape.right);
    add("fi", shape.firstLine);
    add("sb", shape.before);
    add("sa", shape.after);
    m_out += ' ';
}

CharState RtfWriter::stateOf(const QTextCharFormat &format) const
{
    CharState state;
    state.font = m_fonts.value(familyOf(format));
    const double points = format.hasProperty(QTextFormat::FontPointSize)
                              ? format.fontPointSize()
                              : m_document.defaultFont().pointSizeF();
    state.halfPoints = points > 0 ? qRound(points * 2) : CharState().halfPoints;
    state.color = colorNumber(format.foreground());
    state.background = colorNumber(format.background());
    state.bold = format.fontWeight() >= QFont::DemiBold;
    state.italic = format.fontItalic();
    state.underline = format.fontUnderline();
    state.strikeOut = format.fontStrikeOut();
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        state.script = 1;
    else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        state.script = -1;
    return state;
}

int RtfWriter::colorNumber(const QBrush &brush) const
{
    return brush.style() == Qt::NoBrush ? 0 : m_colorNumbers.value(brush.color().rgb());
}

void RtfWriter::writeCharStyle(const QTextCharFormat &format)
{
    const CharState state = stateOf(format);
    const qsizetype before = m_out.size();
    const auto toggle = [this](const char *on, const char *off, bool is, bool was) {
        if (is != was)
            m_out += is ? on : off;
    };
    const auto number = [this](const char *name, int is, int was) {
        if (is != was)
            m_out += word(name, is);
    };
    number("f", state.font, m_state.font);
    number("fs", state.halfPoints, m_state.halfPoints);
    number("cf", state.color, m_state.color);
    number("highlight", state.background, m_state.background);
    toggle("\\b", "\\b0", state.bold, m_state.bold);
    toggle("\\i", "\\i0", state.italic, m_state.italic);
    toggle("\\ul", "\\ulnone", state.underline, m_state.underline);
    toggle("\\strike", "\\strike0", state.strikeOut, m_state.strikeOut);
    if (state.script != m_state.script)
        m_out += state.script == 0 ? "\\nosupersub" : state.script > 0 ? "\\super" : "\\sub";
    if (m_out.size() > before)
        m_out += ' ';
    m_state = state;
}

void RtfWriter::writeText(QStringView text, const QTextCharFormat &format)
{
    writeCharStyle(format);
    for (const QChar c : text) {
        if (c == QChar::ObjectReplacementCharacter)
            writePicture(format);
        else
            writeCharacter(c);
        flushLongOutput();
    }
}

void RtfWriter::writeCharacter(QChar c)
{
    switch (c.unicode()) {
    case u'\\':
    case u'{':
    case u'}':
        m_out += '\\';
        m_out += c.toLatin1();
        break;
    case u'\t':
        m_out += "\\tab ";
        break;
    case PageBreak:
        m_out += "\\page ";
        break;
    case 0x2028:
        m_out += "\\line ";
        break;
    case 0x00A0:
        m_out += "\\~";
        break;
    default:
        if (c.unicode() >= 0x20 && c.unicode() < 0x7F)
            m_out += c.toLatin1();
        else if (c.unicode() >= 0x7F)
            m_out += escaped(c);
    }
}

void RtfWriter::writePicture(const QTextCharFormat &format)
{
    const Picture picture = pictureOf(m_document, format.toImageFormat());
    if (picture.bytes.isEmpty())
        return;
    m_out += "{\\pict" + picture.words;
    for (qsizetype at = 0; at < picture.bytes.size(); at += HexLine) {
        m_out += "\r\n" + picture.bytes.sliced(at, std::min(HexLine, picture.bytes.size() - at)).toHex();
        flushLongOutput();
    }
    m_out += "}\r\n";
}

void RtfWriter::flushLongOutput()
{
    if (m_out.size() >= LongOutput)
        flush();
}

void RtfWriter::flush()
{
    // On a disk that is filling up, a part may go in before the rest is refused.
    for (QByteArrayView rest = m_out; !rest.isEmpty();) {
        const qint64 written = m_device.write(rest.data(), rest.size());
        if (written <= 0)
            refuse(m_device);
        rest = rest.sliced(written);
    }
    m_out.clear();
}

void writeRtf(const QTextDocument &document, QIODevice &device, const WriteOptions &options)
{
    RtfWriter(document, device).write(options);
}

QByteArray toRtf(const QTextDocument &document, const WriteOptions &options)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    writeRtf(document, buffer, options);
    return bytes;
}

void saveRtf(const QTextDocument &document, const QString &path, const WriteOptions &options)
{
    QSaveFile file(path);
    // Unbuffered: committing would not notice what its buffer could not write.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        refuse(file);
    writeRtf(document, file, options);
    if (!file.commit())
        refuse(file);
}

} // namespace richtext
