// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

/** How grid, sort box and Locate box look in tablet or desktop mode. Heights are in twips. */
struct ModeLook
{
    double rowHeight = 0;
    /** Of the grid, the sort box and the Locate box. */
    QString fontName;
    double fontSize = 0;
    bool bold = false;
    int locateHeight = 0;
};

/** What the options need of the main screen. Captions are state: they are read back. */
class OptionsScreen
{
public:
    virtual ~OptionsScreen() = default;

    [[nodiscard]] virtual QString mnuOptionWindowSize() const = 0;
    virtual void set_mnuOptionWindowSize(const QString &caption) = 0;
    [[nodiscard]] virtual QString mnuOptionFileRename() const = 0;
    virtual void set_mnuOptionFileRename(const QString &caption) = 0;

    /** Colour number of the background: red, green and blue from the lowest byte up. */
    [[nodiscard]] virtual quint32 BackColor() const = 0;
    virtual void set_BackColor(quint32 color) = 0;

    virtual void applyLook(const ModeLook &look) = 0;
    /** Whether the menu entries TabletMode and DesktopMode can be chosen. */
    virtual void enableModes(bool tabletMode, bool desktopMode) = 0;
};

} // namespace quaverly
