// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayerSettings.h"

#include "catalogue/Options.h"
#include "platform/media/Media.h"
#include "platform/options/OptionsStore.h"

namespace quaverly {

void loadPlayerSettings(const OptionsStore &store, media::MediaPlayer &player)
{
    bool known = false;
    const int volume = option(store, keys::PlayerVolume).toInt(&known);
    if (known)
        player.settings().setVolume(volume);
    player.settings().setMute(flagOption(store, keys::PlayerMute));
}

void savePlayerSettings(const media::MediaPlayer &player, OptionsStore &store)
{
    const QString volume = QString::number(player.settings().volume());
    const bool mute = player.settings().mute();
    if (option(store, keys::PlayerVolume) != volume)
        saveOption(store, keys::PlayerVolume, volume);
    if (flagOption(store, keys::PlayerMute) != mute)
        saveFlagOption(store, keys::PlayerMute, mute);
}

} // namespace quaverly
