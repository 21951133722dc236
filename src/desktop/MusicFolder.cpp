// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/MusicFolder.h"

#include "desktop/FileHelpers.h"

#include <QDir>
#include <QStandardPaths>

namespace quaverly {

QString musicFolder()
{
    const QString music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    return FolderExists(music) ? music : QDir::homePath();
}

} // namespace quaverly
