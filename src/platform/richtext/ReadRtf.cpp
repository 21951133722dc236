// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/RichText.h"
#include "platform/richtext/RtfReader.h"
#include "platform/text/Text.h"

#include <QTextDocument>

#include <malloc.h>

namespace richtext {

namespace {

Reading readPlain(const QString &text, QTextDocument &document)
{
    const Tables none;
    DocumentBuilder builder(document, none);
    CharState state;
    const QString lines = QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    qsizetype at = 0;
    while (at < lines.size() && !builder.isFull()) {
        qsizetype end = lines.indexOf(u'\n', at);
        const bool ends = end >= 0;
        end = ends ? end : lines.size();
        builder.append(QStringView(lines).sliced(at, end - at), state);
        if (ends)
            builder.endParagraph({});
        at = end + 1;
    }
    builder.finish({});
    return {.isRtf = false, .isWhole = !builder.isFull()};
}

} // namespace

Reading readRtf(QByteArrayView rtf, QTextDocument &document)
{
    const QByteArrayView text = rtf.trimmed();
    if (!text.startsWith("{\\rtf"))
        return readPlain(quaverly::fromSystemCodePage(rtf), document);
    return RtfReader(text, document).read();
}

Reading readRtfText(const QString &rtf, QTextDocument &document)
{
    if (!QStringView(rtf).trimmed().startsWith(QLatin1StringView("{\\rtf")))
        return readPlain(rtf, document);
    QByteArray bytes;
    bytes.reserve(rtf.size());
    for (const QChar c : rtf) {
        if (c.unicode() < 0x80)
            bytes += static_cast<char>(c.unicode());
        else
            bytes += "{\\uc0\\u" + QByteArray::number(static_cast<qint16>(c.unicode())) + '}';
    }
    return readRtf(bytes, document);
}

void discard(std::unique_ptr<QTextDocument> document)
{
    constexpr int LongCharacters = 1'000'000;
    const bool isLong = document && document->characterCount() > LongCharacters;
    document.reset();
    if (isLong)
        malloc_trim(0);
}

} // namespace richtext
