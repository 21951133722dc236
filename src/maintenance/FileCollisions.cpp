// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/FileCollisions.h"

#include "platform/store/Dao.h"

#include <QHash>

#include <optional>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Lets each song have its file, and sends back to its old one who comes to a file that is taken. */
class FileOwners final
{
public:
    struct Song
    {
        qint64 key = 0;
        SongFile before;
        SongFile after;
    };

    explicit FileOwners(std::vector<Song> songs) : m_songs(std::move(songs))
    {
        m_owners.reserve(static_cast<qsizetype>(m_songs.size()));
        for (std::size_t i = 0; i < m_songs.size(); ++i) {
            if (!isMoving(m_songs[i]))
                m_owners.insert(m_songs[i].before.path(), i);
        }
        for (std::size_t i = 0; i < m_songs.size(); ++i) {
            if (!isMoving(m_songs[i]))
                continue;
            if (m_owners.contains(m_songs[i].after.path()))
                sendBack(i);
            else
                m_owners.insert(m_songs[i].after.path(), i);
        }
    }

    [[nodiscard]] const std::vector<PlaceOfFile> &sentBack() const { return m_sentBack; }

private:
    static bool isMoving(const Song &song) { return !(song.before == song.after); }

    // Who has come to its old file meanwhile has to go back as well.
    void sendBack(std::size_t song)
    {
        std::optional<std::size_t> next = song;
        while (next) {
            Song &back = m_songs[*next];
            m_sentBack.push_back({back.key, back.after});
            const auto owner = m_owners.constFind(back.before.path());
            const auto inPlace = owner == m_owners.cend() ? std::nullopt : std::optional(owner.value());
            m_owners.insert(back.before.path(), *next);
            back.after = back.before;
            next = inPlace && isMoving(m_songs[*inPlace]) ? inPlace : std::nullopt;
        }
    }

    std::vector<Song> m_songs;
    QHash<QString, std::size_t> m_owners;
    std::vector<PlaceOfFile> m_sentBack;
};

} // namespace

std::vector<PlaceOfFile> collisions(dao::Database &database, const std::vector<PlaceOfFile> &places)
{
    QHash<qint64, SongFile> planned;
    planned.reserve(static_cast<qsizetype>(places.size()));
    for (const PlaceOfFile &place : places)
        planned.insert(place.song, place.file);
    const auto rows = database.OpenRecordset(u"Select RecordID, PathName, FileName From tblContacts"_s,
                                             dao::RecordsetType::Dynaset);
    std::vector<FileOwners::Song> songs;
    songs.reserve(static_cast<std::size_t>(rows->RecordCount()));
    rows->forEachRow({0, 1, 2}, [&](qint64 /*position*/, std::span<const QByteArrayView> texts) {
        // Without a file name there is no file to be shared.
        if (texts[2].isEmpty())
            return;
        FileOwners::Song song{
            texts[0].toLongLong(), {QString::fromUtf8(texts[1]), QString::fromUtf8(texts[2])}, {}};
        const auto place = planned.constFind(song.key);
        song.after = place == planned.cend() ? song.before : *place;
        if (song.after.FileName.isEmpty())
            song.after.FileName = song.before.FileName;
        songs.push_back(std::move(song));
    });
    return FileOwners(std::move(songs)).sentBack();
}

} // namespace quaverly
