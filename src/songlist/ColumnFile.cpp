// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/ColumnFile.h"

#include "catalogue/SongFields.h"
#include "platform/store/DaoError.h"
#include "platform/text/Text.h"

#include <QFile>
#include <QSaveFile>

#include <optional>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** More than any grid writes; a file beyond it is none of ours. */
constexpr qint64 MostBytes = 64 * 1024;
constexpr double WidestTwips = 60000;
constexpr qsizetype ValuesInLine = 4;

/** The comma-separated values of a line; a text between double quotes may hold commas. */
QStringList valuesOf(const QString &line)
{
    QStringList values{QString()};
    bool quoted = false;
    for (const QChar c : line) {
        if (c == u'"')
            quoted = !quoted;
        else if (c == u',' && !quoted)
            values.append(QString());
        else
            values.last() += c;
    }
    return values;
}

CellAlignment alignmentOf(const QString &text)
{
    const auto number = static_cast<int>(Val(text));
    return number == 1 ? CellAlignment::Right : number == 2 ? CellAlignment::Centre : CellAlignment::Left;
}

std::optional<ColumnLine> columnOf(const QString &line)
{
    const QStringList values = valuesOf(line);
    if (values.size() != ValuesInLine || IsNumeric(values.at(0)))
        return std::nullopt;
    const SongField *field = songField(values.at(1));
    const double width = Val(values.at(2));
    if (field == nullptr || !IsNumeric(values.at(2)) || !(width >= 0 && width <= WidestTwips))
        return std::nullopt;
    return ColumnLine{values.at(0), field->name, width, alignmentOf(values.at(3))};
}

QString lineOf(const ColumnLine &column)
{
    // A quote would end the text that it stands in.
    const QString caption = ReplaceText(column.caption, u"\""_s, u"'"_s);
    return u"\"%1\",\"%2\",%3,%4\r\n"_s.arg(caption, column.dataField, QString::number(qRound(column.width)),
                                            QString::number(static_cast<int>(column.alignment)));
}

} // namespace

QList<ColumnLine> readColumnFile(const QString &path)
{
    QFile file(path);
    if (file.size() > MostBytes || !file.open(QIODevice::ReadOnly))
        return {};
    QList<ColumnLine> columns;
    for (const QString &line : fromSystemCodePage(file.read(MostBytes)).split(u'\n')) {
        const std::optional<ColumnLine> column = columnOf(line.trimmed());
        if (!column)
            break;
        columns.append(*column);
    }
    return columns;
}

void writeColumnFile(const QString &path, const QList<ColumnLine> &columns)
{
    QString text;
    for (const ColumnLine &column : columns)
        text += lineOf(column);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit())
        throw dao::DaoError(dao::PathFileAccess, u"The layout of the columns can't be kept in "_s + path +
                                                     u": "_s + file.errorString());
}

} // namespace quaverly
