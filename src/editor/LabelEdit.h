// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

namespace quaverly {

/** A label that the user may change: it looks like one, over dots, and turns into a field with the focus. */
class LabelEdit final : public QLineEdit
{
    Q_OBJECT

public:
    explicit LabelEdit(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
};

} // namespace quaverly
