// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/MusicItem.h"

#include "desktop/FileHelpers.h"
#include "platform/shell/MusicKinds.h"
#include "platform/shell/Shell.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** The extension that a name ends in; "flac" needs no dot. Empty when it isn't one of music. */
QString extensionOf(const QString &name)
{
    const shell::MusicKind *const kind = shell::musicKindByTail(name);
    return kind == nullptr ? QString() : u'.' + kind->extension;
}

QString extensionOfType(const QString &typeText, const QString &pathWithoutExtension)
{
    for (const shell::TypeTextPart &type : shell::typeTextParts()) {
        if (typeText.contains(type.holds, Qt::CaseInsensitive))
            return type.extension;
    }
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
    QString extension =
        ExtensionsHidden ? extensionOfType(item.detail(shell::TypeColumn), folder + name) : extensionOf(name);
    if (extension.isEmpty())
        return std::nullopt;
    if (ExtensionsHidden)
        name += extension;
    return MusicItem{std::move(name), std::move(extension)};
}

} // namespace quaverly
