// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/RtfLexer.h"

#include <algorithm>

namespace richtext {

namespace {

/** Numbers beyond are taken for this one: nothing that has a meaning is as large. */
constexpr int LargestNumber = 1'000'000'000;

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool endsText(char c)
{
    return c == '\\' || c == '{' || c == '}' || c == '\r' || c == '\n' || c == '\0';
}

} // namespace

int hexDigit(char c)
{
    if (isDigit(c))
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

QByteArrayView RtfLexer::take(qsizetype count)
{
    const QByteArrayView taken = m_rest.first(count);
    m_rest = m_rest.sliced(count);
    return taken;
}

QByteArrayView RtfLexer::takeBytes(qsizetype count)
{
    return take(std::clamp<qsizetype>(count, 0, m_rest.size()));
}

Token RtfLexer::next()
{
    while (!m_rest.isEmpty() && (m_rest.front() == '\r' || m_rest.front() == '\n' || m_rest.front() == '\0'))
        m_rest = m_rest.sliced(1);
    if (m_rest.isEmpty())
        return {};
    switch (m_rest.front()) {
    case '{':
        return {Token::Kind::Open, take(1)};
    case '}':
        return {Token::Kind::Close, take(1)};
    case '\\':
        static_cast<void>(take(1));
        return control();
    default:
        break;
    }
    const auto *end = std::find_if(m_rest.begin(), m_rest.end(), endsText);
    return {Token::Kind::Text, take(end - m_rest.begin())};
}

Token RtfLexer::control()
{
    if (m_rest.isEmpty())
        return {};
    const char first = m_rest.front();
    if (isLetter(first))
        return word();
    const QByteArrayView symbol = take(1);
    if (first == '\'')
        return hexByte();
    if (first == '\\' || first == '{' || first == '}')
        return {Token::Kind::Text, symbol};
    if (first == '\r' || first == '\n')
        return {Token::Kind::Word, "par"};
    return {Token::Kind::Word, symbol};
}

Token RtfLexer::word()
{
    const auto *end = std::find_if_not(m_rest.begin(), m_rest.end(), isLetter);
    Token token{Token::Kind::Word, take(end - m_rest.begin())};
    token.number = number();
    if (!m_rest.isEmpty() && m_rest.front() == ' ')
        m_rest = m_rest.sliced(1);
    return token;
}

std::optional<int> RtfLexer::number()
{
    const bool negative = m_rest.size() > 1 && m_rest.front() == '-' && isDigit(m_rest[1]);
    if (negative)
        m_rest = m_rest.sliced(1);
    if (m_rest.isEmpty() || !isDigit(m_rest.front()))
        return std::nullopt;
    int value = 0;
    while (!m_rest.isEmpty() && isDigit(m_rest.front())) {
        const int digit = take(1).front() - '0';
        value = value > LargestNumber / 10 - 1 ? LargestNumber : value * 10 + digit;
    }
    return negative ? -value : value;
}

Token RtfLexer::hexByte()
{
    int value = 0;
    for (int digits = 0; digits < 2 && !m_rest.isEmpty(); ++digits) {
        const int digit = hexDigit(m_rest.front());
        if (digit < 0)
            break;
        value = value * 16 + digit;
        m_rest = m_rest.sliced(1);
    }
    return {Token::Kind::Byte, {}, value};
}

} // namespace richtext
