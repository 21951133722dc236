// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>

#include <optional>

/**
 * The small rules about text, numbers and dates that the whole program shares.
 * A Null is a QVariant for which isNull() holds.
 */
namespace quaverly {

/** The separator of the platform's paths, as a folder's text ends in it. */
inline constexpr QChar PathSeparator = u'/';

/** A Null becomes the empty text, anything else its text. */
[[nodiscard]] QString NullToEmpty(const QVariant &value);

/** The empty text becomes Null, anything else stays. */
[[nodiscard]] QVariant EmptyToNull(const QString &text);

/** Replaces all occurrences of @p find, by exact comparison; an empty @p find changes nothing. */
[[nodiscard]] QString ReplaceText(const QString &source, const QString &find, const QString &replacement);

/** The test `text > " "` of the screens: something printable stands in front. */
[[nodiscard]] bool isGreaterThanBlank(const QString &text);
[[nodiscard]] bool isGreaterThanBlank(const QVariant &value);

/** A whole text that reads as one number: sign, digits, group separators, a point, an exponent. */
[[nodiscard]] bool IsNumeric(const QString &text);

/**
 * The leading number of a text, 0 without one. Blanks are passed over; the first other character
 * that can't belong to the number ends it, so that a group separator does.
 */
[[nodiscard]] double Val(const QString &text);

/** A date in any form that the system accepts: ISO 8601, the locale's short form, or m/d/y. */
[[nodiscard]] std::optional<QDateTime> parseDate(const QString &text);
[[nodiscard]] bool IsDate(const QString &text);

/** The locale's short form with a four-digit year; the time follows unless it is midnight. */
[[nodiscard]] QString shortDate(const QDateTime &date);

/** Bytes of the system's code page: UTF-8, or Windows-1252 where they are not valid UTF-8. */
[[nodiscard]] QString fromSystemCodePage(QByteArrayView bytes);

} // namespace quaverly
