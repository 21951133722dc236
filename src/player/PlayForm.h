// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "player/AddToPlayListBox.h"
#include "player/NextSong.h"
#include "player/PlayerKeys.h"
#include "player/PlayerRules.h"
#include "player/QueueEdit.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <memory>

class QMenu;

namespace media {
class MediaPlayer;
class Mpris;
class PlayerRemote;
} // namespace media

namespace Ui {
class PlayForm;
}

namespace quaverly {

class DataControl;
class SongListModel;
class frmNowPlaying;
struct PlayRequest;
struct PlayerState;

/** What the player's screen works with. All of it outlives the screen. */
struct PlayFormParts
{
    Services services;
    PlayerState &state;
    /** Not looked at while the player is the only screen of the run. */
    DataControl &displayed;
    std::function<std::unique_ptr<media::MediaPlayer>()> makeMediaPlayer;
    /** True when no screen but the player is open. */
    std::function<bool()> isLastScreen;
    /** Ends the process; may be called more than once. */
    std::function<void()> endProgram;
    /** Numbers in [0, 1). */
    std::function<double()> random;
};

/**
 * The player: a window of its own with the songs, the media control and what becomes of a song's end. Made,
 * it is loaded and plays PlayerState's CurrentPlayUrl; closed, it is unloaded and never shown again.
 */
class PlayForm final : public QMainWindow
{
    Q_OBJECT

public:
    explicit PlayForm(PlayFormParts parts, QWidget *parent = nullptr);
    ~PlayForm() override;

    /** Takes the songs, and shows and hides what the command asks for. */
    void fill(const PlayRequest &request);
    /** Puts songs behind the one that plays, or at the end. A player of one song goes on with a list. */
    void addToQueue(const SongQueue &songs, bool next);
    /** Offers the play lists that there are now, under their present names. */
    void showPlayLists();

Q_SIGNALS:
    void unloaded();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    static constexpr int ConfirmationMs = 800;

    void wire();
    void wireMedia();
    void listenToDesktop();
    void Form_Load();
    void Form_Unload();
    void loadPlayLists();

    void cbPlayNext_Click(bool checked);
    void cbPlayRandom_Click(bool checked);
    void cbLoop_Click(bool checked);
    void cbShuffle_Click(bool checked);
    void cbNowPlaying_Click(bool checked);
    void lbSongs_Click(int row);
    void cmbHeader_Click();
    void cmdAddToPlaylist_Click();
    void cmdDelete_Click();
    void cmdLyrics_Click();
    void lbSongs_MouseUp(const QPoint &place);
    void mnuQueuePlayNext_Click();
    void mnuQueueMoveUp_Click();
    void mnuQueueMoveDown_Click();
    void mnuQueueRemove_Click();
    void mnuQueueSave_Click();
    void wireQueue();
    void moveInQueue(int from, int to);
    void leaveOneFile();
    void queueEdited();
    void showCount();

    void WindowsMediaPlayer1_PlayStateChange(int NewState);
    void WindowsMediaPlayer1_CurrentItemChange();
    void obey(const StateDecision &decision);
    void followList(const StateFollow &steps);
    void passOverDuplicates();
    void PlayNextRandom(NextMode mode);
    void playNextSong(const NextSongFile &song);
    /** Has the control go on with the song that the boxes ask for, or with none. */
    void planFollowing();
    [[nodiscard]] QString followingFile();
    /** The control went on to, or back to, a song that was planned. */
    void followOneFile();
    void showOneSong(const QString &row, const QString &path);
    [[nodiscard]] PlayerChecks checks() const;

    /** Both list boxes; -1 for no row. */
    void selectRow(int row);
    void showQueue();
    void showCurrentSong();
    void showSkipped(const QString &sourceURL, const QString &sentence);
    void showNote(const QString &sentence);

    std::unique_ptr<Ui::PlayForm> m_ui;
    PlayFormParts m_parts;
    PlayListStore m_lists;
    AddToPlayList m_addToPlayList;
    std::unique_ptr<AddToPlayListBox> m_playLists;
    std::unique_ptr<PlayerKeys> m_keys;
    QMenu *m_popup;
    /** Null once unloaded. */
    std::unique_ptr<media::MediaPlayer> m_media;
    /** Media keys and the desktop's player widget. */
    std::unique_ptr<media::PlayerRemote> m_remote;
    std::unique_ptr<media::Mpris> m_mpris;
    SongQueue m_queue;
    /** The songs that were played one by one, and the one that is planned. */
    SongQueue m_walked;
    SongListModel *m_songs;
    SongListModel *m_urls;
    QueueEdit m_edit;
    /** Null in a run that has no catalogue. */
    std::unique_ptr<NextSong> m_nextSong;
    QPointer<frmNowPlaying> m_nowPlaying;
    bool m_noteIsOfSkip = false;
};

} // namespace quaverly
