// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ChangeListModel.h"

#include <QLocale>
#include <QPalette>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace quaverly {

ChangeListModel::ChangeListModel(dao::Database &database, QObject *parent)
    : QAbstractTableModel(parent), m_history(database), m_texts(database)
{}

void ChangeListModel::reload()
{
    m_all = m_history.changes();
    m_sentences.clear();
    setFilter(m_filter);
}

void ChangeListModel::setFilter(const QString &text)
{
    beginResetModel();
    m_filter = text;
    m_shown.clear();
    std::ranges::copy_if(m_all, std::back_inserter(m_shown), [&](const dao::Change &change) {
        return text.isEmpty() || sentence(change).contains(text, Qt::CaseInsensitive);
    });
    endResetModel();
}

const QString &ChangeListModel::sentence(const dao::Change &change) const
{
    QString &known = m_sentences[change.id];
    if (known.isEmpty())
        known = m_texts.sentence(change);
    return known;
}

int ChangeListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int ChangeListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString ChangeListModel::text(const dao::Change &change, int column) const
{
    const auto number = [](qint64 count) { return count > 0 ? QLocale().toString(count) : QString(); };
    switch (column) {
    case When:
        return QLocale().toString(change.made, QLocale::ShortFormat);
    case What:
        return sentence(change) + (change.state == dao::Change::State::TakenBack ? u" (taken back)"_s
                                   : change.state == dao::Change::State::CopyOnly
                                       ? u" (a copy of the database is kept)"_s
                                       : QString());
    case Rows:
        return number(change.rows);
    case Files:
        return number(m_history.fileCount(change));
    default:
        return {};
    }
}

QVariant ChangeListModel::data(const QModelIndex &index, int role) const
{
    const dao::Change &shown = change(index.row());
    if (role == Qt::DisplayRole || (role == Qt::ToolTipRole && index.column() == What))
        return text(shown, index.column());
    if (role == Qt::TextAlignmentRole && index.column() >= Rows)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::ForegroundRole && shown.state != dao::Change::State::Done)
        return QPalette().brush(QPalette::PlaceholderText);
    return {};
}

QVariant ChangeListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QString headings[] = {u"When"_s, u"What"_s, u"Records"_s, u"Files"_s};
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return headings[section];
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole && section >= Rows)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

} // namespace quaverly
