// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/Like.h"

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <algorithm>

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

/** Every character as Like compares it. */
std::u32string folded(QByteArrayView utf8)
{
    auto text =
        icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<int32_t>(utf8.size())));
    UErrorCode status = U_ZERO_ERROR;
    if (const auto *nfc = icu::Normalizer2::getNFCInstance(status); U_SUCCESS(status))
        text = nfc->normalize(text, status);
    text.foldCase();
    std::u32string characters(static_cast<std::size_t>(text.countChar32()), U'\0');
    status = U_ZERO_ERROR;
    text.toUTF32(reinterpret_cast<UChar32 *>(characters.data()), static_cast<int32_t>(characters.size()),
                 status);
    return characters;
}

/**
 * True for a text with a character that folds, or composes, to one of ASCII: sharp and long s, dotted I,
 * ligatures, the Kelvin sign and their like. In any other text ASCII comes from ASCII alone.
 */
bool mayFoldToAscii(QByteArrayView text)
{
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(text[i]);
        const auto second = static_cast<unsigned char>(text[i + 1]);
        switch (first) {
        case 0xC3:
            if (second == 0x9F)
                return true;
            break;
        case 0xC4:
        case 0xC7:
            if (second == 0xB0)
                return true;
            break;
        case 0xC5:
            if (second == 0x89 || second == 0xBF)
                return true;
            break;
        case 0xCD:
            if (second == 0xBE)
                return true;
            break;
        case 0xE1:
            if (second == 0xBA || second == 0xBF)
                return true;
            break;
        case 0xE2:
            if (second == 0x84)
                return true;
            break;
        case 0xEF:
            if (second == 0xAC)
                return true;
            break;
        default:
            break;
        }
    }
    return false;
}

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
template <typename Text, typename Pattern> bool match(const Text &text, const Pattern &pattern)
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

LikePattern::LikePattern(QByteArrayView pattern) : m_folded(folded(pattern))
{
    m_isAscii = std::all_of(m_folded.begin(), m_folded.end(), [](char32_t c) { return c < 0x80; });
    if (!m_isAscii)
        return;
    for (const char32_t c : m_folded)
        m_ascii += static_cast<char>(c);
    const bool betweenStars = m_ascii.size() > 2 && m_ascii.startsWith('*') && m_ascii.endsWith('*');
    const QByteArray inner = betweenStars ? m_ascii.sliced(1, m_ascii.size() - 2) : QByteArray();
    if (std::none_of(inner.begin(), inner.end(),
                     [](char c) { return c == '*' || c == '?' || c == '#' || c == '['; }))
        m_needle = inner;
}

bool LikePattern::hasNeedle(QByteArrayView text) const
{
    const char *needle = m_needle.constData();
    const qsizetype length = m_needle.size();
    const auto first = static_cast<unsigned char>(needle[0]);
    for (qsizetype at = 0; at + length <= text.size(); ++at) {
        if (foldAscii(static_cast<unsigned char>(text[at])) != first)
            continue;
        qsizetype same = 1;
        while (same < length && foldAscii(static_cast<unsigned char>(text[at + same])) ==
                                    static_cast<unsigned char>(needle[same]))
            ++same;
        if (same == length)
            return true;
    }
    return false;
}

bool LikePattern::matches(QByteArrayView text) const
{
    if (!m_needle.isEmpty()) {
        // Folding makes no more characters than there were bytes.
        if (text.size() < leastBytes())
            return false;
        const bool found = hasNeedle(text);
        const bool ascii = isAscii(text);
        if (ascii || (!found && !mayFoldToAscii(text)))
            return found;
    } else if (m_isAscii && isAscii(text)) {
        return match(Ascii(text), Ascii(m_ascii));
    }
    return match(folded(text), m_folded);
}

bool isLike(QByteArrayView text, QByteArrayView pattern)
{
    return LikePattern(pattern).matches(text);
}

QString foldedText(const QString &text)
{
    return QString::fromStdU32String(folded(text.toUtf8()));
}

} // namespace dao
