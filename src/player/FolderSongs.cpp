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
constexpr std::array MoreTypeTexts{std::pair{"flac file"_L1, ".flac"_L1}, std::pair{"video"_L1, ".m4a"_L1}};

/** Of a file that the player takes from a single folder; empty for any other. */
QString endingOf(const QString &name)
{
    const shell::MusicKind *const kind = shell::musicKindByTail(name);
    return kind != nullptr && kind->inPlayedFolder ? shell::musicEnding(name) : QString();
}

bool isMusicInWalk(const QString &name)
{
    const shell::MusicKind *const kind = shell::musicKindByTail(name);
    return !name.startsWith(u'.') && kind != nullptr && kind->isSong;
}

/** The extension that the type text stands for; empty for none. */
QString extensionOfType(const QString &typeText)
{
    if (const QString ending = shell::endingOfType(typeText); !ending.isEmpty())
        return ending;
    for (const auto &[holds, ending] : MoreTypeTexts) {
        if (typeText.contains(holds, Qt::CaseInsensitive))
            return ending;
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
    if (!endingOf(name).isEmpty())
        return name;
    constexpr qsizetype ending = 4;
    if (name.right(ending).startsWith(u'.'))
        return {};
    if (const QString known = extensionOfType(item.detail(shell::TypeColumn)); !known.isEmpty())
        return name + known;
    const QString found = files.withAnyExtension(name);
    const QString ofFound = endingOf(found);
    return ofFound.isEmpty() ? QString() : name + ofFound;
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
                    const QStringList &leftOut, SongQueue &songs)
{
    const auto items = shell.NameSpace(folder);
    if (!items)
        return;
    FileNames files(shell, folder);
    for (qsizetype i = 0; i < items->count(); ++i) {
        const shell::Item &item = items->item(i);
        const bool oneFolder = rules == FolderRules::OneFolder;
        const QString name = oneFolder ? fileNameOfItem(item, files) : item.name();
        const bool isMusic = oneFolder ? !name.isEmpty() : isMusicInWalk(name);
        if (isMusic && !leftOut.contains(shell::musicEnding(name).sliced(1)))
            addSong(item, folder, name, versionMajor, songs);
    }
}

} // namespace quaverly
