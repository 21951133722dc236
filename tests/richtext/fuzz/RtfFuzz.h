// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

namespace richtext::test {

/**
 * Reads one input, writes what was read and reads that again. Nothing comes back when both documents are the
 * same, else what is wrong.
 */
[[nodiscard]] QString faultOfReading(QByteArrayView rtf);

} // namespace richtext::test
