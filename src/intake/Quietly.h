// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>

namespace quaverly {

/** Runs what a command does; a failure stops the command and nobody is told, as its users expect. */
template <typename Command> void quietly(Command &&command)
{
    try {
        command();
    } catch (const std::exception &) { // NOLINT(bugprone-empty-catch)
    }
}

} // namespace quaverly
