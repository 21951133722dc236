// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

namespace dao {

/** The form in which dates are stored, and compare as text: ISO 8601, without a time at midnight. */
[[nodiscard]] QString storedDate(const QDateTime &date);
/** The other way; an invalid date for any other text. The time spec is UTC: no zone is meant. */
[[nodiscard]] QDateTime dateFromStored(const QString &stored);

} // namespace dao
