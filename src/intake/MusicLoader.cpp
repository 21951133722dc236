// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/MusicLoader.h"

#include "intake/MusicScan.h"

#include <QScopedValueRollback>

#include <utility>

namespace quaverly {

MusicLoader::MusicLoader(IntakeParts parts) : m_parts(std::move(parts))
{}

void MusicLoader::LoadMusicFiles(const QString &Path, const QStringList &Files)
{
    if (m_running)
        return;
    const QScopedValueRollback running(m_running, true);
    MusicScan(m_parts, Path, Files).run();
}

} // namespace quaverly
