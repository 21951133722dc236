// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/FolderSongs.h"

#include "desktop/FileHelpers.h"
#include "platform/shell/MusicKinds.h"
#include "platform/shell/Shell.h"
#include "platform/text/Text.h"
#include "player/SongQueue.h"
#include "player/TemporaryList.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** As much as the catalogue's fields hold. */
constexpr qsizetype LongestText = 255;

/** Looked for behind what all look for. */
constexpr std::array MoreTypeTexts{
    shell::TypeTextPart{"flac file"_L1, ".flac"_L1},
    shell::TypeTextPart{"video"_L1, ".m4a"_L1},
};

/** Last four characters in lower case, those of FLAC files with the dot in front. */
QString extensionOf(const QString &name)
{
    const QString tail = name.right(4).toLower();
    return tail == "flac"_L1 ? u".flac"_s : tail;
}

bool isMusic(const QString &extension)
{
    const shell::MusicKind *const kind = shell::musicKindOf(extension);
    return kind != nullptr && kind->inPlayedFolder;
}

bool isMusicInWalk(const QString &name)
{
    const shell::MusicKind *const kind = shell::musicKindByTail(name);
    return !name.startsWith(u'.') && kind != nullptr && kind->isSong;
}

/** The extension that the type text stands for; empty for none. */
QString extensionOfType(const QString &typeText)
{
    for (const auto &parts : {shell::typeTextParts(), std::span<const shell::TypeTextPart>(MoreTypeTexts)}) {
        for (const shell::TypeTextPart &part : parts) {
            if (typeText.contains(part.holds, Qt::CaseInsensitive))
                return part.extension;
        }
    }
    return {};
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
    if (item.detail(shell::AttributesColumn).contains(u'd', Qt::CaseInsensitive))
        return {};
    QString name = item.name();
    const QString extension = extensionOf(name);
    if (isMusic(extension))
        return name;
    if (extension.startsWith(u'.'))
        return {};
    if (const QString known = extensionOfType(item.detail(shell::TypeColumn)); !known.isEmpty())
        return name + known;
    const QString found = files.withAnyExtension(name);
    return isMusic(extensionOf(found)) ? name + extensionOf(found) : QString();
}

void addSong(const shell::Item &item, const QString &folder, const QString &name, int versionMajor,
             SongQueue &songs)
{
    const shell::DetailColumns &columns = shell::detailColumns(versionMajor);
    const QString fileName = name.left(LongestText);
    const QString path = folder + fileName;
    if (fileName.isEmpty() || !FileExists(path) || !fitsInList(path))
        return;
    QString title = item.detail(columns.title).left(LongestText);
    QString artist = item.detail(columns.artist).left(LongestText);
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
