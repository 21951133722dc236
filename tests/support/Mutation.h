// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayList>
#include <QRandomGenerator>

namespace quaverly::test {

/**
 * A variant of @p bytes, of a few steps: one of @p pieces or a part of @p other put in or written over what
 * stands there, a byte changed, a part taken out, the end cut off. The most of it happens in the first 600
 * bytes, where what decides stands in a file of music.
 */
[[nodiscard]] QByteArray mutated(QByteArray bytes, const QByteArray &other, const QByteArrayList &pieces,
                                 QRandomGenerator &random);

} // namespace quaverly::test
