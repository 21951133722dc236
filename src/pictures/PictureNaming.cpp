// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PictureNaming.h"

#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "pictures/PictureFiles.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace quaverly {

QString proposedName(const PictureSong &song)
{
    return song.artist.trimmed() + u'-' + song.songName.trimmed() + u'-' + song.album.trimmed();
}

std::optional<QString> askPictureName(Desktop &desktop, const QString &example, const QString &proposed)
{
    const QStringList lines{
        u"First you must enter a NAME for this picture."_s,
        u"Do NOT enter a file extension (like .jpg), JUST enter a name (like %1)."_s.arg(example),
        {},
        u"This name must not contain any characters that are illegal in a file name, or "
        "it will be ignored."_s,
        u"Illegal characters are:"_s,
        u"   *  \\  /  :  ?  |  \"  <  >"_s};
    const QString name =
        desktop.InputPrompt(lines.join(u'\r'), u"Picture name required"_s, proposed).trimmed();
    if (!IsValidFileName(name))
        return std::nullopt;
    return withJpg(name);
}

} // namespace quaverly
