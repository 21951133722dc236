// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

namespace dao {

/**
 * The dialect's Like over UTF-8 texts, blind to case: `*` any characters, `?` one, `#` one digit,
 * `[a-z]` and `[!a-z]` one of a set; `[*]` stands for the character itself. An unclosed bracket
 * matches nothing. Cost is bounded by pattern times text, however many stars.
 */
[[nodiscard]] bool isLike(QByteArrayView text, QByteArrayView pattern);

/** A text as Like compares it, character by character: small letters, ss for a sharp s. */
[[nodiscard]] QString foldedText(const QString &text);

} // namespace dao
