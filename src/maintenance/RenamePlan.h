// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SongOfFile.h"
#include "maintenance/RenamePattern.h"
#include "platform/store/Dao.h"
#include "songlist/SongPreview.h"

#include <QHash>

#include <optional>
#include <vector>

namespace quaverly {

/** Where a song's file is to go, or why it can't. */
struct PlannedRename
{
    qint64 song = 0;
    SongFile from{};
    SongFile to{};
    /** Mostly empty. */
    QString problem{};
};

/** Finds out what a pattern makes of the files of some songs, and what stands in the way; nothing is touched.
 */
class RenamePlanner final
{
public:
    /** @p root is the folder that the pattern's folders begin in. */
    RenamePlanner(dao::Database &database, const RenamePattern &pattern, const QString &root);

    /**
     * Files that bear their name already are left out. Nothing when @p goesOn gave it up.
     * @throws dao::DaoError
     */
    [[nodiscard]] std::optional<std::vector<PlannedRename>> plan(const std::vector<qint64> &songs,
                                                                 const dao::GoesOn &goesOn);

private:
    [[nodiscard]] std::vector<PlannedRename> composed(const std::vector<qint64> &songs) const;
    [[nodiscard]] QString obstacle(const PlannedRename &rename);
    /** A file can be put there, or taken from there; missing folders count as what they are made in. */
    [[nodiscard]] bool isWritable(const QString &folder);
    void findCollisions(std::vector<PlannedRename> &renames) const;

    dao::Database &m_database;
    const RenamePattern &m_pattern;
    QString m_root;
    /** What is known of folders by now. */
    QHash<QString, bool> m_writable;
};

/** The files that are to be renamed, with what stands in the way of the others. */
class RenamePreview final : public SongPreview
{
public:
    RenamePreview(const Ground &ground, std::vector<PlannedRename> renames);

    [[nodiscard]] ChangedRowTexts row(int row) const override;
    [[nodiscard]] QStringList headings() const override;

    [[nodiscard]] std::vector<PlannedRename> chosen() const;

private:
    [[nodiscard]] const PlannedRename &rename(int row) const
    {
        return m_renames[static_cast<std::size_t>(row)];
    }

    std::vector<PlannedRename> m_renames;
    /** The folder that holds all of them, so that the rows show what differs. */
    QString m_common;
};

} // namespace quaverly
