// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

#include <optional>

namespace richtext {

struct Token
{
    enum class Kind { End, Open, Close, Word, Byte, Text };

    Kind kind = Kind::End;
    /** The word without its backslash, or the run of text; points into what is read. */
    QByteArrayView text{};
    /** The word's number, or the byte. */
    std::optional<int> number{};
};

/** Takes a rich text file apart. Line ends between its words are no text and are left out. */
class RtfLexer final
{
public:
    explicit RtfLexer(QByteArrayView rtf) : m_rest(rtf) {}

    /** End from the end on. */
    [[nodiscard]] Token next();
    /** Raw bytes behind a word; fewer where the text ends. */
    [[nodiscard]] QByteArrayView takeBytes(qsizetype count);

private:
    [[nodiscard]] Token control();
    [[nodiscard]] Token word();
    [[nodiscard]] Token hexByte();
    [[nodiscard]] std::optional<int> number();
    [[nodiscard]] QByteArrayView take(qsizetype count);

    QByteArrayView m_rest;
};

/** 0 to 15, or -1 for no such digit. */
[[nodiscard]] int hexDigit(char c);

} // namespace richtext
