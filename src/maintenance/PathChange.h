// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace dao {
class Database;
}

namespace quaverly {

/** A part of stored paths, and what takes its place. */
struct PathChange
{
    QString original;
    QString replacement;

    bool operator==(const PathChange &) const = default;
};

/** True for a whole path, as against a part of one. */
[[nodiscard]] bool isWholePath(const QString &text);

/** What stored paths a change is for: those of folders, which end in a separator, or those of files. */
enum class PathKind { Folders, Files };

/**
 * Brings both texts to one form, so that a separator more or less does no harm: whole paths are clean, those
 * of folders end in one separator, and the replacement begins and ends as the original does.
 */
[[nodiscard]] PathChange inOneForm(const PathChange &typed, PathKind kind);

/**
 * The places of the music in the catalogue, the likeliest first: the folders that hold all of it, and those
 * directly below them. @throws dao::DaoError
 */
[[nodiscard]] QStringList musicPlaces(dao::Database &database);

/** What is there of some paths. */
struct Presence
{
    /** How many were looked for, and how many of them are there. */
    qint64 asked = 0;
    qint64 found = 0;
};

/** Looks for files, or folders where the path ends in a separator; no longer than two seconds. */
[[nodiscard]] Presence presenceOf(const QStringList &paths);

} // namespace quaverly
