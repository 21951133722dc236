// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/OptionsScreen.h"

#include <functional>

namespace quaverly {

class Desktop;
class OptionsStore;
class SettingsRows;
struct Options;

/** The colour of the background until the user chooses one. */
inline constexpr quint32 OriginalBackColor = 8421440;

/** Captions of the menu entries that say what a click will do. */
namespace captions {
inline constexpr char16_t RememberWindowSize[] = u"Remember window size between sessions";
inline constexpr char16_t ForgetWindowSize[] = u"Do not remember window size between sessions";
inline constexpr char16_t ForbidFileRename[] = u"Do not allow files to be renamed or moved ...";
inline constexpr char16_t AllowFileRename[] = u"Allow files to be renamed or moved";
} // namespace captions

[[nodiscard]] ModeLook tabletLook();
[[nodiscard]] ModeLook desktopLook();

/**
 * The option commands of the main screen. Each first keeps what the user chose, then shows it: when
 * it can't be kept, the user is told, and flag, caption and screen stay as they were.
 */
class OptionCommands final
{
public:
    /** All references outlive this object. */
    OptionCommands(Desktop &desktop, OptionsScreen &screen, Options &options, OptionsStore &store,
                   SettingsRows &rows);

    /**
     * Brings flags, captions, background and look into the state that options and catalogue tell;
     * for the loading screen. Writes nothing. @throws dao::DaoError.
     */
    void load();

    void mnuOptionWindowSize_Click();
    void mnuOptionFileRename_Click();
    void mnuOptionsWarningMessagesReset_Click();
    void SelectColor_Click();
    void RestoreColor_Click();
    void TabletMode_Click();
    void DesktopMode_Click();

private:
    void run(const QString &title, const std::function<void()> &command);
    [[nodiscard]] bool confirmsNoRenaming();
    void showWindowSizeCaption();
    void showFileRenameCaption();
    void showMode();
    void changeColor(quint32 color);
    void changeMode(bool tablet);

    Desktop &m_desktop;
    OptionsScreen &m_screen;
    Options &m_options;
    OptionsStore &m_store;
    SettingsRows &m_rows;
};

} // namespace quaverly
