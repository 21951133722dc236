// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace dao {

/** Intervals are those of DateAdd: yyyy q m y d w ww h n s. Nothing for any other. */
[[nodiscard]] std::optional<QDateTime> dateAdd(const QString &interval, int number, const QDateTime &date);
/** Boundaries crossed from one date to the other; weeks count from Sunday. */
[[nodiscard]] std::optional<qint64> dateDiff(const QString &interval, const QDateTime &from,
                                             const QDateTime &to);
/** Weekdays count from 1 for Sunday. */
[[nodiscard]] std::optional<qint64> datePart(const QString &interval, const QDateTime &date);

/** "yyyy-mm-dd hh:nn:ss" and its like, "Short Date", "Long Date", "General Date". */
[[nodiscard]] QString formatDate(const QDateTime &date, const QString &form);
/** "0", "0.00", "#,##0.0", "Fixed", "Standard", "Percent" and their like. */
[[nodiscard]] QString formatNumber(double number, const QString &form);
/** ">" in capitals, "<" in small letters; any other form leaves the text. */
[[nodiscard]] QString formatText(const QString &text, const QString &form);

/** Blanks only: tabs and line ends stay. */
[[nodiscard]] QString trimBlanks(const QString &text, bool front, bool back);

} // namespace dao
