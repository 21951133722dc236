// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace quaverly {

class OptionsStore;

/**
 * The endings, without their dots, of the music files that the user does not want: folders are added and
 * played without them. Kinds that a later version knows are taken until he says so.
 */
[[nodiscard]] QStringList kindsLeftOut(const OptionsStore &store);

/** @throws dao::DaoError 75 when the store can't be written. */
void keepKindsLeftOut(OptionsStore &store, const QStringList &endings);

} // namespace quaverly
