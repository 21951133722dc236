// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "songlist/MainScreen.h"

namespace quaverly {

/**
 * The main screen takes no commands for the length of a scope in which events run: they would change what is
 * being worked on. @p busy is true for as long.
 */
class ScreenAtRest final
{
public:
    ScreenAtRest(MainScreen &screen, bool &busy) : m_screen(screen), m_busy(busy)
    {
        m_busy = true;
        m_screen.setScreenEnabled(false);
    }
    ~ScreenAtRest()
    {
        m_screen.setScreenEnabled(true);
        m_screen.focusGrid();
        m_busy = false;
    }
    ScreenAtRest(const ScreenAtRest &) = delete;
    ScreenAtRest &operator=(const ScreenAtRest &) = delete;

private:
    MainScreen &m_screen;
    bool &m_busy;
};

} // namespace quaverly
