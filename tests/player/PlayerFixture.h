// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Options.h"
#include "lists/PlayerState.h"
#include "platform/media/Engine.h"
#include "platform/media/Media.h"
#include "platform/options/OptionsStore.h"
#include "platform/shell/Shell.h"
#include "player/PlayCommands.h"
#include "player/PlayForms.h"
#include "songlist/DataControl.h"
#include "support/ScriptedDesktop.h"
#include "support/store/StoreFixture.h"

namespace quaverly::test {

/** Makes no sound and plays no further than it is told to. */
class SteppedEngine final : public media::Engine
{
public:
    /** The song that plays is over. */
    void finish();
    [[nodiscard]] bool isBusy() const { return m_current != 0; }

    void setListener(media::EngineListener *listener) override { m_listener = listener; }
    media::Token open(const QString &path, bool paused) override;
    media::Token setNext(const QString &path) override;
    void stop() override { m_current = m_next = 0; }
    void setPaused(bool paused) override { m_paused = paused; }
    void seek(double seconds) override { m_listener->position(seconds, true); }
    void askPosition() override {}
    void setVolume(int /*percent*/) override {}
    void setMute(bool /*on*/) override {}

private:
    void start();

    media::EngineListener *m_listener = nullptr;
    media::Token m_last = 0;
    media::Token m_current = 0;
    media::Token m_next = 0;
    bool m_paused = false;
};

/** A catalogue, a music folder beside it, and the play commands over both, with the player's screen. */
class PlayerTest : public ::testing::Test
{
protected:
    PlayerTest();
    ~PlayerTest() override;

    /** Full path in the music folder. */
    [[nodiscard]] QString music(const QString &name = {}) const
    {
        return m_store.path(QStringLiteral("music/")) + name;
    }
    /** Writes a file into the music folder, its folders too. */
    void write(const QString &name, const QByteArray &bytes = "sound") const;
    /** A song of the catalogue, its file not written. */
    qint64 catalogued(const QString &name, const QString &artist, const QString &fileName);
    /** The same, and the file. */
    qint64 song(const QString &name, const QString &artist, const QString &fileName);
    /** Displays what the statement gives. */
    void display(const QString &sql = QStringLiteral("Select * from  tblContacts Order By RecordID"));
    /** The real control in place of the stepped one: silent, and faster than the sound. */
    void playForReal();

    [[nodiscard]] PlayForm *form() const { return m_forms.form(); }
    template <typename T> T &control(const QString &name) { return *form()->findChild<T *>(name); }
    /** Rows of lbSongs, and the one selected there. */
    [[nodiscard]] QStringList rows() { return texts(QStringLiteral("lbSongs")); }
    [[nodiscard]] QStringList urls() { return texts(QStringLiteral("lbSongURL")); }
    [[nodiscard]] int ListIndex();
    [[nodiscard]] QString caption() { return form()->windowTitle(); }
    [[nodiscard]] bool isShown(const QString &control);
    /** The lines of the list file; nothing without one. */
    [[nodiscard]] QByteArray listFile() const;

    /** The control of the screen that is open. */
    [[nodiscard]] media::MediaPlayer &player() { return *m_player; }
    [[nodiscard]] QString playing();
    /** Waits until that song of the queue plays. */
    void waitFor(const QString &fileName);
    void finishSong();

    StoreFixture m_store;
    ScriptedDesktop m_desktop;
    Options &m_options = m_store.options();
    OptionsStore &m_optionsStore = m_store.optionsStore();
    PlayerState m_state;
    DataControl m_data{m_store.catalogue()};
    std::unique_ptr<shell::Shell> m_shell = shell::makeShell();
    QString m_lastMusicFolder;
    media::MediaOptions m_mediaOptions;
    SteppedEngine *m_engine = nullptr;
    media::MediaPlayer *m_player = nullptr;
    /** What was reported: states by number, items by their file names. */
    QStringList m_events;
    QStringList m_gathered;
    bool m_lastScreen = false;
    int m_ends = 0;
    double m_random = 0;
    int m_playListScreens = 0;
    int m_songsAdded = 0;
    PlayForms m_forms;
    PlayCommands m_commands;

private:
    QStringList texts(const QString &list);
    std::unique_ptr<media::MediaPlayer> makeMediaPlayer();
};

} // namespace quaverly::test
