// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/FolderSongs.h"

#include "desktop/FileHelpers.h"
#include "platform/shell/Shell.h"
#include "platform/text/Text.h"
#include "player/SongQueue.h"
#include "player/TemporaryList.h"

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int TypeColumn = 2;
constexpr int AttributesColumn = 6;
constexpr int LastVersionWithOldColumns = 5;
/** As much as the catalogue's fields hold. */
constexpr qsizetype LongestText = 255;

struct TypeText
{
    QLatin1StringView holds;
    QLatin1StringView extension;
};

// In the order of testing.
constexpr std::array TypeTexts{
    TypeText{"mp3"_L1, ".mp3"_L1},
    TypeText{"mp4"_L1, ".m4a"_L1},
    TypeText{"m4a"_L1, ".m4a"_L1},
    TypeText{"mpeg-4 audio"_L1, ".m4a"_L1},
    TypeText{"windows media audio"_L1, ".wma"_L1},
    TypeText{"wma"_L1, ".wma"_L1},
    TypeText{"wav"_L1, ".wav"_L1},
    TypeText{"ogg"_L1, ".ogg"_L1},
    TypeText{"flac file"_L1, ".flac"_L1},
    TypeText{"video"_L1, ".m4a"_L1},
};

/** Last four characters in lower case, those of FLAC files with the dot in front. */
QString extensionOf(const QString &name)
{
    const QString tail = name.right(4).toLower();
    return tail == "flac"_L1 ? u".flac"_s : tail;
}

bool isMusic(const QString &extension)
{
    static constexpr std::array extensions{".m4a"_L1, ".mp3"_L1, ".wma"_L1, ".wav"_L1, ".flac"_L1, ".ogg"_L1};
    return std::ranges::find(extensions, extension) != extensions.end();
}

bool isMusicInWalk(const QString &name)
{
    static constexpr std::array endings{".ogg"_L1, "flac"_L1, ".wav"_L1, ".aac"_L1,
                                        ".wma"_L1, ".m4a"_L1, ".mp3"_L1};
    return !name.startsWith(u'.') && std::ranges::find(endings, name.right(4).toLower()) != endings.end();
}

/** The names of a folder's files, looked up when first asked for. */
class FileNames final
{
public:
    FileNames(shell::Shell &shell, const QString &folder) : m_shell(shell), m_folder(folder) {}

    /** The first file of that name with any extension; empty without one. */
    [[nodiscard]] QString withAnyExtension(const QString &name)
    {
        if (!m_names)
            read();
        const QString start = name + u'.';
        const auto found = std::ranges::lower_bound(*m_names, start);
        return found != m_names->end() && found->startsWith(start) ? *found : QString();
    }

private:
    void read()
    {
        m_names.emplace();
        for (const shell::Entry &entry : m_shell.search(m_folder)) {
            if (entry.kind == shell::EntryKind::File)
                m_names->append(entry.name);
        }
        m_names->sort();
    }

    shell::Shell &m_shell;
    const QString &m_folder;
    std::optional<QStringList> m_names;
};

/** The name of an item's file where the shell may hide extensions; empty for one that is no music. */
QString fileNameOfItem(const shell::Item &item, FileNames &files)
{
    if (item.detail(AttributesColumn).contains(u'd', Qt::CaseInsensitive))
        return {};
    QString name = item.name();
    const QString extension = extensionOf(name);
    if (isMusic(extension))
        return name;
    if (extension.startsWith(u'.'))
        return {};
    const QString type = item.detail(TypeColumn);
    for (const TypeText &known : TypeTexts) {
        if (type.contains(known.holds, Qt::CaseInsensitive))
            return name + known.extension;
    }
    const QString found = files.withAnyExtension(name);
    return isMusic(extensionOf(found)) ? name + extensionOf(found) : QString();
}

void addSong(const shell::Item &item, const QString &folder, const QString &name, int versionMajor,
             SongQueue &songs)
{
    const bool oldColumns = versionMajor <= LastVersionWithOldColumns;
    const QString fileName = name.left(LongestText);
    const QString path = folder + fileName;
    if (fileName.isEmpty() || !FileExists(path) || !fitsInList(path))
        return;
    QString title = item.detail(oldColumns ? 10 : 21).left(LongestText);
    QString artist = item.detail(oldColumns ? 16 : 13).left(LongestText);
    if (!isGreaterThanBlank(artist))
        artist = u"Unknown"_s;
    if (!isGreaterThanBlank(title))
        title = fileName;
    songs.add(songRow(title, artist), path);
}

} // namespace

void addFolderSongs(shell::Shell &shell, const QString &folder, FolderRules rules, int versionMajor,
                    SongQueue &songs)
{
    const auto items = shell.NameSpace(folder);
    if (!items)
        return;
    FileNames files(shell, folder);
    for (qsizetype i = 0; i < items->count(); ++i) {
        const shell::Item &item = items->item(i);
        if (rules == FolderRules::OneFolder)
            addSong(item, folder, fileNameOfItem(item, files), versionMajor, songs);
        else if (isMusicInWalk(item.name()))
            addSong(item, folder, item.name(), versionMajor, songs);
    }
}

} // namespace quaverly
