// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/MainMenu.h"

#include "catalogue/CatalogueCommands.h"
#include "catalogue/OptionCommands.h"
#include "intake/AddCommands.h"
#include "main/Commands.h"
#include "main/HelpSite.h"
#include "main/HistoryMenu.h"
#include "main/MainDialogs.h"
#include "main/MenuWiring.h"
#include "player/PlayCommands.h"
#include "songlist/DisplayedSet.h"
#include "songlist/ListCommands.h"
#include "ui_NameList.h"

namespace quaverly {

namespace {

/** The member function @p handler of @p target, as a command without arguments. */
template <typename Target, typename Handler> std::function<void()> call(Target &target, Handler handler)
{
    return [&target, handler] { (target.*handler)(); };
}

void wireButtons(const MenuWiring &wiring, Ui::NameList &ui)
{
    wiring.lead({{ui.cmdFind, ui.FindEditMenu},
                 {ui.cmdFilter, ui.SelectionCriteria},
                 {ui.cmdCount, ui.DisplayRecCntMenu},
                 {ui.cmdShowAll, ui.ShowAllMenu},
                 {ui.cmdHelp, ui.HelpSystem},
                 {ui.cmdExit, ui.FileExit},
                 {ui.cmdDelete, ui.mnuPopupDelete},
                 {ui.cmdEdit, ui.EditViewMenu},
                 {ui.cmdAdd, ui.AddMenu},
                 {ui.cmdCategory, ui.Category},
                 {ui.cmdAssignCatg, ui.AssignCatgMenu},
                 {ui.cmdPlay, ui.mnuPlayCurrentSong},
                 {ui.cmdPlayAll, ui.mnuPlayAllSongs}});
}

void wireList(const MenuWiring &wiring, const MenuTargets &to)
{
    wiring.guarded({{to.ui.cmdShowArtistSongs, call(to.set, &DisplayedSet::cmdShowArtistSongs_Click)},
                    {to.ui.cmdShowSelected, call(to.set, &DisplayedSet::ShowSelectedOnlyMenu_Click)},
                    {to.ui.ShowSelectedOnlyMenu, call(to.set, &DisplayedSet::ShowSelectedOnlyMenu_Click)},
                    {to.ui.HideSelectedMenu, call(to.set, &DisplayedSet::HideSelectedMenu_Click)},
                    {to.ui.RemoveSelectionsMenu, call(to.set, &DisplayedSet::RemoveSelectionsMenu_Click)},
                    {to.ui.ShowAllMenu, call(to.set, &DisplayedSet::ShowAllMenu_Click)},
                    {to.ui.FindEditMenu, call(to.list, &ListCommands::FindEditMenu_Click)},
                    {to.ui.DisplayRecCntMenu, call(to.list, &ListCommands::DisplayRecCntMenu_Click)}});
}

void wireDialogs(const MenuWiring &wiring, const MenuTargets &to)
{
    MainDialogs &dialogs = to.dialogs;
    wiring.guarded(
        {{to.ui.SelectionCriteria, call(dialogs, &MainDialogs::SelectionCriteria_Click)},
         {to.ui.mnuFileFont, call(dialogs, &MainDialogs::mnuFileFont_Click)},
         {to.ui.DataBaseLocation, call(dialogs, &MainDialogs::DataBaseLocation_Click)},
         {to.ui.mnuPassword, call(dialogs, &MainDialogs::mnuPassword_Click)},
         {to.ui.mnuOptionMusicKinds, call(dialogs, &MainDialogs::mnuOptionMusicKinds_Click)},
         {to.ui.mnuRestoreBackup, call(dialogs, &MainDialogs::mnuRestoreBackup_Click)},
         {to.ui.OphanedPictures, call(dialogs, &MainDialogs::OphanedPictures_Click)},
         {to.ui.EmptyDeletedPicturesFolder, call(dialogs, &MainDialogs::EmptyDeletedPicturesFolder_Click)},
         {to.ui.AboutBox, call(dialogs, &MainDialogs::AboutBox_Click)},
         {to.ui.HelpSystem, call(to.help, &HelpSite::HelpSystem_Click)},
         {to.ui.HelpGotoWebsite, call(to.help, &HelpSite::HelpGotoWebsite_Click)}});
}

void wireOptions(const MenuWiring &wiring, const MenuTargets &to)
{
    OptionCommands &options = to.options;
    wiring.guarded(
        {{to.ui.OpenDatabase, call(to.catalogue, &CatalogueCommands::OpenDatabase_Click)},
         {to.ui.mnuCompactDatabase, call(to.catalogue, &CatalogueCommands::mnuCompactDatabase_Click)},
         {to.ui.mnuDeleteAll, call(to.catalogue, &CatalogueCommands::mnuDeleteAll_Click)},
         {to.ui.mnuBackupRoom, call(to.catalogue, &CatalogueCommands::mnuBackupRoom_Click)},
         {to.ui.SelectColor, call(options, &OptionCommands::SelectColor_Click)},
         {to.ui.RestoreColor, call(options, &OptionCommands::RestoreColor_Click)},
         {to.ui.TabletMode, call(options, &OptionCommands::TabletMode_Click)},
         {to.ui.DesktopMode, call(options, &OptionCommands::DesktopMode_Click)},
         {to.ui.mnuOptionWindowSize, call(options, &OptionCommands::mnuOptionWindowSize_Click)},
         {to.ui.mnuOptionFileRename, call(options, &OptionCommands::mnuOptionFileRename_Click)},
         {to.ui.mnuOptionsWarningMessagesReset,
          call(options, &OptionCommands::mnuOptionsWarningMessagesReset_Click)}});
}

void wireSongs(const MenuWiring &wiring, const MenuTargets &to)
{
    wiring.own(
        {{to.ui.AddMusicFolder, call(to.add, &AddCommands::AddMusicFolder_Click)},
         {to.ui.AddOneMusicFile, call(to.add, &AddCommands::AddOneMusicFile_Click)},
         {to.ui.ScanFiles, call(to.add, &AddCommands::ScanFiles_Click)},
         {to.ui.mnuUpdateFromDisk, call(to.commands.update, &UpdateCommands::mnuUpdateFromDisk_Click)},
         {to.ui.mnuCheckCatalogue, call(to.commands.update, &UpdateCommands::mnuCheckCatalogue_Click)},
         {to.ui.mnuPlayCurrentSong, call(to.play, &PlayCommands::cmdPlay_Click)},
         {to.ui.mnuPopupPlay, call(to.play, &PlayCommands::cmdPlay_Click)},
         {to.ui.mnuPopupPlayNext, call(to.play, &PlayCommands::mnuPopupPlayNext_Click)},
         {to.ui.mnuPopupAddToQueue, call(to.play, &PlayCommands::mnuPopupAddToQueue_Click)},
         {to.ui.mnuPlayAllSongs, call(to.play, &PlayCommands::cmdPlayAll_Click)},
         {to.ui.mnuPlayFolder, call(to.play, &PlayCommands::mnuPlayFolder_Click)},
         {to.ui.mnuPlayFolderAndSubfolders, call(to.play, &PlayCommands::mnuPlayFolderAndSubfolders_Click)},
         {to.ui.mnuPopupAddToPlaylist, call(to.play, &PlayCommands::mnuPopupAddToPlaylist_Click)},
         {to.ui.EditViewMenu, call(to.commands.edit, &EditCommands::cmdEdit_Click)},
         {to.ui.AddMenu, call(to.commands.edit, &EditCommands::cmdAdd_Click)},
         {to.ui.cmdPlayList, call(to.commands.playLists, &PlayListScreens::cmdPlayList_Click)},
         {to.ui.cmdPictures, call(to.commands.pictures, &PictureCommands::cmdPictures_Click)},
         {to.ui.cmdNotes, call(to.commands, &Commands::cmdNotes_Click)}});
}

void wireHistory(const MenuWiring &wiring, const MenuTargets &to)
{
    HistoryCommands &history = to.commands.history;
    wiring.own({{to.ui.mnuUndo, call(history, &HistoryCommands::mnuUndo_Click)},
                {to.ui.mnuRedo, call(history, &HistoryCommands::mnuRedo_Click)},
                {to.ui.mnuHistory, call(history, &HistoryCommands::mnuHistory_Click)}});
    wiring.own({{to.ui.mnuTags, call(to.commands.tags, &TagCommands::mnuTags_Click)}});
    captionHistory(*to.ui.EditMenu, *to.ui.mnuUndo, *to.ui.mnuRedo, history);
}

void wireManySongs(const MenuWiring &wiring, const MenuTargets &to)
{
    CategoryCommands &categories = to.commands.categories;
    MaintenanceCommands &many = to.commands.maintenance;
    DuplicateCommands &twice = to.commands.duplicates;
    FileCopyCommands &copies = to.commands.fileCopy;
    wiring.own(
        {{to.ui.Category, call(categories, &CategoryCommands::Category_Click)},
         {to.ui.AssignCatgMenu, call(categories, &CategoryCommands::cmdAssignCatg_Click)},
         {to.ui.mnuPopupAssignToCategory, call(categories, &CategoryCommands::cmdAssignCatg_Click)},
         {to.ui.AssignAllToCatg, call(categories, &CategoryCommands::AssignAllToCatg_Click)},
         {to.ui.RemoveAllFromCatg, call(categories, &CategoryCommands::RemoveAllFromCatg_Click)},
         {to.ui.mnuReplace, call(many, &MaintenanceCommands::mnuReplace_Click)},
         {to.ui.mnuFindInvalidFilenames, call(many, &MaintenanceCommands::mnuFindInvalidFilenames_Click)},
         {to.ui.mnuChangePaths, call(many, &MaintenanceCommands::mnuChangePaths_Click)},
         {to.ui.mnuRenameFiles, call(many, &MaintenanceCommands::mnuRenameFiles_Click)},
         {to.ui.mnuDeleteDisplayed, call(many, &MaintenanceCommands::mnuDeleteDisplayed_Click)},
         {to.ui.mnuFileCopy, call(copies, &FileCopyCommands::mnuFileCopy_Click)},
         {to.ui.mnuPopupCopyFile, call(copies, &FileCopyCommands::mnuPopupCopyFile_Click)},
         {to.ui.mnuShowDuplicates, call(twice, &DuplicateCommands::mnuShowDuplicates_Click)},
         {to.ui.mnuShowDuplicatesToDelete, call(twice, &DuplicateCommands::mnuShowDuplicatesToDelete_Click)},
         {to.ui.mnuDeleteDuplicates, call(twice, &DuplicateCommands::mnuDeleteDuplicates_Click)},
         {to.ui.mnuShowDuplicatesAlbum, call(twice, &DuplicateCommands::mnuShowDuplicatesAlbum_Click)},
         {to.ui.mnuShowDuplicatesToDeleteAlbum,
          call(twice, &DuplicateCommands::mnuShowDuplicatesToDeleteAlbum_Click)},
         {to.ui.mnuDeleteDuplicatesAlbum, call(twice, &DuplicateCommands::mnuDeleteDuplicatesAlbum_Click)}});
}

void wireReports(const MenuWiring &wiring, const MenuTargets &to)
{
    ReportCommands &reports = to.commands.reports;
    CsvCommands &csv = to.commands.csv;
    wiring.own({{to.ui.StatisticsReport, call(reports, &ReportCommands::StatisticsReport_Click)},
                {to.ui.mnuArtistRpt, call(reports, &ReportCommands::mnuArtistRpt_Click)},
                {to.ui.mnuSongRpt, call(reports, &ReportCommands::mnuSongRpt_Click)},
                {to.ui.mnuPathRpt, call(reports, &ReportCommands::mnuPathRpt_Click)},
                {to.ui.mnuRptLinesPerPage, call(reports, &ReportCommands::mnuRptLinesPerPage_Click)},
                {to.ui.ChangePrinter, call(reports, &ReportCommands::ChangePrinter_Click)},
                {to.ui.Export, call(csv, &CsvCommands::Export_Click)},
                {to.ui.ExportWithNotes, call(csv, &CsvCommands::ExportWithNotes_Click)}});
}

} // namespace

void wireMainMenu(const MenuWiring &wiring, const MenuTargets &to)
{
    wireButtons(wiring, to.ui);
    wireList(wiring, to);
    wireDialogs(wiring, to);
    wireOptions(wiring, to);
    wireSongs(wiring, to);
    wireHistory(wiring, to);
    wireManySongs(wiring, to);
    wireReports(wiring, to);
}

} // namespace quaverly
