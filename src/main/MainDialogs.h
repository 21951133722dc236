// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QDateTime;
class QWidget;

namespace quaverly {

class CatalogueCommands;
class HelpSite;
class MainScreen;
class Session;

/** The commands of the main screen that open a screen of their own over it. */
class MainDialogs final
{
public:
    /** All references outlive this object. */
    MainDialogs(Session &session, CatalogueCommands &catalogueCommands, HelpSite &helpSite,
                MainScreen &mainScreen, QWidget &owner)
        : m_session(session), m_catalogueCommands(catalogueCommands), m_helpSite(helpSite),
          m_mainScreen(mainScreen), m_owner(owner)
    {}

    void SelectionCriteria_Click();
    void mnuFileFont_Click();
    void DataBaseLocation_Click();
    void mnuPassword_Click();
    void mnuOptionMusicKinds_Click();
    void mnuRestoreBackup_Click();
    void OphanedPictures_Click();
    void EmptyDeletedPicturesFolder_Click();
    void AboutBox_Click();

    /** Offers to restore the copy that was made last before that time. True when it will be, once the screens
     * above the main one are closed. @throws dao::DaoError */
    [[nodiscard]] bool restoreBefore(const QDateTime &made);

private:
    Session &m_session;
    CatalogueCommands &m_catalogueCommands;
    HelpSite &m_helpSite;
    MainScreen &m_mainScreen;
    QWidget &m_owner;
};

} // namespace quaverly
