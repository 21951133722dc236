// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>

namespace quaverly {

/** What came of asking whether a field may be left. */
struct Leave
{
    bool stays = false;
    /** A box was shown: the click that took the focus away went to it, as far as the system knows. */
    bool asked = false;
};

/**
 * Asks before the focus leaves one of a screen's fields for another of its controls. When it has to stay,
 * the click or the key that led away does nothing else. Goes with the screen.
 */
class LeaveGate final : public QObject
{
    Q_OBJECT

public:
    /** @p wayOut is the control that may be reached without an answer. */
    LeaveGate(QWidget &screen, QList<QWidget *> fields, QWidget &wayOut,
              std::function<Leave(QWidget &field)> ask);

    /** Open, nothing is asked: the screen goes, or hides for a while. */
    void setOpen(bool open) { m_open = open; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void leave(QWidget &field, Qt::FocusReason reason);
    [[nodiscard]] bool press(QWidget &target);
    [[nodiscard]] static bool refusesShortcut(QWidget &target);

    QList<QWidget *> m_fields;
    QWidget &m_wayOut;
    std::function<Leave(QWidget &)> m_ask;
    /** The control whose press took the focus away, until that press arrives. */
    QPointer<QWidget> m_pressed;
    Leave m_answer;
    bool m_open = false;
};

} // namespace quaverly
