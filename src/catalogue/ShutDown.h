// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"

namespace quaverly {

/**
 * The end of a run, as far as it needs no screen. The main screen's unload calls leaveMainScreen()
 * behind its own steps; whoever exchanges the file, or ends the process, then closes the catalogue.
 */
class ShutDown final
{
public:
    explicit ShutDown(Catalogue &catalogue) : m_catalogue(catalogue) {}

    /**
     * Closes ContactsTable and takes all marks away, so that none outlives a run.
     */
    void leaveMainScreen();

    /** True when the unload ends the process: no other catalogue is wanted and none is compacted. */
    [[nodiscard]] bool endsProcess(bool compactingCatalogue) const;

    /** @throws dao::DaoError when it is closed, but in two files. */
    void closeCatalogue();

private:
    Catalogue &m_catalogue;
};

} // namespace quaverly
