// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace quaverly {

/** One entry of a file dialog's list of file types. */
struct FileFilter
{
    QString description;
    /** "*" for all files, since a name need not hold a point. */
    QStringList patterns;

    bool operator==(const FileFilter &) const = default;
};

/**
 * Reads "Text|*.a;*.b|All Files (*.*)|*.*". A description without a pattern stands for all files, and
 * so does an empty filter.
 */
[[nodiscard]] QList<FileFilter> parseFilter(const QString &filter);

/** The first pattern's extension without the point, or the empty text when it has none of its own. */
[[nodiscard]] QString defaultExtension(const QList<FileFilter> &filters);

} // namespace quaverly
