// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"
#include "catalogue/RenameNotes.h"
#include "platform/store/History.h"

#include <QStringList>

#include <span>

namespace quaverly {

enum class WalkDirection { Back, Again };

/**
 * Takes changes back or makes them again, rows and files alike: the files first, each with a note of where it
 * goes, then rows and notes in one transaction. A process that dies in between leaves what the next start
 * settles.
 */
class ChangeWalk final
{
public:
    /** @p catalogue outlives this object. */
    explicit ChangeWalk(Catalogue &catalogue) : m_catalogue(catalogue), m_notes(catalogue) {}

    /**
     * The change that is next in that direction. Nothing is done when something stands in the way: a file
     * that is not where the change left it, a place that is taken, or with Stop a row that was changed since.
     * @returns what stands in the way or was left out, a line each: songs, files
     * @throws dao::DaoError; nothing is done then
     */
    [[nodiscard]] QStringList go(const dao::Change &change, WalkDirection direction,
                                 dao::History::Conflicts conflicts = dao::History::Conflicts::Stop);

private:
    struct Move
    {
        qint64 song = 0;
        SongFile from;
        SongFile to;
    };
    struct Written
    {
        bool done = false;
        QStringList left;
    };
    [[nodiscard]] Written writeRows(const dao::Change &change, WalkDirection direction,
                                    dao::History::Conflicts conflicts, const std::vector<Move> &moves);
    [[nodiscard]] std::vector<Move> movesOf(const dao::Change &change, WalkDirection direction) const;
    [[nodiscard]] static QStringList obstacles(const std::vector<Move> &moves);
    [[nodiscard]] std::vector<dao::ChangedRow> replay(const dao::Change &change, WalkDirection direction,
                                                      dao::History::Conflicts conflicts);
    [[nodiscard]] std::vector<dao::ChangedRow> rowsInTheWay(const dao::Change &change,
                                                            WalkDirection direction);
    void moveAll(const std::vector<Move> &moves);
    void moveBack(std::span<const Move> moves);
    [[nodiscard]] QStringList names(const std::vector<dao::ChangedRow> &rows) const;

    Catalogue &m_catalogue;
    RenameNotes m_notes;
};

} // namespace quaverly
