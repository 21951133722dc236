// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Guard.h"

#include <functional>
#include <initializer_list>
#include <utility>

class QAbstractButton;
class QAction;
class QObject;

namespace quaverly {

/** Leads from menu entries, buttons and drop-down boxes to the commands that they run. */
class MenuWiring final
{
public:
    using Entry = std::pair<QObject *, std::function<void()>>;

    /** The connections go with @p screen; @p handle outlives it. */
    MenuWiring(QObject &screen, const GuardedHandler &handle) : m_screen(screen), m_handle(handle) {}

    /** Commands whose errors the screen's one guarded handler tells. */
    void guarded(std::initializer_list<Entry> entries) const;
    /** Commands that tell their errors under titles of their own. */
    void own(std::initializer_list<Entry> entries) const;
    /** Buttons that do what an entry of a menu does. */
    void lead(std::initializer_list<std::pair<QAbstractButton *, QAction *>> buttons) const;

private:
    void connectTo(QObject *from, const std::function<void()> &command) const;

    QObject &m_screen;
    const GuardedHandler &m_handle;
};

} // namespace quaverly
