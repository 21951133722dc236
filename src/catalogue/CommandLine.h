// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace quaverly {

/** What the program was started with. */
struct CommandLine
{
    enum class Kind { Nothing, MusicFile, CatalogueFile };

    Kind kind = Kind::Nothing;
    /** The argument without its double quotes. */
    QString argument;
};

/** The last four characters decide, in lower case: seven endings make it a music file. */
[[nodiscard]] CommandLine parseCommandLine(const QString &text);

/** The arguments when they are several and each names a music file that is there, as file managers give them;
 * else none. */
[[nodiscard]] QStringList severalMusicFiles(const QStringList &arguments);

} // namespace quaverly
