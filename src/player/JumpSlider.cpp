// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/JumpSlider.h"

#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionSlider>

namespace quaverly {

void JumpSlider::mousePressEvent(QMouseEvent *event)
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect handle = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    if (event->button() == Qt::LeftButton && !handle.contains(event->position().toPoint())) {
        const int room = width() - handle.width();
        const int left = qRound(event->position().x()) - handle.width() / 2;
        setSliderPosition(
            QStyle::sliderValueFromPosition(minimum(), maximum(), left, room, option.upsideDown));
    }
    // The handle is under the pointer now and goes with it.
    QSlider::mousePressEvent(event);
}

} // namespace quaverly
