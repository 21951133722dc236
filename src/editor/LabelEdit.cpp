// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/LabelEdit.h"

#include <QPainter>

#include <algorithm>

namespace quaverly {

namespace {

constexpr float FaintAlpha = 0.5F;

} // namespace

LabelEdit::LabelEdit(QWidget *parent) : QLineEdit(parent)
{
    setTextMargins(0, 0, 0, 0);
}

void LabelEdit::paintEvent(QPaintEvent *event)
{
    if (hasFocus()) {
        QLineEdit::paintEvent(event);
        return;
    }
    const bool isDefault = text().isEmpty();
    // Some dark themes leave the palette's own colour for defaults dark.
    const QColor full = palette().color(QPalette::WindowText);
    QColor faint = full;
    faint.setAlphaF(FaintAlpha);
    const QString shown =
        fontMetrics().elidedText(isDefault ? placeholderText() : text(), Qt::ElideRight, width());
    QPainter painter(this);
    painter.setPen(isDefault ? faint : full);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, shown);
    QPen dots(underMouse() ? palette().color(QPalette::Link) : faint, 1, Qt::DotLine);
    painter.setPen(dots);
    const int line = (height() + fontMetrics().height()) / 2;
    const int length = std::max(fontMetrics().horizontalAdvance(shown), fontMetrics().averageCharWidth() * 8);
    painter.drawLine(0, line, std::min(length, width()), line);
}

void LabelEdit::enterEvent(QEnterEvent *event)
{
    QLineEdit::enterEvent(event);
    update();
}

void LabelEdit::leaveEvent(QEvent *event)
{
    QLineEdit::leaveEvent(event);
    update();
}

} // namespace quaverly
