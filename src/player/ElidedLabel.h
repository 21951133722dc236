// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace quaverly {

/** One line of plain text; where there is no room for it, it is cut with an ellipsis and the tool tip has it.
 */
class ElidedLabel final : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

} // namespace quaverly
