// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace shell {
class Item;
}

namespace quaverly {

/** A music file as the scan names it. */
struct MusicItem
{
    QString FileName;
    /** In lower case, with its dot. */
    QString Extension;

    [[nodiscard]] QString fileType() const { return Extension.mid(1).toUpper(); }
};

/** True for the attributes text of a folder. */
[[nodiscard]] bool isFolderItem(const shell::Item &item);

/**
 * Names the item's file and its kind, or nothing when it isn't music. Where the shell hides
 * extensions, the type text tells the kind, and the extension is put behind the name.
 * @p folder ends in the separator.
 */
[[nodiscard]] std::optional<MusicItem> musicItemOf(const shell::Item &item, const QString &folder,
                                                   bool ExtensionsHidden);

} // namespace quaverly
