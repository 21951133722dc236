// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

class QWidget;

namespace quaverly {

enum class FileDialogKind { Open, Save };

/** Asks for a file; its full path, or nothing on cancel. */
[[nodiscard]] std::optional<QString> askForFile(FileDialogKind kind, const FileQuestion &question,
                                                QWidget *owner);

/** Asks for a folder; its path with a trailing separator, or the empty text on cancel. */
[[nodiscard]] QString askForFolder(const QString &prompt, const QString &title, const QString &startFolder,
                                   QWidget *owner);

} // namespace quaverly
