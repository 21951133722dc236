// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/media/Engine.h"

#include <QObject>

namespace media {

/** What the module shows to whoever loads it. */
class MpvModule final : public QObject, public EngineFactory
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.quaverly.MediaEngine/1")
    Q_INTERFACES(media::EngineFactory)

public:
    [[nodiscard]] std::unique_ptr<Engine> makeEngine(const EngineOptions &options) const override;
};

} // namespace media
