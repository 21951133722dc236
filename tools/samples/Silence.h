// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringView>

namespace samples {

/**
 * A valid, silent sound file without tags.
 * @param extension one of the eight types, in lower case without its dot
 * @param seconds length of .mp3, .wav and .aac; the other types last a second
 * @throws std::invalid_argument for another extension
 */
[[nodiscard]] QByteArray silence(QStringView extension, int seconds = 1);

} // namespace samples
