// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QVariant>

#include <functional>
#include <optional>

namespace quaverly {

class DataControl;

/** The most songs that a list takes, and the highest number of a track. */
inline constexpr qint64 MostTracks = 32000;

struct PlayListName
{
    QString ListName;
    qint64 ListID = 0;

    bool operator==(const PlayListName &) const = default;
};

/**
 * A track's fields: a copy of a song as it is now, which does not follow the song's later changes. Values are
 * texts or Null.
 */
struct Track
{
    QVariant ContactRecordID{};
    QVariant SongTitle{};
    QVariant ArtistName{};
    QVariant AlbumName{};
    QVariant TrackText{};
    /** Full path. */
    QVariant FileName{};
    QVariant Duration{};
    QVariant Year{};
    QVariant Rating{};
    QVariant Notes{};
};

/** A track as a list box shows it. */
struct ShownTrack
{
    QString SongTitle;
    QString ArtistName;
    /** Tells the track from all others for as long as the catalogue is open, whatever its number. */
    qint64 key = 0;
};

/** A track with a file, as it is played. */
struct FiledTrack
{
    QString FileName;
    QString SongTitle;
    QString ArtistName;
};

/** What a user may change of a track. */
struct TrackTexts
{
    QString SongTitle;
    QString ArtistName;
    QString FileName;
    QString Notes;

    bool operator==(const TrackTexts &) const = default;
};

/** A list's header, as it is edited. */
struct PlayListHeader
{
    qint64 ListID = 0;
    QString ListName;
    QString Notes;
};

/** The fields of a track that come from a song, the title's double quotes made single. */
[[nodiscard]] Track trackOfSong(const dao::Recordset &song);

/** Each double quote made single: neither titles nor names of lists keep one. */
[[nodiscard]] QString singleQuotes(QString text);

[[nodiscard]] QString withoutTrailingBlanks(const QString &text);

/**
 * Play lists: a header row each, and tracks, played in the order of their numbers. Whatever adds, moves or
 * deletes tracks leaves the list's numbers whole, from 1 on without gaps or doubles, also where an older
 * program did not; it is done as a whole or not at all. Every operation may throw dao::DaoError.
 */
class PlayListStore final
{
public:
    /** @p now gives the time that rows are stamped with. */
    explicit PlayListStore(Catalogue &catalogue,
                           std::function<QDateTime()> now = &QDateTime::currentDateTime);

    /** In the order of their names. */
    [[nodiscard]] QList<PlayListName> lists() const;
    [[nodiscard]] bool hasLists() const;
    /** In any case; nothing without such a list. */
    [[nodiscard]] std::optional<qint64> ListID(const QString &listName) const;

    /** False for a list that has been deleted since its number was read. */
    [[nodiscard]] bool exists(qint64 listId) const;
    /** Of that name, in any case: the list @p preferred where it is one of several, else the first. */
    [[nodiscard]] std::optional<PlayListHeader> headerOfName(const QString &listName, qint64 preferred) const;
    [[nodiscard]] bool isTaken(const QString &listName) const;
    /** The name's trailing blanks are cut. */
    qint64 addList(const QString &listName, const QString &notes);
    /** Both or neither. */
    void addListWithTracks(const QString &listName, const QList<Track> &tracks);
    /** Name and notes of a header; the tracks know it by its number. False without that list. */
    bool editList(qint64 listId, const QString &listName, const QString &notes);
    /** With its tracks, or not at all. */
    void deleteList(qint64 listId);

    [[nodiscard]] qint64 countTracks(qint64 listId) const;
    /** Behind the last one, with no look at MostTracks. */
    void addTrack(qint64 listId, const Track &track) { addTracks(listId, {track}); }
    void addTracks(qint64 listId, const QList<Track> &tracks);
    /** One that is gone is passed over. */
    void deleteTrack(qint64 listId, qint64 key);
    /** All of the list with that file. */
    void deleteFile(qint64 listId, const QString &path);
    /** Numbers from 1 without gaps, in the order that is. */
    void RenumberTracks(qint64 listId);
    /**
     * Puts the tracks with these keys first, in this order, and the list's others behind them as they stood.
     * Returns the place of the first key that no track of the list has; nothing when all are there.
     */
    std::optional<qsizetype> reorder(qint64 listId, const QList<qint64> &keys);

    /** In playing order; no more than @p most. */
    [[nodiscard]] QList<ShownTrack> shownTracks(qint64 listId, qint64 most) const;
    /** Those that name a file, in playing order. */
    [[nodiscard]] QList<FiledTrack> tracksWithFile(qint64 listId) const;
    [[nodiscard]] std::optional<TrackTexts> oneTrack(qint64 listId, qint64 key) const;
    /** False without that track. */
    bool editTrack(qint64 listId, qint64 key, const TrackTexts &texts);

    /** The song with that file. */
    [[nodiscard]] std::optional<qint64> songOfFile(const QString &path) const;

private:
    [[nodiscard]] dao::Database &database() const { return *m_catalogue.CatalogueDb; }
    [[nodiscard]] std::unique_ptr<dao::Recordset> snapshot(const QString &sql) const;
    [[nodiscard]] std::unique_ptr<dao::Recordset> dynaset(const QString &sql) const;
    /** On the track with that key; null without it. */
    [[nodiscard]] std::unique_ptr<dao::Recordset> track(qint64 listId, qint64 key) const;

    Catalogue &m_catalogue;
    std::function<QDateTime()> m_now;
};

} // namespace quaverly
