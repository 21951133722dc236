// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "lists/PlayListReportKind.h"
#include "lists/PlayListStore.h"
#include "playlists/OneSongRun.h"
#include "playlists/PlayListControls.h"
#include "playlists/PlayListFiles.h"
#include "playlists/PlayListTracks.h"
#include "playlists/PopulateFromText.h"
#include "playlists/frmPlay.h"
#include "playlists/frmPlayListDetail.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class frmPlayList;
}

namespace quaverly {

class DisplayedSet;
class Player;
class TrackListModel;
struct PlayerState;

/** What the play lists screen works with. All of it outlives the screen. */
struct PlayListParts
{
    Services services;
    Player &player;
    PlayerState &state;
    DisplayedSet &displayed;
    /** The folder chosen last in a folder dialog. */
    QString &LastMusicFolder;
    /** The folder that the save dialog of play list files starts in. */
    QString &LastPlayListFolder;
    std::function<std::unique_ptr<media::MediaPlayer>()> makeMediaPlayer;
    /** The plain text file of the lines for which no song was found; empty for none. */
    QString populateReport;
    /** Shows that report of the list; its entries are disabled while there is none. */
    std::function<void(PlayListReportKind kind, const PlayListName &list)> RunPlayListReport;
    /** Shows frmChangeFileNamePath over the screen given. */
    std::function<void(QWidget *owner)> showChangeFileNamePath;
};

/**
 * All work on play lists: the lists, the tracks of the chosen one, and what can be done with them. With
 * PlayerState's AddingFromGrid set when it is made, a list is chosen for the grid's current song.
 */
class frmPlayList final : public QDialog
{
    Q_OBJECT

public:
    /** @throws dao::DaoError when the catalogue can't be read. */
    explicit frmPlayList(PlayListParts parts, QWidget *parent = nullptr);
    ~frmPlayList() override;

    void LoadHeaderCombo();
    void LoadDetailListbox();

    /** However it is closed: a song that was just moved keeps its place. */
    void done(int result) override;

protected:
    bool event(QEvent *event) override;

private:
    void wire();
    void wireMenus();
    void wireDrag();
    void Form_Load();
    void Form_Activate();

    void cmbHeader_Click();
    void lbDetail_Click(int row);
    void lbDetail_MouseUp(const QPoint &place);
    void mnuAddAllSongs_Click();
    void mnuEditAddSong_Click();
    void mnuEditChangeFileNamePath_Click();
    void mnuEditDeleteSong_Click();
    void mnuEditEditSong_Click();
    void mnuEditDelete_Click();
    void mnuEditPlayList_Click();
    void mnuReportsDetail_Click();
    void mnuReportsDetailWithFilenames_Click();
    void mnuHelp_Click();
    void cmdAddHeader_Click();
    void cmdOK_Click();
    void cmdPlay_Click();

    /** A drag's notifications, by mouse or keys; one that is cancelled needs nothing. */
    void lbDetail_BeginDrag(int row);
    void lbDetail_Dropped(int row);

    /** Runs a command after a moved song has been given its place, unless that fails. */
    void command(const std::function<void()> &handler);
    /** Stores the order on the screen, if it is another one. False when it can't be: the screen closes. */
    bool keepOrder();
    void runReport(PlayListReportKind kind);
    void showHeader(bool isEdited);
    void showDetail(frmPlayListDetail::Role role, qint64 key);
    void show(QDialog *screen);
    void headerChanged(const QString &name);
    void songSaved(frmPlayListDetail::Role role, const TrackTexts &song);

    [[nodiscard]] PlayListName chosenList() const;
    [[nodiscard]] int ListIndex() const;
    void chooseList(const QString &name);
    void chooseSong(int row);
    /** For the keys too: what was just added may be moved or deleted again. */
    void chooseLastSong();
    void rowsLoaded();
    [[nodiscard]] PlayListState stateAfter(PlayListEvent event) const;
    void follow(const PlayListState &state);
    void showLook();

    std::unique_ptr<Ui::frmPlayList> m_ui;
    PlayListParts m_parts;
    PlayListStore m_lists;
    PlayListTracks m_tracks;
    TrackListModel *m_model;
    PlayListFiles m_files;
    PopulateFromText m_populate;
    frmPlayWindow m_window;
    OneSongRun m_run;
    PlayListLook m_look;
    bool m_hasTracks = false;
    /** A song was moved, and its place is not stored yet. */
    bool m_isMoved = false;
    int m_DragSourceIndex = -1;
    /** The screen is activated for the first time, or after one over it. */
    bool m_activates = true;
    bool m_isClosing = false;
};

} // namespace quaverly
