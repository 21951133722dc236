// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

namespace quaverly::test {

/**
 * Reads the ID3v2 tag of a file, written to @p folder for it. Nothing comes back when its collections agree
 * and hold no more than the file does, else what is wrong with them.
 */
[[nodiscard]] QString faultOfTag(QByteArrayView content, const QString &folder);

} // namespace quaverly::test
