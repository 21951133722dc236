// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace shell {

/**
 * A short text that stands for the sound in a file, whatever its tags say and wherever it is. Made of the
 * sound's length and three pieces of it, begin, middle and end, so that a file of any size costs the same;
 * two sounds that share it all are one sound, but for a few bits that somebody changed by hand. FLAC names
 * its own sum of the sound.
 * @param path in the file system's own bytes
 * @returns the empty text when the file can't be read or has no sound; never throws
 */
[[nodiscard]] QString soundHash(const QByteArray &path);

} // namespace shell
