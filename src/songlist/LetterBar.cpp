// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/LetterBar.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int Letters = 26;
constexpr int Blank = 36;
constexpr int Backspace = 37;
constexpr int Padding = 2;
/** Cells of the upper one of two rows, so that both are about as long. */
constexpr int UpperRow = 21;

QString captionOf(int index)
{
    if (index == Backspace)
        return u"Backspace"_s;
    return index == Blank ? u"_"_s : QString(QChar(LetterBar::characterOf(index)));
}

QString toolTipOf(int index)
{
    if (index < Letters)
        return u"Click a letter to move to a line starting with that letter."_s;
    return index < Blank ? u"Click a number to move to a line starting with that number."_s : QString();
}

} // namespace

LetterBar::LetterBar(QWidget *parent) : QWidget(parent)
{
    setMouseTracking(true);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

char16_t LetterBar::characterOf(int index)
{
    if (index == Backspace)
        return u'\b';
    if (index == Blank)
        return u' ';
    return static_cast<char16_t>(index + (index < Letters ? 65 : 22));
}

int LetterBar::cellWidth() const
{
    return fontMetrics().horizontalAdvance(u'M') + 2 * Padding;
}

int LetterBar::wideCellWidth() const
{
    return fontMetrics().horizontalAdvance(captionOf(Backspace)) + 4 * Padding;
}

int LetterBar::rows(int width) const
{
    return width >= Backspace * cellWidth() + wideCellWidth() ? 1 : 2;
}

QRect LetterBar::labelRect(int index) const
{
    const bool lower = rows(width()) == 2 && index >= UpperRow;
    const int height = fontMetrics().height() + 2 * Padding;
    const int column = lower ? index - UpperRow : index;
    return {column * cellWidth(), lower ? height : 0, index == Backspace ? wideCellWidth() : cellWidth(),
            height};
}

QSize LetterBar::sizeHint() const
{
    return {Backspace * cellWidth() + wideCellWidth(), fontMetrics().height() + 2 * Padding};
}

QSize LetterBar::minimumSizeHint() const
{
    return {UpperRow * cellWidth(), fontMetrics().height() + 2 * Padding};
}

int LetterBar::heightForWidth(int width) const
{
    return rows(width) * (fontMetrics().height() + 2 * Padding);
}

int LetterBar::labelAt(QPoint place) const
{
    for (int i = 0; i < LabelCount; ++i) {
        if (labelRect(i).contains(place))
            return i;
    }
    return -1;
}

void LetterBar::setHovered(int index)
{
    if (std::exchange(m_hovered, index) != index)
        update();
}

void LetterBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    for (int i = 0; i < LabelCount; ++i) {
        const QRect cell = labelRect(i);
        if (i == m_hovered) {
            painter.fillRect(cell, palette().highlight());
            painter.setPen(palette().color(QPalette::HighlightedText));
        } else {
            painter.setPen(palette().color(QPalette::WindowText));
        }
        painter.drawText(cell, Qt::AlignCenter, captionOf(i));
    }
}

void LetterBar::mousePressEvent(QMouseEvent *event)
{
    const int index = labelAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index >= 0)
        Q_EMIT lblAlphabet_Click(index);
}

void LetterBar::mouseMoveEvent(QMouseEvent *event)
{
    setHovered(labelAt(event->position().toPoint()));
}

void LetterBar::leaveEvent(QEvent *)
{
    setHovered(-1);
}

bool LetterBar::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    QToolTip::showText(help->globalPos(), toolTipOf(labelAt(help->pos())), this);
    return true;
}

} // namespace quaverly
