// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QDateTime;

namespace quaverly {

class DataControl;

/**
 * Writes a typed text into a field of the current song, together with the time of the change.
 * @throws dao::DaoError, for a text that is too long or no date where one is wanted; the song is then
 * as it was.
 */
void writeCell(DataControl &data, const QString &field, const QString &text, const QDateTime &now);

} // namespace quaverly
