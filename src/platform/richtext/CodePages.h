// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringDecoder>

#include <map>

namespace richtext {

/** Stands for the symbol font's own characters. */
inline constexpr int SymbolCodePage = 42;
inline constexpr int WesternCodePage = 1252;

/** The code page of a font's character set; @p documents for one that leaves it open. */
[[nodiscard]] int codePageOfCharset(int charset, int documents);

/** Turns bytes of any code page into text. An unknown one is read as the western one. */
class CodePages final
{
public:
    [[nodiscard]] QString decode(QByteArrayView bytes, int codePage);

private:
    std::map<int, QStringDecoder> m_decoders;
};

} // namespace richtext
