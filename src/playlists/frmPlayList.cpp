// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/frmPlayList.h"

#include "catalogue/Options.h"
#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "desktop/KeySender.h"
#include "desktop/ScreenLook.h"
#include "lists/PlayerState.h"
#include "platform/text/Text.h"
#include "player/SongListView.h"
#include "playlists/TrackListModel.h"
#include "songlist/DisplayedSet.h"
#include "ui_frmPlayList.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr QSize FirstSize(680, 620);

} // namespace

frmPlayList::frmPlayList(PlayListParts parts, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPlayList>()), m_parts(std::move(parts)),
      m_lists(m_parts.services.catalogue),
      m_tracks({.services = m_parts.services, .lists = m_lists, .displayed = m_parts.displayed.Data1()}),
      m_model(new TrackListModel(m_tracks.rows(), this)),
      m_files({.services = m_parts.services,
               .lists = m_lists,
               .displayed = m_parts.displayed,
               .LastMusicFolder = m_parts.LastMusicFolder,
               .LastPlayListFolder = m_parts.LastPlayListFolder,
               .chosenList = [this] { return chosenList(); },
               .ListCount = [this] { return m_tracks.rows().ListCount(); },
               .unload = [this] { close(); },
               .setScreenEnabled = [this](bool on) { setEnabled(on); }}),
      m_populate({.services = m_parts.services,
                  .lists = m_lists,
                  .displayed = m_parts.displayed.Data1(),
                  .state = m_parts.state,
                  .LastMusicFolder = m_parts.LastMusicFolder,
                  .reportPath = m_parts.populateReport,
                  .LoadDetailListbox = [this] { LoadDetailListbox(); }}),
      m_window({.services = m_parts.services, .makeMediaPlayer = m_parts.makeMediaPlayer}, this),
      m_run({.desktop = m_parts.services.desktop,
             .window = m_window,
             .track =
                 [this](int row) { return m_lists.oneTrack(chosenList().ListID, m_tracks.rows().key(row)); },
             .ListCount = [this] { return m_tracks.rows().ListCount(); },
             .ListIndex = [this] { return ListIndex(); },
             .select = [this](int row) { chooseSong(row); },
             .focusDetail = [this] { m_ui->lbDetail->setFocus(); }})
{
    m_ui->setupUi(this);
    m_ui->lbDetail->setModel(m_model);
    Form_Load();
    wire();
    wireMenus();
    wireDrag();
}

frmPlayList::~frmPlayList() = default;

void frmPlayList::Form_Load()
{
    if (m_parts.services.options.TabletActive)
        sizeForFingers(*this);
    m_model->setRowHeight(songRowHeight(*this, m_parts.services.options.TabletActive));
    resize(FirstSize.boundedTo(roomFor(*this)));
    m_ui->Label3->setText(u"To change song order, drag and drop song names in this list to a new position.\n"
                          "To delete a song, right-click a song and choose Delete from the pop-up menu."_s);
    scaleFont(*m_ui->Label3, CaptionScale);
    scaleFont(*m_ui->lblSongTitle, 1, true);
    LoadHeaderCombo();
    if (isGreaterThanBlank(m_parts.state.CurrentPlayListName))
        chooseList(m_parts.state.CurrentPlayListName);
    const QString song = m_parts.displayed.Data1().currentText(u"SongName"_s);
    if (m_parts.state.AddingFromGrid && isGreaterThanBlank(song)) {
        setWindowTitle(u"Add song: \""_s + song + u"\" to play list."_s);
        m_ui->lblSongTitle->setText(song);
    }
    follow(stateAfter(PlayListEvent::ScreenLoaded));
    if (m_ui->cmbHeader->count() == 0) {
        setTabOrder(m_ui->cmdAddHeader, m_ui->cmbHeader);
        m_ui->cmdAddHeader->setFocus();
    } else {
        m_ui->cmbHeader->setFocus();
    }
}

bool frmPlayList::event(QEvent *event)
{
    const bool handled = QDialog::event(event);
    if (event->type() == QEvent::WindowActivate && std::exchange(m_activates, false))
        Form_Activate();
    return handled;
}

void frmPlayList::Form_Activate()
{
    if (m_ui->cmbHeader->count() == 0 || m_ui->cmbHeader->currentIndex() >= 0)
        return;
    m_ui->cmbHeader->setFocus();
    SendKeysInput(u"%{Down}"_s);
}

void frmPlayList::LoadHeaderCombo()
{
    m_ui->cmbHeader->clear();
    m_tracks.rows().clear();
    rowsLoaded();
    for (const PlayListName &list : m_lists.lists())
        m_ui->cmbHeader->addItem(list.ListName, list.ListID);
    m_ui->cmbHeader->setCurrentIndex(-1);
    if (m_ui->cmbHeader->count() == 0)
        m_parts.state.CurrentPlayListName.clear();
    follow(stateAfter(PlayListEvent::HeadersLoaded));
}

void frmPlayList::LoadDetailListbox()
{
    const Hourglass hourglass(m_parts.services.desktop);
    m_hasTracks = m_tracks.LoadDetailListbox(chosenList().ListID);
    rowsLoaded();
    follow(stateAfter(PlayListEvent::TracksLoaded));
}

void frmPlayList::rowsLoaded()
{
    m_hasTracks = m_tracks.rows().songs() > 0;
    m_isMoved = false;
    m_model->reset();
    m_ui->lblNumSongs->setText(m_tracks.rows().ListCount() == 0
                                   ? QString()
                                   : u"Number of songs: "_s + QString::number(m_tracks.rows().songs()));
}

PlayListName frmPlayList::chosenList() const
{
    return {m_ui->cmbHeader->currentText(), m_ui->cmbHeader->currentData().toLongLong()};
}

int frmPlayList::ListIndex() const
{
    return m_ui->lbDetail->ListIndex();
}

void frmPlayList::chooseList(const QString &name)
{
    // A list that has been renamed or deleted since is not there to be shown.
    const int row = m_ui->cmbHeader->findText(name, Qt::MatchFixedString);
    if (row < 0)
        return;
    m_ui->cmbHeader->setCurrentIndex(row);
    cmbHeader_Click();
}

void frmPlayList::chooseSong(int row)
{
    m_ui->lbDetail->setListIndex(row);
    lbDetail_Click(row);
}

void frmPlayList::chooseLastSong()
{
    chooseSong(m_tracks.rows().songs() - 1);
    m_ui->lbDetail->setFocus();
}

PlayListState frmPlayList::stateAfter(PlayListEvent event) const
{
    return {.event = event,
            .hasLists = m_ui->cmbHeader->count() > 0,
            .isListChosen = m_ui->cmbHeader->currentIndex() >= 0,
            .hasTracks = m_hasTracks,
            .isFirstRowEmpty = m_tracks.rows().isFirstEmpty(),
            .displaysSongs = m_parts.displayed.Data1().hasRows(),
            .AddingFromGrid = m_parts.state.AddingFromGrid,
            .songWaits = !m_ui->lblSongTitle->text().isEmpty()};
}

void frmPlayList::follow(const PlayListState &state)
{
    m_look = lookAfter(state, m_look);
    showLook();
}

void frmPlayList::showLook()
{
    using enum PlayListControl;
    const auto enabled = [this](PlayListControl control) { return m_look.enabled.testFlag(control); };
    m_ui->mnuFileCopyMusic->setEnabled(enabled(mnuFileCopyMusic));
    m_ui->mnuFileMakePlayListFile->setEnabled(enabled(mnuFileMakePlayListFile));
    m_ui->mnuFileDisplayOnly->setEnabled(enabled(mnuFileDisplayOnly));
    m_ui->mnuFilePopulate->setEnabled(enabled(mnuFilePopulate));
    m_ui->mnuAddAllSongs->setEnabled(enabled(mnuAddAllSongs));
    m_ui->mnuEditAddSong->setEnabled(enabled(mnuEditAddSong));
    m_ui->mnuEditChangeFileNamePath->setEnabled(m_parts.showChangeFileNamePath != nullptr);
    m_ui->mnuEditDeleteSong->setEnabled(enabled(mnuEditDeleteSong));
    m_ui->mnuEditEditSong->setEnabled(enabled(mnuEditEditSong));
    m_ui->mnuEditDelete->setEnabled(enabled(mnuEditDelete));
    m_ui->mnuEditPlayList->setEnabled(enabled(mnuEditPlayList));
    m_ui->mnuReportsDetail->setEnabled(m_parts.RunPlayListReport != nullptr);
    m_ui->mnuReportsDetailWithFilenames->setEnabled(m_parts.RunPlayListReport != nullptr);
    m_ui->cmdPlay->setEnabled(enabled(cmdPlay));
    m_ui->cmdPlay1->setEnabled(enabled(cmdPlay1));
    m_ui->cmdOK->setEnabled(enabled(cmdOK));
    m_ui->cmdOK->setVisible(m_look.shown.testFlag(cmdOK));
    m_ui->lblSongTitle->setVisible(m_look.shown.testFlag(lblSongTitle));
    m_ui->lblInstructions->setVisible(m_look.shown.testFlag(lblInstructions));
    m_ui->lblMsg->setText(m_look.lblMsg);
    m_ui->lblMsg->setVisible(!m_look.lblMsg.isEmpty());
}

void frmPlayList::cmbHeader_Click()
{
    LoadDetailListbox();
    m_parts.state.CurrentPlayListName = chosenList().ListName;
    follow(stateAfter(PlayListEvent::ListChosen));
}

void frmPlayList::done(int result)
{
    if (m_isClosing)
        return;
    m_isClosing = true;
    keepOrder();
    QDialog::done(result);
}

} // namespace quaverly
