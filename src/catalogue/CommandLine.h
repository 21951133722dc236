// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

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

} // namespace quaverly
