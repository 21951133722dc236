// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace quaverly {

/** Name of the file beside the catalogue that keeps the grid's columns. */
inline constexpr char16_t ColumnFileName[] = u"nbcolumn.dat";

/** How a column's cells are aligned, as the file spells it. */
enum class CellAlignment { Left = 0, Right = 1, Centre = 2 };

/** A line of the file: a column of the grid behind the mark column. */
struct ColumnLine
{
    QString caption;
    QString dataField;
    /** In twips. */
    double width = 0;
    CellAlignment alignment = CellAlignment::Left;
};

/** What the file keeps. */
struct ColumnLayout
{
    QList<ColumnLine> columns;
    /** Width of a character, in twips, when the widths were those; 0 in a file that does not say so. */
    double character = 0;
};

/**
 * The lines of a column file, from its first on. Ends before the first one that is none: too few
 * values, no field of a song, no usable width, or an old file's number in front. A file that can't
 * be read, or that no grid wrote, has none. Each line has its four values: caption and field between
 * double quotes, width and alignment as numbers. Behind the columns stands one without a field, with a
 * character's width.
 */
[[nodiscard]] ColumnLayout readColumnFile(const QString &path);

/** Exchanges the file for a whole new one. @throws dao::DaoError 75 when it can't be written. */
void writeColumnFile(const QString &path, const ColumnLayout &layout);

} // namespace quaverly
