// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace media {
class MediaPlayer;
}

namespace quaverly {

class OptionsStore;

namespace keys {
/** 0 to 100. */
inline constexpr char16_t PlayerVolume[] = u"Player Volume";
inline constexpr char16_t PlayerMute[] = u"Player Mute";
} // namespace keys

/** Gives a player the volume and mute of the last one. */
void loadPlayerSettings(const OptionsStore &store, media::MediaPlayer &player);

/** Keeps what the user has changed. @throws dao::DaoError 75 when the store can't be written. */
void savePlayerSettings(const media::MediaPlayer &player, OptionsStore &store);

} // namespace quaverly
