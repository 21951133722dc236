// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/Like.h"

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace dao {

namespace {

bool isAscii(QByteArrayView text)
{
    for (const char c : text) {
        if (static_cast<unsigned char>(c) >= 0x80)
            return false;
    }
    return true;
}

constexpr char32_t foldAscii(char32_t c)
{
    return c >= U'A' && c <= U'Z' ? c + 32 : c;
}

/** A text whose characters are folded already. */
class Folded
{
public:
    explicit Folded(QByteArrayView utf8)
    {
        auto text =
            icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<int32_t>(utf8.size())));
        UErrorCode status = U_ZERO_ERROR;
        if (const auto *nfc = icu::Normalizer2::getNFCInstance(status); U_SUCCESS(status))
            text = nfc->normalize(text, status);
        text.foldCase();
        m_characters.resize(static_cast<std::size_t>(text.countChar32()));
        status = U_ZERO_ERROR;
        text.toUTF32(reinterpret_cast<UChar32 *>(m_characters.data()),
                     static_cast<int32_t>(m_characters.size()), status);
    }

    [[nodiscard]] std::size_t size() const { return m_characters.size(); }
    [[nodiscard]] char32_t operator[](std::size_t i) const { return m_characters[i]; }
    [[nodiscard]] QString text() const { return QString::fromStdU32String(m_characters); }

private:
    std::u32string m_characters;
};

/** A text of ASCII alone, folded as it is read. */
class Ascii
{
public:
    explicit Ascii(QByteArrayView text) : m_text(text) {}
    [[nodiscard]] std::size_t size() const { return static_cast<std::size_t>(m_text.size()); }
    [[nodiscard]] char32_t operator[](std::size_t i) const
    {
        return foldAscii(static_cast<unsigned char>(m_text[static_cast<qsizetype>(i)]));
    }

private:
    QByteArrayView m_text;
};

constexpr std::size_t NoMatch = static_cast<std::size_t>(-1);

/** Tests c against the set that opens at `at`; gives the place behind its bracket, or NoMatch. */
template <typename Characters> std::size_t matchSet(const Characters &pattern, std::size_t at, char32_t c)
{
    std::size_t i = at + 1;
    const bool negated =
        i < pattern.size() && pattern[i] == U'!' && i + 1 < pattern.size() && pattern[i + 1] != U']';
    if (negated)
        ++i;
    bool inSet = false;
    for (; i < pattern.size() && pattern[i] != U']'; ++i) {
        char32_t last = pattern[i];
        const char32_t first = last;
        if (i + 2 < pattern.size() && pattern[i + 1] == U'-' && pattern[i + 2] != U']') {
            last = pattern[i + 2];
            i += 2;
        }
        inSet = inSet || (c >= first && c <= last);
    }
    if (i >= pattern.size() || inSet == negated)
        return NoMatch;
    return i + 1;
}

/** Matches one character of the text at a pattern place that is no star. */
template <typename Characters> std::size_t matchOne(const Characters &pattern, std::size_t at, char32_t c)
{
    switch (pattern[at]) {
    case U'?':
        return at + 1;
    case U'#':
        return c >= U'0' && c <= U'9' ? at + 1 : NoMatch;
    case U'[':
        return matchSet(pattern, at, c);
    default:
        return pattern[at] == c ? at + 1 : NoMatch;
    }
}

// A star only ever needs to try again from the last one: two places to go back to are enough.
template <typename Characters> bool match(const Characters &text, const Characters &pattern)
{
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t starPattern = NoMatch;
    std::size_t starText = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == U'*') {
            starPattern = ++p;
            starText = t;
            continue;
        }
        const std::size_t next = p < pattern.size() ? matchOne(pattern, p, text[t]) : NoMatch;
        if (next != NoMatch) {
            p = next;
            ++t;
        } else if (starPattern != NoMatch) {
            p = starPattern;
            t = ++starText;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == U'*')
        ++p;
    return p == pattern.size();
}

} // namespace

bool isLike(QByteArrayView text, QByteArrayView pattern)
{
    if (isAscii(text) && isAscii(pattern))
        return match(Ascii(text), Ascii(pattern));
    return match(Folded(text), Folded(pattern));
}

QString foldedText(const QString &text)
{
    return Folded(text.toUtf8()).text();
}

} // namespace dao
