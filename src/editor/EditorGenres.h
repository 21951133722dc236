// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace quaverly {

/** The genres that the editor offers, in alphabetical order, each as it is stored when it is picked. */
[[nodiscard]] QStringList editorGenres();

} // namespace quaverly
