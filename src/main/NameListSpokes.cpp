// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/NameList.h"
#include "ui_NameList.h"

#include "catalogue/CatalogueCommands.h"
#include "catalogue/frmRestoreBackup.h"
#include "main/Session.h"
#include "main/Spokes.h"
#include "pictures/PictureHousekeeping.h"
#include "player/PlayCommands.h"

using namespace Qt::StringLiterals;

// The ways from the main screen to the folders around it.
namespace quaverly {

void NameList::buildSpokes()
{
    m_spokes = std::make_unique<Spokes>(
        m_session, SpokeHooks{m_player, *this, *this,
                              [this](const QString &command) {
                                  return m_catalogueCommands.backups().beforeBulkCommand(command);
                              },
                              [this](const EditedSong &song, const EditorScreens &screens) {
                                  m_playCommands->playFromEditor(song, screens);
                              },
                              [this] { m_ui->cmdPictures->setFocus(); }});
}

void NameList::wireSpokes()
{
    wireEditing();
    wireMaintenance();
    wireReports();
    const auto on = [this](QAction *entry, void (NameList::*handler)()) {
        connect(entry, &QAction::triggered, this, [this, handler] { handle([&] { (this->*handler)(); }); });
    };
    on(m_ui->mnuRestoreBackup, &NameList::mnuRestoreBackup_Click);
    on(m_ui->OphanedPictures, &NameList::OphanedPictures_Click);
    on(m_ui->EmptyDeletedPicturesFolder, &NameList::EmptyDeletedPicturesFolder_Click);
}

void NameList::wireEditing()
{
    Spokes *to = m_spokes.get();
    connect(m_ui->EditViewMenu, &QAction::triggered, this, [to] { to->edit.cmdEdit_Click(); });
    connect(m_ui->cmdEdit, &QToolButton::clicked, m_ui->EditViewMenu, &QAction::trigger);
    connect(m_ui->AddMenu, &QAction::triggered, this, [to] { to->edit.cmdAdd_Click(); });
    connect(m_ui->cmdAdd, &QToolButton::clicked, m_ui->AddMenu, &QAction::trigger);

    connect(m_ui->cmdPlayList, &QToolButton::clicked, this, [to] { to->playLists.cmdPlayList_Click(); });
    PlayCommands *play = m_playCommands.get();
    connect(m_ui->mnuPopupAddToPlaylist, &QAction::triggered, this,
            [play] { play->mnuPopupAddToPlaylist_Click(); });

    connect(m_ui->Category, &QAction::triggered, this, [to] { to->categories.Category_Click(); });
    connect(m_ui->cmdCategory, &QToolButton::clicked, m_ui->Category, &QAction::trigger);
    for (QAction *entry : {m_ui->AssignCatgMenu, m_ui->mnuPopupAssignToCategory})
        connect(entry, &QAction::triggered, this, [to] { to->categories.cmdAssignCatg_Click(); });
    connect(m_ui->cmdAssignCatg, &QToolButton::clicked, m_ui->AssignCatgMenu, &QAction::trigger);
    connect(m_ui->AssignAllToCatg, &QAction::triggered, this,
            [to] { to->categories.AssignAllToCatg_Click(); });
    connect(m_ui->RemoveAllFromCatg, &QAction::triggered, this,
            [to] { to->categories.RemoveAllFromCatg_Click(); });

    connect(m_ui->cmdPictures, &QToolButton::clicked, this, [to] { to->pictures.cmdPictures_Click(); });
    connect(m_ui->cmdNotes, &QToolButton::clicked, this, [to] { to->cmdNotes_Click(); });
}

void NameList::wireMaintenance()
{
    const auto on = [this](QAction *entry, auto &commands, auto handler) {
        connect(entry, &QAction::triggered, this, [&commands, handler] { (commands.*handler)(); });
    };
    MaintenanceCommands &many = m_spokes->maintenance;
    on(m_ui->mnuReplace, many, &MaintenanceCommands::mnuReplace_Click);
    on(m_ui->mnuFindInvalidFilenames, many, &MaintenanceCommands::mnuFindInvalidFilenames_Click);
    on(m_ui->mnuChangePaths, many, &MaintenanceCommands::mnuChangePaths_Click);
    on(m_ui->mnuDeleteDisplayed, many, &MaintenanceCommands::mnuDeleteDisplayed_Click);
    FileCopyCommands &copies = m_spokes->fileCopy;
    on(m_ui->mnuFileCopy, copies, &FileCopyCommands::mnuFileCopy_Click);
    on(m_ui->mnuPopupCopyFile, copies, &FileCopyCommands::mnuPopupCopyFile_Click);
    DuplicateCommands &duplicates = m_spokes->duplicates;
    on(m_ui->mnuShowDuplicates, duplicates, &DuplicateCommands::mnuShowDuplicates_Click);
    on(m_ui->mnuShowDuplicatesToDelete, duplicates, &DuplicateCommands::mnuShowDuplicatesToDelete_Click);
    on(m_ui->mnuDeleteDuplicates, duplicates, &DuplicateCommands::mnuDeleteDuplicates_Click);
    on(m_ui->mnuShowDuplicatesAlbum, duplicates, &DuplicateCommands::mnuShowDuplicatesAlbum_Click);
    on(m_ui->mnuShowDuplicatesToDeleteAlbum, duplicates,
       &DuplicateCommands::mnuShowDuplicatesToDeleteAlbum_Click);
    on(m_ui->mnuDeleteDuplicatesAlbum, duplicates, &DuplicateCommands::mnuDeleteDuplicatesAlbum_Click);
}

void NameList::wireReports()
{
    const auto on = [this](QAction *entry, auto &commands, auto handler) {
        connect(entry, &QAction::triggered, this, [&commands, handler] { (commands.*handler)(); });
    };
    ReportCommands &reports = m_spokes->reports;
    on(m_ui->StatisticsReport, reports, &ReportCommands::StatisticsReport_Click);
    on(m_ui->mnuArtistRpt, reports, &ReportCommands::mnuArtistRpt_Click);
    on(m_ui->mnuSongRpt, reports, &ReportCommands::mnuSongRpt_Click);
    on(m_ui->mnuPathRpt, reports, &ReportCommands::mnuPathRpt_Click);
    on(m_ui->mnuRptLinesPerPage, reports, &ReportCommands::mnuRptLinesPerPage_Click);
    on(m_ui->ChangePrinter, reports, &ReportCommands::ChangePrinter_Click);
    CsvCommands &csv = m_spokes->csv;
    on(m_ui->Export, csv, &CsvCommands::Export_Click);
    on(m_ui->ExportWithNotes, csv, &CsvCommands::ExportWithNotes_Click);
}

void NameList::showPopup(QPoint place)
{
    const QString &list = m_session.player().CurrentPlayListName;
    const QString caption = u"Add song to play list"_s;
    m_ui->mnuPopupAddToPlaylist->setText(
        list.isEmpty() ? caption : caption + u" \""_s + QString(list).replace(u'&', u"&&"_s) + u'"');
    m_popup->popup(place);
}

void NameList::mnuRestoreBackup_Click()
{
    auto form = std::make_unique<frmRestoreBackup>(
        m_session.desktop(), RestoreBackup(m_session.desktop(), m_catalogueCommands.backups()),
        m_session.options().TabletActive, this);
    // What follows unloads this screen: it waits until the other one is gone.
    connect(
        form.get(), &frmRestoreBackup::restoreWanted, this,
        [this](const Backup &backup) { m_catalogueCommands.restoreBackup(backup); }, Qt::QueuedConnection);
    form.release()->showModally();
}

void NameList::OphanedPictures_Click()
{
    PictureHousekeeping(m_session.desktop(), m_session.catalogue()).OphanedPictures_Click();
}

void NameList::EmptyDeletedPicturesFolder_Click()
{
    PictureHousekeeping(m_session.desktop(), m_session.catalogue()).EmptyDeletedPicturesFolder_Click();
}

void NameList::unloadPics3()
{
    m_spokes->pictures.unloadPics3();
}

} // namespace quaverly
