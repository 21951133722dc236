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
constexpr auto CharacterLine = "Character"_L1;

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

/** The width that stands behind the columns; 0 when the line says something else. */
double characterOf(const QString &line)
{
    const QStringList values = valuesOf(line);
    const bool told =
        values.size() == ValuesInLine && values.at(0) == CharacterLine && values.at(1).isEmpty();
    const double width = told ? Val(values.at(2)) : 0;
    return width > 0 && width <= WidestTwips ? width : 0;
}

QString lineOf(const ColumnLine &column)
{
    // A quote would end the text that it stands in.
    const QString caption = ReplaceText(column.caption, u"\""_s, u"'"_s);
    return u"\"%1\",\"%2\",%3,%4\r\n"_s.arg(caption, column.dataField, QString::number(qRound(column.width)),
                                            QString::number(static_cast<int>(column.alignment)));
}

} // namespace

ColumnLayout readColumnFile(const QString &path)
{
    QFile file(path);
    if (file.size() > MostBytes || !file.open(QIODevice::ReadOnly))
        return {};
    ColumnLayout layout;
    for (const QString &line : fromSystemCodePage(file.read(MostBytes)).split(u'\n')) {
        const std::optional<ColumnLine> column = columnOf(line.trimmed());
        if (!column) {
            layout.character = characterOf(line.trimmed());
            break;
        }
        layout.columns.append(*column);
    }
    return layout;
}

void writeColumnFile(const QString &path, const ColumnLayout &layout)
{
    QString text;
    for (const ColumnLine &column : layout.columns)
        text += lineOf(column);
    text += lineOf({CharacterLine, {}, layout.character, CellAlignment::Left});
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit())
        throw dao::DaoError(dao::PathFileAccess, u"The layout of the columns can't be kept in "_s + path +
                                                     u": "_s + file.errorString());
}

} // namespace quaverly
