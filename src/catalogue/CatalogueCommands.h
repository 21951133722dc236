// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Backups.h"
#include "catalogue/ShutDown.h"

#include <functional>

namespace quaverly {

class Desktop;
class OptionsStore;

/** What the commands on the whole catalogue file need of the program around them. All are to be set. */
struct CatalogueHooks
{
    /** The main screen's Show All; may throw dao::DaoError, and the command then stops. */
    std::function<void()> showAll;
    /** Open screens, the main screen included. */
    std::function<int()> openScreens;
    /** Closes the player's screen if it is open. */
    std::function<void()> unloadPlayForm;
    /**
     * Closes the main screen with all steps of its unload. When it returns, the screen is gone from the
     * program's view and no recordset is open. The unload ends the process unless @p compacting is
     * true or SwitchingCatalogue is set.
     */
    std::function<void(bool compacting)> unloadMainScreen;
    /** Forgets the current play list's name and the last one's. */
    std::function<void()> forgetPlayLists;
    /** Opens the catalogue that DatabaseFile names, with a new main screen; false when it gave up. */
    std::function<bool()> startUp;
    /** Ends the process; no screen is open then. */
    std::function<void()> endProcess;
};

/**
 * The commands on the catalogue file as a whole: another file, compact, empty, back to an earlier copy.
 *
 * They unload the main screen that they were called from, and build a new one. So whoever owns this
 * object must outlive the screens, and must not delete the old screen under a handler of its own: either
 * the screen's menu entries reach these handlers through a queued connection, or unloadMainScreen only
 * closes the screen and leaves its deletion to the event loop. An old screen that goes later must not
 * take back what the new one has registered meanwhile.
 *
 * Whatever fails is shown, and the catalogue that was open before is opened again, so that the user
 * is never left without one; the process ends only when that fails too.
 */
class CatalogueCommands final
{
public:
    /** All references outlive this object. */
    CatalogueCommands(Desktop &desktop, Catalogue &catalogue, dao::DBEngine &engine, OptionsStore &options,
                      CatalogueHooks hooks);

    void OpenDatabase_Click();
    void mnuCompactDatabase_Click();
    /** Takes all songs away, play lists and categories stay. The process ends with it. */
    void mnuDeleteAll_Click();
    /** How much room the copies may take. */
    void mnuBackupRoom_Click();
    /**
     * What the screen that lists the copies ends with: the catalogue is again as it was in @p backup, and
     * its present state is a copy too. That screen is closed by now.
     */
    void restoreBackup(const Backup &backup);

    [[nodiscard]] Backups &backups() { return m_backups; }

private:
    void changeTo(const QString &file);
    [[nodiscard]] bool mayCompact();
    void compact();
    [[nodiscard]] bool confirmsDeleteAll();
    [[nodiscard]] bool isEmpty() const;
    void deleteAll();
    void restore(const Backup &backup);
    void assertUpdatable() const;
    void closeCatalogue();
    [[nodiscard]] bool startUp();
    void startUpOrEnd();

    Desktop &m_desktop;
    Catalogue &m_catalogue;
    dao::DBEngine &m_engine;
    OptionsStore &m_options;
    CatalogueHooks m_hooks;
    ShutDown m_shutDown;
    Backups m_backups;
};

} // namespace quaverly
