// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Preview.h"

#include <QtGlobal>

#include <vector>

namespace dao {
class Database;
}

namespace quaverly {

class DataControl;

/** What is planned for one song. */
struct PlannedChange
{
    /** 0 for a row that is about no song of the catalogue. */
    qint64 song = 0;
    /** Empty for the song's own name. */
    QString record{};
    QString field{};
    QString before{};
    QString after{};
};

/** A preview over songs, which are named as they are read. */
class SongPreview : public Preview
{
public:
    /** What the preview stands upon, and outlives it. */
    struct Ground
    {
        dao::Database &database;
        DataControl &displayed;
    };

    SongPreview(const Ground &ground, const QString &sentence, std::vector<PlannedChange> rows,
                std::size_t obstructed = 0);

    [[nodiscard]] ChangedRowTexts row(int row) const override;
    bool showSong(int row) override;

    /** The songs of the ticked rows, in their order. */
    [[nodiscard]] std::vector<qint64> tickedSongs() const;

protected:
    explicit SongPreview(const Ground &ground) : m_ground(ground) {}
    void setPlan(const QString &sentence, std::vector<PlannedChange> rows, std::size_t obstructed = 0);
    [[nodiscard]] const Ground &ground() const { return m_ground; }
    [[nodiscard]] const PlannedChange &plan(int row) const { return m_rows[static_cast<std::size_t>(row)]; }

private:
    Ground m_ground;
    std::vector<PlannedChange> m_rows;
};

/** All displayed songs, which are to go out of the catalogue; each shows its file. */
class DeletionPreview : public SongPreview
{
public:
    /** @throws dao::DaoError */
    explicit DeletionPreview(const Ground &ground);

    [[nodiscard]] ChangedRowTexts row(int row) const override;
};

/** The displayed songs in their order, each once, and nothing planned yet. @throws dao::DaoError */
[[nodiscard]] std::vector<PlannedChange> plansOfDisplayed(const SongPreview::Ground &ground);

/** "Song, by Artist"; "song number 7" where it is gone. @throws dao::DaoError */
[[nodiscard]] QString songAndArtist(dao::Database &database, qint64 song);
/** Where a song's file is said to be; empty without one. @throws dao::DaoError */
[[nodiscard]] QString fileOfSong(dao::Database &database, qint64 song);
/** "1 song", "1,204 songs". */
[[nodiscard]] QString countedSongs(qint64 songs);

} // namespace quaverly
