// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/MusicKinds.h"
#include "platform/shell/Shell.h"
#include "platform/shell/SongDetails.h"

namespace shell {

/** Three significant digits, cut, not rounded: "512 bytes", "43.9 KB", "4.39 MB". */
[[nodiscard]] QString sizeText(qint64 bytes);

/** What the system calls files of this name; the extension decides. */
[[nodiscard]] QString typeText(const QString &name, EntryKind kind);

/** "D" for a folder, "A" for a file, "S" for anything else, and an "H" for a hidden name. */
[[nodiscard]] QString attributesText(const QString &name, EntryKind kind);

/** The name without its extension where the system knows files of that type. */
[[nodiscard]] QString withoutKnownExtension(const QString &name);

/** How a column that is read from inside the file shows. */
using DetailText = QString (*)(const SongDetails &);
/** Null for any other column; the numbers of version 5 and those from version 6 on differ. */
[[nodiscard]] DetailText detailColumn(int column, int versionMajor);

} // namespace shell
