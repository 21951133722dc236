// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"
#include "catalogue/Options.h"
#include "catalogue/Services.h"
#include "catalogue/SettingsRows.h"
#include "catalogue/ShutDown.h"
#include "editor/EditorState.h"
#include "intake/IntakeState.h"
#include "lists/PlayerState.h"
#include "platform/media/Media.h"
#include "platform/options/OptionsStore.h"
#include "platform/shell/Shell.h"
#include "songlist/DisplayedSet.h"

namespace quaverly {

/** All state of a run, in its groups. Built once; each class is handed the groups that it needs. */
class Session final
{
public:
    /** @p desktop and @p store outlive the session. */
    Session(Desktop &desktop, OptionsStore &store, media::MediaOptions sound);

    [[nodiscard]] Desktop &desktop() { return m_desktop; }
    [[nodiscard]] OptionsStore &optionsStore() { return m_store; }
    [[nodiscard]] Services services() { return {m_desktop, m_catalogue, m_options, m_store}; }
    [[nodiscard]] dao::DBEngine &engine() { return m_engine; }
    [[nodiscard]] const media::MediaFactory &media() { return m_media; }
    [[nodiscard]] shell::Shell &shell() { return *m_shell; }
    [[nodiscard]] Catalogue &catalogue() { return m_catalogue; }
    [[nodiscard]] Options &options() { return m_options; }
    [[nodiscard]] SettingsRows &settings() { return m_settings; }
    [[nodiscard]] DisplayedSet &displayedSet() { return m_displayedSet; }
    [[nodiscard]] PlayerState &player() { return m_player; }
    [[nodiscard]] IntakeState &intake() { return m_intake; }
    [[nodiscard]] EditorState &editor() { return m_editor; }
    [[nodiscard]] ShutDown &shutDown() { return m_shutDown; }

    /** Where the folder dialogs of the options start: the folder chosen there last. */
    [[nodiscard]] QString &lastFolder() { return m_lastFolder; }
    /** Where a play list was written to last, for this run. */
    [[nodiscard]] QString &lastPlayListFolder() { return m_lastPlayListFolder; }
    /** Where music files were copied to last, for this run. */
    [[nodiscard]] QString &copyFolder() { return m_copyFolder; }

private:
    Desktop &m_desktop;
    OptionsStore &m_store;
    dao::DBEngine m_engine;
    media::MediaFactory m_media;
    std::unique_ptr<shell::Shell> m_shell;
    Catalogue m_catalogue;
    Options m_options;
    SettingsRows m_settings;
    DisplayedSet m_displayedSet;
    PlayerState m_player;
    IntakeState m_intake;
    EditorState m_editor;
    ShutDown m_shutDown;
    QString m_lastFolder;
    QString m_lastPlayListFolder;
    QString m_copyFolder;
};

} // namespace quaverly
