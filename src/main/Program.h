// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueCommands.h"
#include "main/Session.h"
#include "player/PlayForms.h"

#include <QStringList>

#include <functional>
#include <memory>

namespace quaverly {

class NameList;
class SingleInstance;
class StartUp;

/** Composes the program: the session, the start, and the main screen while it is open. */
class Program final
{
public:
    /** @p quit ends the event loop; @p sound is where the player's goes. All references outlive the program.
     */
    Program(Desktop &desktop, OptionsStore &store, SingleInstance &instance, const QStringList &arguments,
            std::function<void()> quit, media::MediaOptions sound = {});
    ~Program();
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    /** True when a screen is up, the main one or the player alone, and the event loop is to run. */
    [[nodiscard]] bool start();
    [[nodiscard]] PlayForms &playForms() { return m_playForms; }
    /** Null before the start, while the player is alone, and after the end. */
    [[nodiscard]] NameList *mainScreen() { return m_nameList.get(); }

private:
    [[nodiscard]] CatalogueHooks catalogueHooks();
    [[nodiscard]] PlayFormParts playFormParts();
    void playAlone(const QString &file, const QStringList &several);
    void showNameList();
    void unloadNameList(bool compacting);
    void nameList_Unloaded();
    void raiseScreen();

    Session m_session;
    SingleInstance &m_instance;
    std::function<void()> m_quit;
    std::unique_ptr<StartUp> m_startUp;
    CatalogueCommands m_catalogueCommands;
    PlayForms m_playForms;
    /** True while the main screen is unloaded for the catalogue's compaction. */
    bool m_compactingCatalogue = false;
    std::unique_ptr<NameList> m_nameList;
};

} // namespace quaverly
