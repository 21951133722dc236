// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/SongGridModel.h"

#include "catalogue/SongFields.h"
#include "desktop/Guard.h"
#include "platform/text/Text.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

Qt::Alignment qtAlignment(CellAlignment alignment)
{
    switch (alignment) {
    case CellAlignment::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case CellAlignment::Centre:
        return Qt::AlignCenter;
    case CellAlignment::Left:
        break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

/** A cell is one line. */
QString oneLine(QString text)
{
    for (QChar &c : text) {
        if (c == u'\n' || c == u'\r' || c == u'\t')
            c = u' ';
    }
    return text;
}

} // namespace

SongGridModel::SongGridModel(DataControl &data, QObject *parent) : QAbstractTableModel(parent), m_data(data)
{
    for (const SongField *field : gridColumns())
        m_columns.push_back(
            {field->heading, field->name, field->rightAligned ? CellAlignment::Right : CellAlignment::Left});
    m_columns.front().alignment = CellAlignment::Centre;
    m_data.addListener(*this);
}

SongGridModel::~SongGridModel()
{
    m_data.removeListener(*this);
}

int SongGridModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid() || !m_data.isOpen())
        return 0;
    return static_cast<int>(
        std::min<qint64>(m_data.Recordset().RecordCount(), std::numeric_limits<int>::max()));
}

int SongGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant SongGridModel::value(int row, int column) const
{
    if (m_places.empty()) {
        for (const GridColumn &c : m_columns)
            m_places.push_back(m_data.Recordset().fieldIndex(c.dataField));
    }
    const int place = m_places[static_cast<std::size_t>(column)];
    if (place < 0)
        return {};
    try {
        return m_data.Recordset().valueAt(row, place);
    } catch (const dao::DaoError &) {
        return {}; // A row deleted elsewhere stays blank until the next refresh.
    }
}

QVariant SongGridModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(qtAlignment(column(index.column()).alignment));
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    const QVariant stored = value(index.row(), index.column());
    if (stored.typeId() == QMetaType::QDateTime)
        return shortDate(stored.toDateTime());
    return role == Qt::EditRole ? NullToEmpty(stored) : oneLine(NullToEmpty(stored));
}

QVariant SongGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (role == Qt::DisplayRole)
        return column(section).caption;
    if (role == Qt::AccessibleTextRole && section == 0)
        return tr("Mark");
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(qtAlignment(column(section).alignment));
    return {};
}

void SongGridModel::setColumn(int index, const GridColumn &column)
{
    finishTyping();
    m_columns[static_cast<std::size_t>(index)] = column;
    columnsExchanged(index, index);
}

void SongGridModel::moveColumn(int from, int to)
{
    finishTyping();
    const GridColumn moving = column(from);
    m_columns.erase(m_columns.begin() + from);
    m_columns.insert(m_columns.begin() + to, moving);
    columnsExchanged(std::min(from, to), std::max(from, to));
}

void SongGridModel::columnsExchanged(int first, int last)
{
    m_places.clear();
    Q_EMIT headerDataChanged(Qt::Horizontal, first, last);
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, first), index(rowCount() - 1, last));
}

Qt::ItemFlags SongGridModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    flags.setFlag(Qt::ItemIsEditable, m_editable && index.column() > 0);
    return flags;
}

bool SongGridModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || value.toString() == data(index, Qt::EditRole).toString())
        return false;
    Q_EMIT cellTyped(index.row(), column(index.column()).dataField, value.toString());
    return true;
}

void SongGridModel::finishTyping()
{
    if (m_finishTyping && !m_finishTyping())
        throw AlreadyTold();
}

void SongGridModel::setRebuilt()
{
    beginResetModel();
    m_places.clear();
    endResetModel();
}

void SongGridModel::rowChanged()
{
    Q_EMIT currentRowChanged();
}

} // namespace quaverly
