// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"
#include "catalogue/RenameNotes.h"
#include "history/FileSteps.h"
#include "history/TagWalk.h"

#include <QStringList>

#include <span>

namespace quaverly {

/**
 * Takes changes back or makes them again, rows and files alike: the files first, each song's with a note of
 * where it goes, then rows and notes in one transaction. A process that dies in between leaves what the next
 * start settles, or for a picture, what the next walk finds done.
 */
class ChangeWalk final
{
public:
    using Conflicts = dao::History::Conflicts;

    /** @p catalogue outlives this object. */
    explicit ChangeWalk(Catalogue &catalogue)
        : m_catalogue(catalogue), m_history(*catalogue.CatalogueDb), m_notes(catalogue)
    {}

    /**
     * The change that is next in that direction. With Stop nothing is done when something stands in the way:
     * a row or a file that is not as the change left it, a place that is taken. With LeaveOut these stay, a
     * file together with its record and tracks, and all else is done.
     * @returns what stands in the way or was left out, a line each: songs, files
     * @throws dao::DaoError; nothing is done then
     */
    [[nodiscard]] QStringList go(const dao::Change &change, WalkDirection direction,
                                 Conflicts conflicts = Conflicts::Stop);

private:
    /** What is not to be touched. */
    struct LeftOut
    {
        QStringList told;
        std::set<std::size_t> steps;
        std::vector<dao::ChangedRow> rows;
    };
    [[nodiscard]] QStringList inTheWay();
    [[nodiscard]] LeftOut findLeftOut();
    [[nodiscard]] bool leaveOut(std::size_t step, LeftOut &left);
    [[nodiscard]] std::vector<dao::ChangedRow> rowsOf(const LeftOut &left) const;
    struct Written
    {
        bool done = false;
        QStringList refused;
    };
    [[nodiscard]] Written writeRows(const LeftOut &left);
    [[nodiscard]] std::vector<dao::ChangedRow> replay(const std::vector<dao::ChangedRow> &leftAlone);
    [[nodiscard]] std::vector<dao::ChangedRow> tryOut(const std::vector<dao::ChangedRow> &leftAlone);
    void moveAll();
    void moveBack(std::span<const FileStep> steps);
    [[nodiscard]] QStringList names(const std::vector<dao::ChangedRow> &rows) const;

    Catalogue &m_catalogue;
    dao::History m_history;
    RenameNotes m_notes;
    /** What is gone along now. */
    dao::Change m_change;
    WalkDirection m_direction = WalkDirection::Back;
    Conflicts m_conflicts = Conflicts::Stop;
    std::vector<FileStep> m_steps;
};

} // namespace quaverly
