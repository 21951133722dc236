// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

/** The nine characters that no file name may hold, since catalogues and sticks travel. */
inline constexpr char16_t IllegalFileNameCharacters[] = u"*\\/:?|<>\"";

/** True for a file of that exact name, however hidden or read-only; no folder, no wildcard, no empty text. */
[[nodiscard]] bool FileExists(const QString &path);

/** True for a folder, with or without the trailing separator. */
[[nodiscard]] bool FolderExists(const QString &path);

/** True when something printable is left after trimming and no illegal character is in it. */
[[nodiscard]] bool IsValidFileName(const QString &name);

/** Adds the platform's separator unless it is the last character. */
[[nodiscard]] QString EnsureBackslash(const QString &path);

/** A folder in the form that two spellings of it share: no separator doubled, no dots, one at its end. */
[[nodiscard]] QString CleanFolder(const QString &path);

/**
 * Removes a file, read-only ones too; a missing one is none to delete.
 * @throws dao::DaoError 70 or 75 when the file is there and stays.
 */
void DeleteFile(const QString &path);

/** Text up to and including the last separator; the empty text without one. */
[[nodiscard]] QString folderOf(const QString &path);
/** Text behind the last separator. */
[[nodiscard]] QString fileNameOf(const QString &path);

} // namespace quaverly
