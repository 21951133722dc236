// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>

namespace quaverly {

/**
 * Why no window can be shown in this process's environment, as a sentence to the user; empty when one can. Qt
 * ends the process when it finds no way, so this is asked before there is an application.
 *
 * @param pluginFolders where Qt looks for its plugins
 */
[[nodiscard]] QByteArray displayTrouble(const QStringList &pluginFolders);

} // namespace quaverly
