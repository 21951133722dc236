// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/FileFacts.h"
#include "update/UpdateList.h"
#include "update/UpdateParts.h"

#include <optional>

namespace quaverly {

/** What an update could not do, or only in part. */
struct UpdateProblem
{
    QString path;
    QString why;
};

/** What an update came to. */
struct UpdateOutcome
{
    int added = 0;
    int changed = 0;
    int moved = 0;
    int deleted = 0;
    std::vector<UpdateProblem> problems;

    /** "12 new, 3 changed, 2 moved". */
    [[nodiscard]] QString words() const;
};

/**
 * Carries out what is ticked in a list, as one change of the history and in one transaction, what is known of
 * the files with it. A file that has changed since it was looked at is left for the next update.
 */
class UpdateCarrier final
{
public:
    UpdateCarrier(const UpdateParts &parts, UpdateGoesOn goesOn);

    /** Nothing when it was given up: nothing has changed then. @throws dao::DaoError, nothing either. */
    [[nodiscard]] std::optional<UpdateOutcome> carryOut(const UpdateList &list);

private:
    void move(const std::vector<const UpdateRow *> &rows);
    void moveSong(const UpdateRow &row, const SongFile &to);
    void change(const UpdateList &list, const std::vector<const UpdateRow *> &rows);
    void changeSong(qint64 recordId, const SongOnDisk &read, const std::vector<const UpdateRow *> &rows);
    void remove(const std::vector<const UpdateRow *> &rows);
    [[nodiscard]] bool add(const std::vector<const UpdateRow *> &rows);
    void addSong(const SongOnDisk &read);
    [[nodiscard]] bool seek(qint64 recordId);
    [[nodiscard]] bool isAsFound(const DiskFile &file, const QString &path);
    void tell(const QString &path, const QString &why) { m_outcome.problems.push_back({path, why}); }

    const UpdateParts &m_parts;
    dao::Database &m_database;
    UpdateGoesOn m_goesOn;
    FileFacts m_facts;
    std::unique_ptr<dao::Recordset> m_songs;
    UpdateOutcome m_outcome;
};

} // namespace quaverly
