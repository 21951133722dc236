// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Options.h"
#include "lists/PlayerState.h"
#include "platform/media/Media.h"
#include "platform/options/OptionsStore.h"
#include "player/Player.h"
#include "playlists/PlayListScreens.h"
#include "playlists/TrackListView.h"
#include "playlists/frmPlay.h"
#include "support/ScriptedDesktop.h"
#include "support/UserActs.h"
#include "support/store/FakeMainScreen.h"
#include "support/store/StoreFixture.h"

#include <QListView>
#include <QWidget>

namespace quaverly::test {

/** Keeps what it was told to play. */
class RecordingPlayer final : public Player
{
public:
    void unload() override { ++unloads; }
    void play(PlayRequest request) override { played.append(std::move(request)); }
    bool addToQueue(const SongQueue & /*songs*/, bool /*next*/) override { return false; }
    void showPlayLists() override { ++listsShown; }

    int unloads = 0;
    int listsShown = 0;
    QList<PlayRequest> played;
};

/** The play lists screen over a catalogue of four songs, with the lists Empty and Party. */
class PlayListTest : public ::testing::Test
{
protected:
    PlayListTest();
    ~PlayListTest() override;

    /** A list of tracks A, B, C ... by Artist. */
    qint64 addList(const QString &name, int tracks);
    /** Opens the screen, with a list remembered. */
    void open(const QString &remembered = {});
    [[nodiscard]] frmPlayList &screen() const { return *m_screens.form(); }
    [[nodiscard]] bool isOpen() const { return m_screens.form() != nullptr; }
    template <typename T> [[nodiscard]] T &control(const char16_t *name) const
    {
        return *child<T>(screen(), QString::fromUtf16(name));
    }
    [[nodiscard]] TrackListView &lbDetail() const { return control<TrackListView>(u"lbDetail"); }
    [[nodiscard]] QString shown(const char16_t *label) const { return control<QLabel>(label).text(); }
    void choose(const char16_t *entry) { chooseMenu(screen(), QString::fromUtf16(entry)); }
    void press(const char16_t *button) { click(screen(), QString::fromUtf16(button)); }
    /** Picks a list by the keyboard. */
    void pick(const QString &list);
    /** Clicks a row of lbDetail. */
    void clickRow(int row);
    void dragRow(int from, int to, bool escape = false);
    /** Holds the first song at the list's lower edge until that scrolls. */
    void scrollByDrag();
    /** Runs @p act in the screen that is over the play lists. */
    void inScreen(const std::function<void(QWidget &)> &act);

    /** The window that plays one song at a time, while it is open. */
    [[nodiscard]] frmPlay *playWindow() const { return screen().findChild<frmPlay *>(); }

    /** The rows of lbDetail, the blank one included. */
    [[nodiscard]] QStringList rows() const;
    /** Titles of a list in the store, in playing order. */
    [[nodiscard]] QString stored(qint64 list);
    [[nodiscard]] QString numbers(qint64 list);

    StoreFixture m_store;
    ScriptedDesktop m_desktop;
    Options &m_options = m_store.options();
    OptionsStore &m_optionsStore = m_store.optionsStore();
    PlayerState m_state;
    DisplayedSet m_displayed{m_store.catalogue(), m_store.settings(), m_desktop};
    FakeMainScreen m_mainScreen{&m_displayed};
    RecordingPlayer m_player;
    PlayListStore m_lists{m_store.catalogue()};
    QString m_musicFolder;
    QString m_playListFolder;
    QStringList m_reports;
    /** Titles of that window, at each song that played. */
    QStringList m_heard;
    QWidget m_owner;
    PlayListScreens m_screens;
    qint64 m_empty = 0;
    qint64 m_party = 0;

private:
    std::unique_ptr<media::MediaPlayer> makeMediaPlayer();
};

} // namespace quaverly::test
