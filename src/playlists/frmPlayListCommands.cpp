// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/frmPlayList.h"

#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "lists/PlayerState.h"
#include "platform/text/Text.h"
#include "player/Player.h"
#include "playlists/PlayListHeaders.h"
#include "playlists/PlayListHelp.h"
#include "playlists/PlayPlayList.h"
#include "playlists/TrackListModel.h"
#include "playlists/frmPlayListHeader.h"
#include "ui_frmPlayList.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

void frmPlayList::wire()
{
    const auto on = [this](auto *control, auto signal, auto handler) {
        connect(control, signal, this, handler);
    };
    on(m_ui->cmbHeader, &QComboBox::activated, [this] { command([this] { cmbHeader_Click(); }); });
    on(m_ui->cmdAddHeader, &QPushButton::clicked, &frmPlayList::cmdAddHeader_Click);
    on(m_ui->cmdOK, &QPushButton::clicked, &frmPlayList::cmdOK_Click);
    on(m_ui->cmdPlay, &QPushButton::clicked, &frmPlayList::cmdPlay_Click);
    on(m_ui->cmdPlay1, &QPushButton::clicked, [this] { command([this] { m_run.cmdPlay1_Click(); }); });
    on(m_ui->cmdHelpPlayList, &QPushButton::clicked, &frmPlayList::mnuHelp_Click);
    on(m_ui->cmdClose, &QPushButton::clicked, &frmPlayList::close);
}

void frmPlayList::wireMenus()
{
    const auto on = [this](QAction *entry, auto handler) {
        connect(entry, &QAction::triggered, this, handler);
    };
    on(m_ui->mnuFileCopyMusic, [this] { command([this] { m_files.mnuFileCopyMusic_Click(); }); });
    on(m_ui->mnuFileMakePlayListFile,
       [this] { command([this] { m_files.mnuFileMakePlayListFile_Click(); }); });
    on(m_ui->mnuFileDisplayOnly, [this] { command([this] { m_files.mnuFileDisplayOnly_Click(); }); });
    on(m_ui->mnuFilePopulate, [this] { command([this] { m_populate.mnuFilePopulate_Click(); }); });
    on(m_ui->mnuFileClose, &frmPlayList::close);
    on(m_ui->mnuAddAllSongs, &frmPlayList::mnuAddAllSongs_Click);
    on(m_ui->mnuEditAddSong, &frmPlayList::mnuEditAddSong_Click);
    on(m_ui->mnuEditChangeFileNamePath, &frmPlayList::mnuEditChangeFileNamePath_Click);
    on(m_ui->mnuEditDeleteSong, &frmPlayList::mnuEditDeleteSong_Click);
    on(m_ui->mnuEditEditSong, &frmPlayList::mnuEditEditSong_Click);
    on(m_ui->mnuEditDelete, &frmPlayList::mnuEditDelete_Click);
    on(m_ui->mnuEditPlayList, &frmPlayList::mnuEditPlayList_Click);
    on(m_ui->mnuReportsDetail, &frmPlayList::mnuReportsDetail_Click);
    on(m_ui->mnuReportsDetailWithFilenames, &frmPlayList::mnuReportsDetailWithFilenames_Click);
    on(m_ui->mnuHelp, &frmPlayList::mnuHelp_Click);
}

void frmPlayList::command(const std::function<void()> &handler)
{
    guarded(m_parts.services.desktop, windowTitle(), [&] {
        if (keepOrder())
            handler();
    });
}

void frmPlayList::mnuAddAllSongs_Click()
{
    command([this] {
        const auto added = m_tracks.addAllSongs({m_parts.state.CurrentPlayListName, chosenList().ListID});
        if (!added)
            return;
        LoadDetailListbox();
        chooseLastSong();
        m_ui->lblSongTitle->clear();
        PlayListState state = stateAfter(PlayListEvent::AllSongsAdded);
        state.songsAdded = *added;
        follow(state);
    });
}

void frmPlayList::cmdOK_Click()
{
    command([this] {
        if (!isGreaterThanBlank(m_parts.state.CurrentPlayListName) || !m_tracks.addCurrentSong(chosenList()))
            return;
        LoadDetailListbox();
        follow(stateAfter(PlayListEvent::SongAdded));
        chooseLastSong();
        m_ui->lblSongTitle->clear();
    });
}

void frmPlayList::mnuEditAddSong_Click()
{
    command([this] {
        if (m_tracks.rows().ListCount() >= MostRows) {
            m_parts.services.desktop.MessageBox(
                u"Play List has reached maximum size of 32,000 songs.  No more can be added."_s,
                u"Cannot add more songs"_s);
            return;
        }
        showDetail(frmPlayListDetail::Role::Add, 0);
    });
}

void frmPlayList::mnuEditEditSong_Click()
{
    command([this] {
        const int row = ListIndex();
        if (!m_tracks.rows().isSong(row)) {
            m_parts.services.desktop.MessageBox(u"You must select a song to edit from the list."_s,
                                                u"No song selected"_s);
            return;
        }
        showDetail(frmPlayListDetail::Role::Edit, m_tracks.rows().key(row));
    });
}

void frmPlayList::showDetail(frmPlayListDetail::Role role, qint64 key)
{
    auto screen =
        std::make_unique<frmPlayListDetail>(m_parts.services.desktop, m_lists, m_parts.services.options, role,
                                            frmPlayListDetail::Place{chosenList().ListID, key}, this);
    connect(screen.get(), &frmPlayListDetail::saved, this,
            [this, role](const TrackTexts &song) { songSaved(role, song); });
    show(screen.release());
}

void frmPlayList::songSaved(frmPlayListDetail::Role role, const TrackTexts &song)
{
    if (role == frmPlayListDetail::Role::Add) {
        LoadDetailListbox();
        chooseLastSong();
    } else if (const int row = ListIndex(); row >= 0) {
        m_tracks.rows().setText(row, songRow(song.SongTitle, song.ArtistName));
        m_model->textChanged(row);
    }
}

void frmPlayList::show(QDialog *screen)
{
    screen->setAttribute(Qt::WA_DeleteOnClose);
    connect(screen, &QDialog::finished, this, [this] {
        m_activates = !isActiveWindow();
        if (m_activates)
            activateWindow();
        else
            Form_Activate();
    });
    screen->open();
}

void frmPlayList::mnuEditDeleteSong_Click()
{
    command([this] {
        const int row = ListIndex();
        if (!m_tracks.rows().isSong(row)) {
            m_parts.services.desktop.MessageBox(u"You must select a song to remove from the list."_s,
                                                u"No song selected"_s);
            return;
        }
        m_tracks.deleteSong(row);
        LoadDetailListbox();
        m_ui->lbDetail->setListIndex(std::min(row, m_tracks.rows().songs() - 1));
        follow(stateAfter(PlayListEvent::SongDeleted));
    });
}

void frmPlayList::mnuEditDelete_Click()
{
    command([this] {
        PlayListHeaders headers(m_parts.services.desktop, m_lists);
        if (!headers.deleteList(chosenList().ListID,
                                u"Are you sure you want to delete this entire play list?"_s))
            return;
        LoadHeaderCombo();
        m_parts.state.CurrentPlayListName.clear();
        follow(stateAfter(PlayListEvent::ListDeleted));
        m_parts.player.showPlayLists();
    });
}

void frmPlayList::mnuEditPlayList_Click()
{
    command([this] {
        if (m_ui->cmbHeader->currentIndex() < 0) {
            m_parts.services.desktop.MessageBox(u"You must select a Play List name from the list first."_s,
                                                u"No Play List selected"_s, Icon::Exclamation);
            return;
        }
        showHeader(true);
    });
}

void frmPlayList::cmdAddHeader_Click()
{
    command([this] { showHeader(false); });
}

void frmPlayList::showHeader(bool isEdited)
{
    auto screen =
        std::make_unique<frmPlayListHeader>(m_parts.services.desktop, m_lists, m_parts.services.options,
                                            isEdited ? std::optional(chosenList()) : std::nullopt, this);
    connect(screen.get(), &frmPlayListHeader::added, this, &frmPlayList::headerChanged);
    connect(screen.get(), &frmPlayListHeader::edited, this,
            [this, before = chosenList().ListName](const QString &name) {
                m_parts.state.renamePlayList(before, name);
                headerChanged(name);
            });
    connect(screen.get(), &frmPlayListHeader::deleted, this, [this] {
        LoadHeaderCombo();
        m_parts.player.showPlayLists();
    });
    show(screen.release());
}

void frmPlayList::headerChanged(const QString &name)
{
    LoadHeaderCombo();
    chooseList(name);
    m_parts.player.showPlayLists();
}

void frmPlayList::cmdPlay_Click()
{
    command([this] {
        playPlayList({.services = m_parts.services,
                      .lists = m_lists,
                      .player = m_parts.player,
                      .unload = [this] { close(); }},
                     chosenList());
    });
}

void frmPlayList::mnuReportsDetail_Click()
{
    runReport(PlayListReportKind::Detail);
}

void frmPlayList::mnuReportsDetailWithFilenames_Click()
{
    runReport(PlayListReportKind::DetailWithFileNames);
}

void frmPlayList::runReport(PlayListReportKind kind)
{
    command([&] {
        if (isGreaterThanBlank(chosenList().ListName))
            m_parts.RunPlayListReport(kind, chosenList());
    });
}

void frmPlayList::mnuEditChangeFileNamePath_Click()
{
    command([this] { m_parts.showChangeFileNamePath(this); });
}

void frmPlayList::mnuHelp_Click()
{
    guarded(m_parts.services.desktop, windowTitle(), [this] {
        m_parts.services.desktop.ShowHelp(QString::fromUtf16(PlayListHelpHeading), playListHelp());
    });
}

} // namespace quaverly
