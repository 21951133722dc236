// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/MovedFiles.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Empty for what can't be told by this. */
using KeyOfSong = std::function<QString(const LostSong &)>;
using KeyOfFile = std::function<QString(const SongOnDisk &)>;

QString sizeOf(const LostSong &song)
{
    return song.known.stamp ? QString::number(song.known.stamp->size) : song.tags.textOf(u"FileSize"_s);
}

/** Title, artist, album and track: what an earlier version of the program read of a file as well. */
QString nameOf(const TagsRead &tags)
{
    QString name;
    for (const auto field : {"SongName"_L1, "Artist"_L1, "AlbumName"_L1, "TrackText"_L1})
        name += tags.ofField(field);
    return name;
}

/** A song that nobody looked at before is taken to say what its file held. */
TagsRead tagsOf(const LostSong &song)
{
    const bool isKnown = song.tags.fact && song.tags.fact->tags.isKnown();
    return isKnown ? song.tags.fact->tags : TagsRead::of(song.tags.textOf);
}

QString sizeAndTags(const LostSong &song)
{
    return sizeOf(song) + u'|' + nameOf(tagsOf(song));
}

class Matching final
{
public:
    Matching(const std::vector<LostSong> &lost, const std::vector<SongOnDisk> &files)
        : m_lost(lost), m_files(files), m_isFound(lost.size()), m_isTaken(files.size())
    {}

    void match(const KeyOfSong &keyOfSong, const KeyOfFile &keyOfFile, const QString &doubt)
    {
        std::map<QString, std::pair<std::vector<std::size_t>, std::vector<std::size_t>>> groups;
        for (std::size_t song = 0; song < m_lost.size(); ++song) {
            if (const QString key = m_isFound[song] ? QString() : keyOfSong(m_lost[song]); !key.isEmpty())
                groups[key].first.push_back(song);
        }
        for (std::size_t file = 0; file < m_files.size(); ++file) {
            const QString key = m_isTaken[file] ? QString() : keyOfFile(m_files[file]);
            if (const auto group = groups.find(key); !key.isEmpty() && group != groups.end())
                group->second.second.push_back(file);
        }
        for (const auto &[key, group] : groups)
            pair(group.first, group.second, doubt);
    }
    [[nodiscard]] std::vector<FoundSong> take() { return std::move(m_found); }

private:
    /** Of twins those go together that bear one name, and then as they come; somebody has to look. */
    void pair(const std::vector<std::size_t> &songs, const std::vector<std::size_t> &files,
              const QString &doubt)
    {
        const bool areTwins = songs.size() > 1 || files.size() > 1;
        for (const bool byName : {true, false}) {
            for (const std::size_t song : songs) {
                const auto file = std::ranges::find_if(files, [&](std::size_t each) {
                    return !m_isTaken[each] &&
                           (!byName || m_files[each].file.name == m_lost[song].known.name);
                });
                if (m_isFound[song] || file == files.end())
                    continue;
                m_isFound[song] = true;
                m_isTaken[*file] = true;
                m_found.push_back({song, *file, areTwins ? u"One of several that are alike"_s : doubt});
            }
        }
    }

    const std::vector<LostSong> &m_lost;
    const std::vector<SongOnDisk> &m_files;
    std::vector<bool> m_isFound;
    std::vector<bool> m_isTaken;
    std::vector<FoundSong> m_found;
};

/** An inode is soon given to another file: what else stays when somebody writes tags has to speak for it. */
QString inodeAnd(const shell::FileStamp &stamp, const TagsRead &tags,
                 std::initializer_list<QLatin1StringView> fields)
{
    if (stamp.inode == 0)
        return {};
    QString key = u"%1|%2|"_s.arg(stamp.inode).arg(stamp.device);
    for (const auto field : fields)
        key += tags.ofField(field);
    return key;
}

} // namespace

std::vector<FoundSong> findMovedFiles(const std::vector<LostSong> &lost, const std::vector<SongOnDisk> &files)
{
    Matching matching(lost, files);
    matching.match([](const LostSong &song) { return song.tags.fact ? song.tags.fact->sound : QString(); },
                   [](const SongOnDisk &file) { return file.sound; }, {});
    const auto tagsUnder = [](const SongOnDisk &file, const QString &size) {
        return file.stamp ? size + u'|' + nameOf(tagsOf(file.song)) : QString();
    };
    matching.match([](const LostSong &song) { return song.known.stamp ? sizeAndTags(song) : QString(); },
                   [&](const SongOnDisk &file) {
                       return tagsUnder(file, QString::number(file.stamp ? file.stamp->size : 0));
                   },
                   {});
    matching.match([](const LostSong &song) { return song.known.stamp ? QString() : sizeAndTags(song); },
                   [&](const SongOnDisk &file) { return tagsUnder(file, file.song.text(u"FileSize"_s)); },
                   {});
    for (const auto &fields : {std::initializer_list<QLatin1StringView>{"SongName"_L1, "Duration"_L1},
                               {"Artist"_L1, "AlbumName"_L1, "Duration"_L1}})
        matching.match(
            [&](const LostSong &song) {
                return song.known.stamp ? inodeAnd(*song.known.stamp, tagsOf(song), fields) : QString();
            },
            [&](const SongOnDisk &file) {
                // Without an album a file says too little of itself.
                const bool isTold = file.stamp && !file.song.text(u"AlbumName"_s).isEmpty();
                return isTold ? inodeAnd(*file.stamp, tagsOf(file.song), fields) : QString();
            },
            u"Written to as well; the sound was never compared"_s);
    return matching.take();
}

bool mayHoldOneOf(const std::vector<LostSong> &lost, const DiskFile &file)
{
    return std::ranges::any_of(lost, [&](const LostSong &song) {
        const auto &stamp = song.known.stamp;
        return !stamp || (song.tags.fact && !song.tags.fact->sound.isEmpty()) ||
               stamp->size == file.stamp.size || stamp->isSameFile(file.stamp);
    });
}

} // namespace quaverly
