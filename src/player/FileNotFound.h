// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QString;

namespace quaverly {

class Desktop;

/** The box about a song whose music file is not where the catalogue has it. */
void ShowFileNotFound(Desktop &desktop, const QString &FullPath);

} // namespace quaverly
