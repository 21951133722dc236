// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

#include <QString>

namespace quaverly {

/** How wide a scan makes the bar, in twips of FullBarTwips. */
inline constexpr int ScanBarTwips = 6300;

/** What a scan shows of itself. Both scan screens are one. */
class ScanScreen
{
public:
    virtual ~ScanScreen() = default;

    /** The large message, the frame and its bar become visible and the window is shown without waiting. */
    virtual void showScanning(const QString &caption, const QString &message) = 0;
    virtual void setCaption(const QString &caption) = 0;
    /** The line that stands while folders are gathered; the empty text clears it. */
    virtual void setGatheringText(const QString &text) = 0;

    virtual void setCountLabels(const QString &read, const QString &added) = 0;
    virtual void setFilesRead(int count) = 0;
    virtual void setSongsAdded(int count) = 0;

    /** The bar's width in twips, 0 to FullBarTwips and a little beyond. */
    [[nodiscard]] virtual int barWidth() const = 0;
    virtual void setBarWidth(int twips) = 0;

    /** Caption of the button that leaves the screen; a screen without one passes it over. */
    virtual void setExitCaption(const QString &caption) = 0;
    /** Takes the screen away; harmless when the user has closed it. */
    virtual void unload() = 0;
};

/** The two scan screens, made when first asked for. */
class ScanScreens
{
public:
    virtual ~ScanScreens() = default;
    [[nodiscard]] virtual ScanScreen &folderScreen() = 0;
    [[nodiscard]] virtual ScanScreen &driveScreen() = 0;
};

} // namespace quaverly
