// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayForm.h"

#include "catalogue/Options.h"
#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "lists/PlayerState.h"
#include "platform/media/Media.h"
#include "platform/media/Mpris.h"
#include "platform/options/OptionsStore.h"
#include "platform/text/Twips.h"
#include "player/Player.h"
#include "player/PlayerSettings.h"
#include "player/SongListModel.h"
#include "player/TemporaryList.h"
#include "player/WebSearch.h"
#include "player/frmNowPlaying.h"
#include "songlist/DataControl.h"
#include "ui_PlayForm.h"

#include <QAbstractItemView>
#include <QCloseEvent>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int LeastRows = 3;

} // namespace

PlayForm::PlayForm(PlayFormParts parts, QWidget *parent)
    : QMainWindow(parent), m_ui(std::make_unique<Ui::PlayForm>()), m_parts(std::move(parts)),
      m_lists(m_parts.services.catalogue), m_addToPlayList(m_parts.services.desktop, m_parts.state, m_lists),
      m_media(m_parts.makeMediaPlayer()),
      m_songs(new SongListModel(m_queue, SongListModel::List::Songs, this)),
      m_urls(new SongListModel(m_queue, SongListModel::List::Urls, this)), m_edit(m_queue, *m_songs, *m_media)
{
    m_ui->setupUi(this);
    m_ui->lbSongs->setModel(m_songs);
    m_ui->lbSongURL->setModel(m_urls);
    m_ui->WindowsMediaPlayer1->setPlayer(m_media.get());
    m_playLists = std::make_unique<AddToPlayListBox>(*m_ui->cmbHeader, *m_ui->txtSongAddedToPlaylist);
    m_keys = std::make_unique<PlayerKeys>(*this, *m_ui->WindowsMediaPlayer1, m_ui->lbSongs);
    wire();
    wireQueue();
    wireMedia();
    listenToDesktop();
    Form_Load();
}

PlayForm::~PlayForm()
{
    m_ui->WindowsMediaPlayer1->setPlayer(nullptr);
}

void PlayForm::wire()
{
    const auto on = [this](auto *control, auto signal, auto handler) {
        connect(control, signal, this, handler);
    };
    on(m_ui->lbSongs, &SongListView::rowChosen, &PlayForm::lbSongs_Click);
    on(m_ui->cbPlayNext, &QCheckBox::toggled, &PlayForm::cbPlayNext_Click);
    on(m_ui->cbPlayRandom, &QCheckBox::toggled, &PlayForm::cbPlayRandom_Click);
    on(m_ui->cbLoop, &QCheckBox::toggled, &PlayForm::cbLoop_Click);
    on(m_ui->cbShuffle, &QCheckBox::toggled, &PlayForm::cbShuffle_Click);
    on(m_ui->cbNowPlaying, &QCheckBox::toggled, &PlayForm::cbNowPlaying_Click);
    on(m_ui->cmbHeader, &QComboBox::activated, &PlayForm::cmbHeader_Click);
    on(m_ui->cmdAddToPlaylist, &QPushButton::clicked, &PlayForm::cmdAddToPlaylist_Click);
    on(m_ui->cmdDelete, &QPushButton::clicked, &PlayForm::cmdDelete_Click);
    on(m_ui->cmdLyrics, &QPushButton::clicked, &PlayForm::cmdLyrics_Click);
    on(m_ui->cmdExit, &QPushButton::clicked, &PlayForm::close);
}

void PlayForm::listenToDesktop()
{
    const auto names = [this] { return m_queue.namesOf(m_media->currentMedia().sourceURL); };
    const auto later = [this](auto act) { QMetaObject::invokeMethod(this, act, Qt::QueuedConnection); };
    m_remote = std::make_unique<media::PlayerRemote>(
        *m_media,
        media::RemoteHost{[this] {
                              raise();
                              activateWindow();
                          },
                          // The call itself must have come back before its objects go.
                          [this, later] { later([this] { close(); }); },
                          [this](bool on) { m_ui->cbLoop->setChecked(on); },
                          [this](bool on) {
                              // Of one song there is nothing to shuffle.
                              m_ui->cbShuffle->setVisible(m_queue.count() > 1);
                              m_ui->cbShuffle->setChecked(on && m_queue.count() > 1);
                          },
                          [names] { return names().SongName; }, [names] { return names().Artist; }});
    m_mpris = std::make_unique<media::Mpris>(*m_remote);
}

void PlayForm::Form_Load()
{
    m_parts.state.PlayerOpen = true;
    if (!m_parts.services.options.PlayerOnlyMode) {
        m_nextSong = std::make_unique<NextSong>(m_parts.services.catalogue, m_parts.displayed.RecordSource(),
                                                m_parts.random);
        loadPlayLists();
        m_ui->cmdDelete->setVisible(m_ui->cbPlayRandom->isHidden());
    }
    if (m_parts.state.PlayerLeft >= 0 && m_parts.state.PlayerTop >= 0)
        move(m_parts.state.PlayerLeft / TwipsPerPixel, m_parts.state.PlayerTop / TwipsPerPixel);
    loadPlayerSettings(m_parts.services.optionsStore, *m_media);
    m_media->setURL(m_parts.state.CurrentPlayUrl);
    setWindowTitle(m_parts.state.CurrentPlayTitle);
    if (m_parts.services.options.TabletActive)
        sizeForFingers(*this);
    const int row = songRowHeight(*this, m_parts.services.options.TabletActive);
    m_songs->setRowHeight(row);
    m_ui->lbSongs->setMinimumHeight(LeastRows * row);
    m_ui->WindowsMediaPlayer1->setFocus();
}

void PlayForm::loadPlayLists()
{
    PlayerState &state = m_parts.state;
    m_ui->lblSelectedPlaylist->setText(state.PlayerPlayList);
    try {
        m_playLists->showLists(m_lists.lists(), state.PlayerPlayList);
    } catch (const dao::DaoError &) {
        return; // The songs play without play lists too.
    }
    if (m_ui->cmbHeader->count() > 0)
        return;
    state.CurrentPlayListName.clear();
    state.PlayerPlayList.clear();
}

void PlayForm::showPlayLists()
{
    loadPlayLists();
    const QString title = titleOfPlayList({});
    if (m_parts.state.CurrentPlayTitle.startsWith(title) && windowTitle().startsWith(captionOfPlayList({})))
        setWindowTitle(captionOfPlayList(m_parts.state.CurrentPlayTitle.sliced(title.size())));
}

void PlayForm::fill(const PlayRequest &request)
{
    m_queue = m_walked = request.songs;
    m_ui->cbPlayNext->setVisible(request.cbPlayNext);
    m_ui->cbPlayRandom->setVisible(request.cbPlayRandom);
    m_ui->cbShuffle->setVisible(request.cbShuffle);
    m_ui->cbSkipDups->setVisible(request.cbSkipDups);
    m_ui->cbNowPlaying->setVisible(request.cbNowPlaying);
    m_ui->cmdDelete->setVisible(request.cmdDelete);
    m_ui->cmbHeader->setVisible(request.playListControls);
    m_ui->lblSelectedPlaylist->setVisible(request.playListControls);
    m_ui->cmdAddToPlaylist->setVisible(request.playListControls);
    if (request.showsCount)
        showCount();
    showQueue();
}

void PlayForm::showQueue()
{
    m_songs->reset();
    m_urls->reset();
    selectRow(m_queue.ListIndex());
}

void PlayForm::selectRow(int row)
{
    const int before = m_queue.ListIndex();
    m_queue.setListIndex(row);
    const QModelIndex index = m_songs->index(m_queue.ListIndex());
    m_ui->lbSongs->setCurrentIndex(index);
    if (!index.isValid())
        m_ui->lbSongs->clearSelection();
    m_ui->lbSongURL->setCurrentIndex(m_urls->index(m_queue.ListIndex()));
    m_songs->selectionMoved(before, m_queue.ListIndex());
    showCurrentSong();
}

void PlayForm::showCurrentSong()
{
    const QString song = m_queue.song(m_queue.ListIndex());
    m_ui->lblCurrentSong->setText(song);
    if (m_nowPlaying)
        m_nowPlaying->showSong(song);
}

void PlayForm::cbPlayNext_Click(bool checked)
{
    if (checked) {
        m_ui->cbLoop->setChecked(false);
        m_ui->cbPlayRandom->setChecked(false);
    }
    planFollowing();
}

void PlayForm::cbPlayRandom_Click(bool checked)
{
    if (checked) {
        m_ui->cbLoop->setChecked(false);
        m_ui->cbPlayNext->setChecked(false);
    }
    planFollowing();
}

void PlayForm::cbLoop_Click(bool checked)
{
    if (checked) {
        m_ui->cbPlayNext->setChecked(false);
        m_ui->cbPlayRandom->setChecked(false);
    }
    m_media->settings().setMode(u"loop"_s, checked);
}

void PlayForm::cbShuffle_Click(bool checked)
{
    m_media->settings().setMode(u"shuffle"_s, checked);
}

void PlayForm::cbNowPlaying_Click(bool checked)
{
    if (!checked) {
        if (m_nowPlaying)
            m_nowPlaying->close();
        return;
    }
    if (m_nowPlaying)
        return;
    m_nowPlaying = new frmNowPlaying(this);
    m_nowPlaying->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_nowPlaying, &frmNowPlaying::unloaded, this, [this] {
        m_nowPlaying = nullptr;
        m_ui->cbNowPlaying->setChecked(false);
    });
    m_nowPlaying->showSong(m_queue.song(m_queue.ListIndex()));
    m_nowPlaying->show();
}

void PlayForm::cmbHeader_Click()
{
    PlayerState &state = m_parts.state;
    state.PlayerPlayList = m_ui->cmbHeader->currentText();
    m_ui->lblSelectedPlaylist->setText(state.PlayerPlayList);
    if (state.CurrentPlayListName.isEmpty())
        state.CurrentPlayListName = state.PlayerPlayList;
}

void PlayForm::cmdAddToPlaylist_Click()
{
    guarded(m_parts.services.desktop, m_ui->cmdAddToPlaylist->text(), [this] {
        m_ui->lblSelectedPlaylist->setText(m_parts.state.PlayerPlayList);
        const int row = m_queue.hasSelection() ? m_queue.ListIndex() : 0;
        if (m_playLists->follow(m_addToPlayList.addFromPlayer(m_parts.state.PlayerPlayList, m_queue.song(row),
                                                              m_queue.url(row))))
            m_parts.state.CurrentPlayListName = m_ui->cmbHeader->currentText();
    });
}

void PlayForm::cmdDelete_Click()
{
    guarded(m_parts.services.desktop, m_ui->cmdDelete->text(), [this] {
        m_addToPlayList.deleteFromPlayer(m_queue.url(m_queue.ListIndex()));
        m_media->controls().next();
        m_playLists->confirm(u"Deleted from Playlist"_s, ConfirmationMs);
    });
}

void PlayForm::cmdLyrics_Click()
{
    guarded(m_parts.services.desktop, m_ui->cmdLyrics->text(), [this] {
        const int row = m_queue.count() >= 2 ? m_queue.ListIndex() : 0;
        m_parts.services.desktop.OpenUrl(lyricsAddress(m_parts.services.optionsStore, m_queue.song(row)));
    });
}

void PlayForm::keyPressEvent(QKeyEvent *event)
{
    if (!m_ui->WindowsMediaPlayer1->pressMediaKey(event->key()))
        QMainWindow::keyPressEvent(event);
}

void PlayForm::closeEvent(QCloseEvent *event)
{
    event->accept();
    // A screen that is closed twice has been unloaded.
    if (!m_media)
        return;
    Form_Unload();
    Q_EMIT unloaded();
}

void PlayForm::Form_Unload()
{
    PlayerState &state = m_parts.state;
    guarded(m_parts.services.desktop, windowTitle(),
            [this] { savePlayerSettings(*m_media, m_parts.services.optionsStore); });
    // Silence at once; its handlers may be what closes the player.
    m_ui->WindowsMediaPlayer1->setPlayer(nullptr);
    m_mpris.reset();
    m_remote.reset();
    m_media.reset();
    if (m_nowPlaying)
        m_nowPlaying->close();
    if (state.PlayerLeft >= 0 && state.PlayerTop >= 0) {
        state.PlayerLeft = x() * TwipsPerPixel;
        state.PlayerTop = y() * TwipsPerPixel;
    }
    removeTemporaryList(m_parts.services.catalogue.DatabaseFolder);
    state.PlayerOpen = false;
    const bool restarts = state.RestartingPlayer || state.RestartingFolderPlayer;
    if (!restarts && !m_parts.services.catalogue.SwitchingCatalogue && m_parts.isLastScreen())
        m_parts.endProgram();
    state.RestartingPlayer = state.RestartingFolderPlayer = false;
    state.CurrentPlayUrl.clear();
    state.CurrentPlayTitle.clear();
    m_nextSong.reset();
}

} // namespace quaverly
