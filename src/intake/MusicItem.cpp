// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/MusicItem.h"

#include "desktop/FileHelpers.h"
#include "platform/shell/MusicKinds.h"
#include "platform/shell/Shell.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString extensionOfType(const QString &typeText, const QString &pathWithoutExtension)
{
    if (QString ending = shell::endingOfType(typeText); !ending.isEmpty())
        return ending;
    for (const QString &plain : {u"aac"_s, u"flac"_s}) {
        if (typeText.contains(plain, Qt::CaseInsensitive))
            return u'.' + plain;
    }
    if (typeText.contains("video"_L1, Qt::CaseInsensitive)) {
        for (const QString &extension : {u".m4a"_s, u".ogg"_s, u".flac"_s}) {
            if (FileExists(pathWithoutExtension + extension))
                return extension;
        }
    }
    return {};
}

} // namespace

bool isFolderItem(const shell::Item &item)
{
    return item.detail(shell::AttributesColumn).contains(u'd', Qt::CaseInsensitive);
}

std::optional<MusicItem> musicItemOf(const shell::Item &item, const QString &folder, bool ExtensionsHidden)
{
    QString name = item.name();
    QString extension = ExtensionsHidden ? extensionOfType(item.detail(shell::TypeColumn), folder + name)
                                         : shell::musicEnding(name);
    if (extension.isEmpty())
        return std::nullopt;
    if (ExtensionsHidden)
        name += extension;
    return MusicItem{std::move(name), std::move(extension)};
}

} // namespace quaverly
