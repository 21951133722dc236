// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

struct sqlite3;

namespace dao {

/** Adds the collation DAO to a connection: blind to case, not to accents (UCA root, secondary strength). */
void registerCollation(sqlite3 *db);

/** Compares two UTF-8 texts as the collation does: negative, zero or positive. */
[[nodiscard]] int compareTexts(QByteArrayView left, QByteArrayView right);

/** Changes whenever the order of texts may differ, so that indexes must be made anew. */
[[nodiscard]] QString collationVersion();

} // namespace dao
