// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace samples {

/**
 * Fills a folder, which is made when missing, with a believable music collection: folders of artists
 * and albums, all eight types, names in several scripts, some songs without tags.
 * The same count and seed give the same names and tags everywhere.
 * @throws std::runtime_error when something can't be written
 */
void makeCorpus(const QString &folder, int count, quint32 seed = 1);

} // namespace samples
