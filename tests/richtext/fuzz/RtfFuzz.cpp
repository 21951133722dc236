// SPDX-License-Identifier: GPL-3.0-or-later
#include "richtext/fuzz/RtfFuzz.h"

#include "platform/richtext/RichText.h"

#include <QTextDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace richtext::test {

QString faultOfReading(QByteArrayView rtf)
{
    QTextDocument read, reread;
    static_cast<void>(readRtf(rtf, read));
    const QByteArray written = toRtf(read);
    if (std::ranges::any_of(written, [](char c) { return static_cast<signed char>(c) < 0; }))
        return u"what is written is not plain ASCII"_s;
    const Reading again = readRtf(written, reread);
    if (!again.isRtf || !again.keepsAll)
        return u"what is written is not read as a whole"_s;
    if (reread.toRawText() != read.toRawText())
        return u"another text: "_s + reread.toRawText() + u" instead of "_s + read.toRawText();
    if (toRtf(reread) != written)
        return u"written otherwise the second time: "_s +
               QString::fromLatin1(toRtf(reread) + " <- " + written);
    return {};
}

} // namespace richtext::test
