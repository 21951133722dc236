// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "update/UpdateParts.h"

namespace quaverly {

/** The commands that bring the catalogue and the disk together. */
class UpdateCommands final
{
public:
    UpdateCommands(UpdateParts parts, std::function<void()> showUpdate, std::function<void()> showCheck)
        : m_parts(std::move(parts)), m_showUpdate(std::move(showUpdate)), m_showCheck(std::move(showCheck))
    {}

    void mnuUpdateFromDisk_Click();
    void mnuCheckCatalogue_Click();

private:
    UpdateParts m_parts;
    std::function<void()> m_showUpdate;
    std::function<void()> m_showCheck;
};

} // namespace quaverly
