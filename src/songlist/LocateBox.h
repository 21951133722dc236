// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

namespace quaverly {

/** The Locate box. It is empty again whenever it loses the focus. */
class LocateBox final : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

Q_SIGNALS:
    /** A key went up, or an input method put characters in; @p key is a Qt::Key. */
    void KeyUp(int key);
    void KeyPress(int key);
    void Click();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};

} // namespace quaverly
