// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/Shell.h"

namespace shell {

/** A name's own bytes, as the system calls take them; empty when it can't be a path. */
[[nodiscard]] QByteArray systemPath(const QString &path);

/** All names of a folder but "." and ".."; nothing when it can't be read. */
[[nodiscard]] std::optional<std::vector<Entry>> listFolder(const QString &folder, QStringList *refused);

/** Nothing for what is no folder or lies on a pseudo file system. */
[[nodiscard]] std::optional<FolderIdentity> identityOf(const QString &folder);

/** Bytes of a file, following links; nothing when it is gone or none. */
[[nodiscard]] std::optional<qint64> fileSize(const QByteArray &path);

[[nodiscard]] std::vector<Drive> mountedDrives();

} // namespace shell
