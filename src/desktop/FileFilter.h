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

/**
 * @p name with an ending: its own, or that of the kind at @p chosen, or of the first kind that has one.
 * What is no short word behind the last point, as in "Best of Vol. 2", is no ending.
 */
[[nodiscard]] QString withEnding(const QString &name, const QList<FileFilter> &filters, qsizetype chosen);

} // namespace quaverly
