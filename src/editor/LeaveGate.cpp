// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/LeaveGate.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>

namespace quaverly {

namespace {

/** Another window, a menu or a list of its own takes the focus for a while only. */
bool isWithinScreen(Qt::FocusReason reason)
{
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

} // namespace

LeaveGate::LeaveGate(QWidget &screen, QList<QWidget *> fields, QWidget &wayOut,
                     std::function<Leave(QWidget &field)> ask)
    : QObject(&screen), m_fields(std::move(fields)), m_wayOut(wayOut), m_ask(std::move(ask))
{
    for (QWidget *control : screen.findChildren<QWidget *>())
        control->installEventFilter(this);
}

bool LeaveGate::eventFilter(QObject *watched, QEvent *event)
{
    auto &control = *static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::FocusOut:
        leave(control, static_cast<QFocusEvent *>(event)->reason());
        return false;
    case QEvent::MouseButtonPress:
        return press(control);
    case QEvent::Shortcut:
        return refusesShortcut(control);
    default:
        return false;
    }
}

void LeaveGate::leave(QWidget &field, Qt::FocusReason reason)
{
    QWidget *target = QApplication::focusWidget();
    if (m_open || !m_fields.contains(&field) || !isWithinScreen(reason) || target == &m_wayOut)
        return;
    m_open = true;
    m_answer = m_ask(field);
    m_open = false;
    if (m_answer.stays)
        field.setFocus(Qt::OtherFocusReason);
    if (reason == Qt::MouseFocusReason && (m_answer.stays || m_answer.asked))
        m_pressed = target;
}

// Behind a box the button would wait for a release that went elsewhere.
bool LeaveGate::press(QWidget &target)
{
    if (m_pressed != &target)
        return false;
    m_pressed.clear();
    auto *button = qobject_cast<QAbstractButton *>(&target);
    if (!m_answer.stays && button != nullptr)
        button->click();
    return true;
}

bool LeaveGate::refusesShortcut(QWidget &target)
{
    if (qobject_cast<QAbstractButton *>(&target) == nullptr)
        return false;
    target.setFocus(Qt::ShortcutFocusReason);
    return !target.hasFocus();
}

} // namespace quaverly
