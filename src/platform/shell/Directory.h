// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/Shell.h"

#include <map>

namespace shell {

/** Which folder it is and when it last changed, in nanoseconds; a folder whose state is the same lists the
 * same. */
struct FolderState
{
    FolderIdentity identity;
    qint64 modified = 0;
    qint64 changed = 0;
    auto operator<=>(const FolderState &) const = default;
};

/** What a folder held, in little memory. */
struct Listing
{
    FolderState state;
    /** When it was read, by the same clock as the state. */
    qint64 read = 0;
    /** Of each name its kind, its bytes and a NUL. */
    QByteArray names;

    /** False when a change within the clock's grain, in nanoseconds, could have gone by unseen. */
    [[nodiscard]] bool isSettled(qint64 grain) const;
};

/** A name's own bytes, as the system calls take them; empty when it can't be a path. */
[[nodiscard]] QByteArray systemPath(const QString &path);

/** All names of a folder but "." and ".."; nothing when it can't be read. */
[[nodiscard]] std::optional<Listing> listFolder(const QString &folder);

/** The names that are valid UTF-8; the others are added to @p refused. */
[[nodiscard]] std::vector<Entry> entriesOf(const Listing &listing, QStringList *refused);

/** Nothing for what is no folder. */
[[nodiscard]] std::optional<FolderState> stateOf(const QString &folder);

/** Tells folders on pseudo file systems; a device that it has seen it doesn't look up again. */
class PseudoFileSystems final
{
public:
    [[nodiscard]] bool hold(const QString &folder, const FolderIdentity &identity);
    void forget() { m_known.clear(); }

private:
    std::map<quint64, bool> m_known;
};

/** Bytes of a file, following links; nothing when it is gone or none. */
[[nodiscard]] std::optional<qint64> fileSize(const QByteArray &path);

[[nodiscard]] std::vector<Drive> mountedDrives();

} // namespace shell
