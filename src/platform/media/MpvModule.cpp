// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MpvModule.h"

#include "platform/media/MpvEngine.h"

namespace media {

std::unique_ptr<Engine> MpvModule::makeEngine(const EngineOptions &options) const
{
    return std::make_unique<MpvEngine>(options);
}

} // namespace media
