// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

/** What the add commands, the scan screens and the scan itself share for the length of a run. */
struct IntakeState
{
    /** Set by the scan screens to stop a scan; cleared by whoever starts one, and when it ends. */
    bool CancelScan = false;
    /** The folder added from last, where the next dialog starts. */
    QString LastMusicFolder;
};

} // namespace quaverly
