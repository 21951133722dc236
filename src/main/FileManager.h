// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

class Desktop;

/**
 * Has the desktop's file manager show a file in its folder; where none can be asked for that, or the file is
 * gone, the folder is opened. False when that is gone too, or there is no program for it.
 */
[[nodiscard]] bool showInFileManager(Desktop &desktop, const QString &path);

} // namespace quaverly
