// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSlider>

namespace quaverly {

/** A horizontal slider whose handle comes to where the groove is clicked. */
class JumpSlider final : public QSlider
{
    Q_OBJECT

public:
    using QSlider::QSlider;

protected:
    void mousePressEvent(QMouseEvent *event) override;
};

} // namespace quaverly
