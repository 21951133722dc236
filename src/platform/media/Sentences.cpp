// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/Sentences.h"

#include "platform/media/ListFile.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace media::sentences {

QString refusal(const QString &path)
{
    if (!path.startsWith(u'/'))
        return u"\"%1\" can't be played: only files on this machine can."_s.arg(path);
    if (isListFile(path))
        return u"\"%1\" can't be played: it is a list inside a list."_s.arg(path);
    const QFileInfo file(path);
    if (!file.exists())
        return u"\"%1\" was not found. It may have been moved or deleted."_s.arg(path);
    if (!file.isFile())
        return u"\"%1\" can't be played: it is no file."_s.arg(path);
    if (!file.isReadable())
        return failure(Failure::Unreadable, path);
    return file.size() == 0 ? u"\"%1\" can't be played: it is empty."_s.arg(path) : QString();
}

QString failure(Failure failure, const QString &path)
{
    switch (failure) {
    case Failure::NoSoundOutput:
        return u"No sound can be played: there is no sound output, or another program keeps it."_s;
    case Failure::Unreadable:
        return u"\"%1\" can't be read."_s.arg(path);
    case Failure::Damaged:
        break;
    }
    return u"\"%1\" can't be played: it is damaged, or no music."_s.arg(path);
}

QString emptyList(const QString &path)
{
    return u"The list \"%1\" names no songs."_s.arg(path);
}

QString nothingLeft()
{
    return u"No song is left in the list that can be played."_s;
}

} // namespace media::sentences
