// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/MusicItem.h"

#include "desktop/FileHelpers.h"
#include "platform/shell/Shell.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int TypeColumn = 2;
constexpr int AttributesColumn = 6;

struct TypeText
{
    QLatin1StringView holds;
    QStringView extension;
};

// In the order of testing.
constexpr std::array TypeTexts{
    TypeText{"mp3"_L1, u".mp3"},
    TypeText{"mp4"_L1, u".m4a"},
    TypeText{"m4a"_L1, u".m4a"},
    TypeText{"mpeg-4 audio"_L1, u".m4a"},
    TypeText{"windows media audio"_L1, u".wma"},
    TypeText{"wma"_L1, u".wma"},
    TypeText{"wav"_L1, u".wav"},
    TypeText{"ogg"_L1, u".ogg"},
    TypeText{"aac"_L1, u".aac"},
    TypeText{"flac"_L1, u".flac"},
};

/** The extension that a name ends in; "flac" needs no dot. Empty when it isn't one of music. */
QString extensionOf(const QString &name)
{
    static const std::array<QString, 8> extensions{u".mp3"_s, u".m4a"_s,  u".wma"_s, u".wav"_s,
                                                   u".aac"_s, u".flac"_s, u".ogg"_s, u".mp4"_s};
    const QStringView tail = QStringView(name).right(4);
    const QStringView wanted =
        tail.compare("flac"_L1, Qt::CaseInsensitive) == 0 ? QStringView(u".flac") : tail;
    for (const QString &extension : extensions) {
        if (wanted.compare(extension, Qt::CaseInsensitive) == 0)
            return extension;
    }
    return {};
}

QString extensionOfType(const QString &typeText, const QString &pathWithoutExtension)
{
    for (const TypeText &type : TypeTexts) {
        if (typeText.contains(type.holds, Qt::CaseInsensitive))
            return type.extension.toString();
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
    return item.detail(AttributesColumn).contains(u'd', Qt::CaseInsensitive);
}

std::optional<MusicItem> musicItemOf(const shell::Item &item, const QString &folder, bool ExtensionsHidden)
{
    QString name = item.name();
    QString extension =
        ExtensionsHidden ? extensionOfType(item.detail(TypeColumn), folder + name) : extensionOf(name);
    if (extension.isEmpty())
        return std::nullopt;
    if (ExtensionsHidden)
        name += extension;
    return MusicItem{std::move(name), std::move(extension)};
}

} // namespace quaverly
