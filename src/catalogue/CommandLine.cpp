// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CommandLine.h"

#include "desktop/FileHelpers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

CommandLine parseCommandLine(const QString &text)
{
    // "flac" bears no point because the test always takes four characters.
    static const QStringList endings{u".mp3"_s, u".m4a"_s, u".wma"_s, u".aac"_s,
                                     u".wav"_s, u"flac"_s, u".ogg"_s};

    QString argument = text.trimmed();
    if (argument.isEmpty())
        return {};
    argument.remove(u'"');
    const bool music = endings.contains(argument.right(4).toLower());
    return {music ? CommandLine::Kind::MusicFile : CommandLine::Kind::CatalogueFile, argument};
}

QStringList severalMusicFiles(const QStringList &arguments)
{
    const bool all = std::ranges::all_of(arguments, [](const QString &argument) {
        return parseCommandLine(argument).kind == CommandLine::Kind::MusicFile && FileExists(argument);
    });
    return all && arguments.size() > 1 ? arguments : QStringList();
}

} // namespace quaverly
