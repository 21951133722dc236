// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CommandLine.h"

#include "desktop/FileHelpers.h"
#include "platform/shell/MusicKinds.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

CommandLine parseCommandLine(const QString &text)
{
    QString argument = text.trimmed();
    if (argument.isEmpty())
        return {};
    argument.remove(u'"');
    const shell::MusicKind *const kind = shell::musicKindByTail(argument);
    return {kind != nullptr && kind->isSong ? CommandLine::Kind::MusicFile : CommandLine::Kind::CatalogueFile,
            argument};
}

QStringList severalMusicFiles(const QStringList &arguments)
{
    const bool all = std::ranges::all_of(arguments, [](const QString &argument) {
        return parseCommandLine(argument).kind == CommandLine::Kind::MusicFile && FileExists(argument);
    });
    return all && arguments.size() > 1 ? arguments : QStringList();
}

} // namespace quaverly
