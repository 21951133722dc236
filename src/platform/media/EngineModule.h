// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/media/Engine.h"
#include "platform/media/Media.h"

#include <memory>

namespace media {

/**
 * Loads the module, once per run, and makes an engine with it. The program itself is linked to no part of
 * it: with all that it leads to it takes time and memory that a start without music saves.
 *
 * @throws std::runtime_error with a sentence when the module or what it needs is not there
 */
[[nodiscard]] std::unique_ptr<Engine> loadEngine(const MediaOptions &options);

} // namespace media
