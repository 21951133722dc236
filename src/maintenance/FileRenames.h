// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/MaintenanceParts.h"
#include "maintenance/RenamePlan.h"

namespace quaverly {

class WorkingWindow;

/**
 * Renames the files of the marked songs, or of all that are displayed, by a pattern of their fields; records
 * and play lists follow, file by file, as in the editor. All of it is one change of the history.
 */
class FileRenames final
{
public:
    explicit FileRenames(const MaintenanceParts &parts) : m_parts(parts) {}

    /** Whose files would be renamed. @throws dao::DaoError */
    [[nodiscard]] std::vector<qint64> songs();
    [[nodiscard]] bool isOfMarked() const;

    /** Shows what would come of it, renames what is ticked, and tells. False when nothing was renamed. */
    bool run(const RenamePattern &pattern, const QString &root);

private:
    struct Result
    {
        qint64 count = 0;
        /** What ended it; mostly empty. */
        QString failure{};
        bool isStopped = false;
    };
    [[nodiscard]] std::optional<std::vector<PlannedRename>> plan(const RenamePattern &pattern,
                                                                 const QString &root);
    [[nodiscard]] std::optional<std::vector<PlannedRename>> chosen(std::vector<PlannedRename> renames);
    /** Nothing when the command is to stop before. */
    [[nodiscard]] std::optional<Result> carryOut(const std::vector<PlannedRename> &renames);
    [[nodiscard]] Result renameAll(const std::vector<PlannedRename> &renames);
    void renameOne(const PlannedRename &rename);
    void tell(const Result &result, std::size_t all);
    [[nodiscard]] dao::GoesOn goesOn(WorkingWindow &wait);
    [[nodiscard]] dao::Database &database() const;

    MaintenanceParts m_parts;
};

} // namespace quaverly
