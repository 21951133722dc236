// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/UpdateModel.h"

#include "catalogue/SongFields.h"
#include "desktop/ChangeTableModel.h"
#include "desktop/FileHelpers.h"
#include "platform/text/Text.h"

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr std::array Kinds{"New"_L1, "Changed"_L1, "Moved"_L1, "Gone"_L1, "Unreadable"_L1};
constexpr std::array Headings{"What"_L1,   "Song"_L1,        "Artist"_L1, "Field"_L1,
                              "Before"_L1, "On the Disk"_L1, "Remark"_L1};

/** Of a path that changes, only what differs is shown. */
QString pathPart(const UpdateRow &row, const QString &path)
{
    if (row.kind != UpdateKind::Moved)
        return path;
    if (folderOf(row.before) == folderOf(row.after))
        return fileNameOf(path);
    const QString shown = fileNameOf(row.before) == fileNameOf(row.after) ? folderOf(path) : path;
    const auto differs = std::ranges::mismatch(row.before, row.after).in1 - row.before.begin();
    const qsizetype common = row.before.lastIndexOf(PathSeparator, std::max<qsizetype>(differs - 1, 0));
    return common > 0 ? u"\u2026"_s + shown.mid(common) : shown;
}

QString fieldText(const UpdateRow &row)
{
    if (row.kind == UpdateKind::Changed) {
        const SongField *field = songField(row.field);
        return field != nullptr ? QString(field->heading) : row.field;
    }
    if (row.kind != UpdateKind::Moved)
        return {};
    if (folderOf(row.before) == folderOf(row.after))
        return u"File Name"_s;
    return fileNameOf(row.before) == fileNameOf(row.after) ? u"Path Name"_s : u"Path and File Name"_s;
}

QString textOf(const UpdateRow &row, int column)
{
    switch (column) {
    case UpdateModel::Kind:
        return Kinds[static_cast<std::size_t>(row.kind)];
    case UpdateModel::Song:
        return row.song;
    case UpdateModel::Artist:
        return row.artist;
    case UpdateModel::Field:
        return fieldText(row);
    case UpdateModel::Before:
        return pathPart(row, row.before);
    case UpdateModel::After:
        return row.kind == UpdateKind::Gone && row.isTicked ? u"Delete from the database"_s
                                                            : pathPart(row, row.after);
    default:
        return row.remark;
    }
}

QString quoted(QString text)
{
    return u'"' + text.replace(u'"', u"\"\""_s) + u'"';
}

} // namespace

void UpdateModel::setList(UpdateList list)
{
    m_list = std::move(list);
    show(m_kind);
}

void UpdateModel::show(std::optional<UpdateKind> kind)
{
    beginResetModel();
    m_kind = kind;
    m_shown.clear();
    for (std::size_t place = 0; place < m_list.rows.size(); ++place) {
        if (!kind || m_list.rows[place].kind == *kind)
            m_shown.push_back(place);
    }
    endResetModel();
}

void UpdateModel::tickAll(bool isTicked)
{
    for (const std::size_t place : m_shown) {
        UpdateRow &row = m_list.rows[place];
        const bool isMeant = !isTicked || row.kind != UpdateKind::Gone || m_kind == UpdateKind::Gone;
        if (row.canBeTicked && isMeant)
            row.isTicked = isTicked;
    }
    ticksAnew();
}

void UpdateModel::turnTicks(const QModelIndexList &rows)
{
    std::optional<bool> isTicked;
    for (const QModelIndex &index : rows) {
        UpdateRow &row = m_list.rows[m_shown[static_cast<std::size_t>(index.row())]];
        if (!row.canBeTicked)
            continue;
        row.isTicked = isTicked.value_or(!row.isTicked);
        isTicked = row.isTicked;
    }
    ticksAnew();
}

void UpdateModel::ticksAnew()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    Q_EMIT ticksChanged();
}

int UpdateModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int UpdateModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant UpdateModel::data(const QModelIndex &index, int role) const
{
    const UpdateRow &row = m_list.rows[m_shown[static_cast<std::size_t>(index.row())]];
    switch (role) {
    case Qt::DisplayRole:
        return textOf(row, index.column()).simplified();
    case Qt::ToolTipRole:
        return index.column() == Before  ? row.before
               : index.column() == After ? row.after
                                         : textOf(row, index.column());
    case Qt::ForegroundRole:
        if (!row.isTicked)
            return quietText(QGuiApplication::palette());
        return index.column() == After ? QGuiApplication::palette().brush(QPalette::Highlight) : QVariant();
    case Qt::CheckStateRole:
        if (index.column() == Kind && row.canBeTicked)
            return row.isTicked ? Qt::Checked : Qt::Unchecked;
        return {};
    default:
        return {};
    }
}

bool UpdateModel::setData(const QModelIndex &index, const QVariant & /*value*/, int role)
{
    if (role != Qt::CheckStateRole)
        return false;
    turnTicks({index});
    return true;
}

QVariant UpdateModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QString(Headings[static_cast<std::size_t>(section)]);
}

Qt::ItemFlags UpdateModel::flags(const QModelIndex &index) const
{
    const UpdateRow &row = m_list.rows[m_shown[static_cast<std::size_t>(index.row())]];
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == Kind && row.canBeTicked ? flags | Qt::ItemIsUserCheckable : flags;
}

QByteArray updateCsv(const UpdateList &list)
{
    QStringList lines{u"What,Ticked,Song,Artist,Field,Before,On the Disk,Remark"_s};
    for (const UpdateRow &row : list.rows)
        lines.append(QStringList{quoted(textOf(row, UpdateModel::Kind)), row.isTicked ? u"x"_s : QString(),
                                 quoted(row.song), quoted(row.artist), quoted(fieldText(row)),
                                 quoted(row.before), quoted(row.after), quoted(row.remark)}
                         .join(u','));
    return (lines.join(u"\r\n"_s) + u"\r\n"_s).toUtf8();
}

} // namespace quaverly
