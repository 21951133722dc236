// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <string>

namespace dao {

/**
 * A pattern of the dialect's Like, read once for many texts. See isLike for what it means.
 */
class LikePattern final
{
public:
    explicit LikePattern(QByteArrayView pattern);

    /** @p text is UTF-8. */
    [[nodiscard]] bool matches(QByteArrayView text) const;
    /** A shorter text doesn't match. */
    [[nodiscard]] qsizetype leastBytes() const { return m_needle.size(); }

private:
    [[nodiscard]] bool hasNeedle(QByteArrayView text) const;

    std::u32string m_folded;
    /** The folded pattern when it is of ASCII alone. */
    QByteArray m_ascii;
    /** What stands between two stars, when that is all; folded ASCII. */
    QByteArray m_needle;
    bool m_isAscii = false;
};

/**
 * The dialect's Like over UTF-8 texts, blind to case: `*` any characters, `?` one, `#` one digit,
 * `[a-z]` and `[!a-z]` one of a set; `[*]` stands for the character itself. An unclosed bracket
 * matches nothing. Cost is bounded by pattern times text, however many stars.
 */
[[nodiscard]] bool isLike(QByteArrayView text, QByteArrayView pattern);

/** A text as Like compares it, character by character: small letters, ss for a sharp s. */
[[nodiscard]] QString foldedText(const QString &text);

} // namespace dao
