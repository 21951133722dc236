// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

namespace quaverly::test {

/**
 * Reads one sound file, written to @p folder for it, in the three ways that a scan has. Its length
 * chooses the extension. Nothing comes back when what was read can be shown and stored, else what is
 * wrong with it.
 */
[[nodiscard]] QString faultOfReading(QByteArrayView content, const QString &folder);

} // namespace quaverly::test
