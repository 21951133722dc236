// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/PreviewModel.h"

#include <QGuiApplication>
#include <QPalette>

namespace quaverly {

PreviewModel::PreviewModel(Preview &preview, QObject *parent) : ChangeTableModel(parent), m_preview(preview)
{
    show(Shows::All);
}

void PreviewModel::show(Shows rows)
{
    beginResetModel();
    m_first = rows == Shows::Possible ? m_preview.obstructed() : 0;
    m_end = rows == Shows::Obstructed ? m_preview.obstructed() : m_preview.count();
    forget();
    endResetModel();
}

void PreviewModel::showTicks()
{
    forget();
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, After));
}

int PreviewModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_end - m_first;
}

QVariant PreviewModel::data(const QModelIndex &index, int role) const
{
    const bool isObstructed = place(index) < m_preview.obstructed();
    if (role == Qt::CheckStateRole && index.column() == Record && !isObstructed)
        return m_preview.isTicked(place(index)) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::ForegroundRole && (isObstructed || !m_preview.isTicked(place(index))))
        return quietText(QGuiApplication::palette());
    if (role == Qt::ForegroundRole && index.column() == After)
        return QGuiApplication::palette().brush(QPalette::Highlight);
    return ChangeTableModel::data(index, role);
}

QVariant PreviewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return m_preview.headings().value(section);
    return {};
}

Qt::ItemFlags PreviewModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    if (index.column() == Record && place(index) >= m_preview.obstructed())
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool PreviewModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole)
        return false;
    m_preview.tick(place(index), value.toInt() == Qt::Checked);
    showTicks();
    return true;
}

} // namespace quaverly
