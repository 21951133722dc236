// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/SongCellDelegate.h"

#include "songlist/SongGridModel.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int NumberGap = 8;

} // namespace

void SongCellDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
    const auto *model = static_cast<const SongGridModel *>(index.model());
    const QString &field = model->column(index.column()).dataField;
    const bool selected = option->state.testFlag(QStyle::State_Selected);
    if (index.column() == 0 && !selected)
        option->palette.setColor(QPalette::Text, option->palette.color(QPalette::Highlight));
    if (index.column() == 0)
        option->font.setBold(true);
    // Numbers keep a distance from the next column's text.
    if (option->displayAlignment.testFlag(Qt::AlignRight))
        option->rect.setRight(option->rect.right() - NumberGap);
    // The text stays asterisks; only what is painted are stars.
    if (field == "Rating"_L1)
        option->text.replace(u'*', QChar(0x2605));
}

bool SongCellDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                 const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    constexpr int Padding = 8;
    const bool cut = item.fontMetrics.horizontalAdvance(item.text) + Padding > option.rect.width();
    if (cut)
        QToolTip::showText(event->globalPos(), u"<p>"_s + item.text.toHtmlEscaped() + u"</p>"_s, view);
    else
        QToolTip::hideText();
    return true;
}

} // namespace quaverly
