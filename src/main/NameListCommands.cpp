// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/NameList.h"
#include "ui_NameList.h"

#include "catalogue/CatalogueCommands.h"
#include "catalogue/frmDatabaseLocation.h"
#include "catalogue/frmFontForm.h"
#include "catalogue/frmPassword.h"
#include "desktop/About.h"
#include "desktop/Guard.h"
#include "desktop/Icons.h"
#include "desktop/KeySender.h"
#include "intake/AddCommands.h"
#include "main/Session.h"
#include "main/Spokes.h"
#include "player/PlayCommands.h"
#include "songlist/ColumnMoves.h"
#include "songlist/CriteriaForm.h"
#include "songlist/GridHandlers.h"

#include <QMenu>

using namespace Qt::StringLiterals;

// The commands of the main screen, and what leads to them.
namespace quaverly {

void NameList::wire()
{
    wireButtons();
    wireListCommands();
    wireOptions();
    wireAddCommands();
    wirePlayCommands();
    wireSpokes();
    wireLocate();
    m_ui->txtName->installEventFilter(this);
}

void NameList::wireButtons()
{
    const auto leadsTo = [](QToolButton *button, QAction *entry) {
        connect(button, &QToolButton::clicked, entry, &QAction::trigger);
    };
    leadsTo(m_ui->cmdFind, m_ui->FindEditMenu);
    leadsTo(m_ui->cmdFilter, m_ui->SelectionCriteria);
    leadsTo(m_ui->cmdCount, m_ui->DisplayRecCntMenu);
    leadsTo(m_ui->cmdShowAll, m_ui->ShowAllMenu);
    leadsTo(m_ui->cmdHelp, m_ui->HelpSystem);
    leadsTo(m_ui->cmdExit, m_ui->FileExit);
    connect(m_ui->cmdDelete, &QToolButton::clicked, m_ui->mnuPopupDelete, &QAction::trigger);
    connect(m_ui->FileExit, &QAction::triggered, this, [this] {
        if (m_ui->Table1->finishEditing())
            close();
    });
}

void NameList::wireListCommands()
{
    const auto on = [this](auto *sender, auto signal, auto handler) {
        connect(sender, signal, this, [this, handler] { handle([this, handler] { (this->*handler)(); }); });
    };
    on(m_ui->cmbSort, &QComboBox::activated, &NameList::cmbSort_Click);
    on(m_ui->cmdSortSong, &QPushButton::clicked, &NameList::cmdSortSong_Click);
    on(m_ui->cmdSortArtist, &QPushButton::clicked, &NameList::cmdSortArtist_Click);
    on(m_ui->cmdShowArtistSongs, &QPushButton::clicked, &NameList::cmdShowArtistSongs_Click);
    on(m_ui->cmdShowSelected, &QPushButton::clicked, &NameList::cmdShowSelected_Click);
    on(m_ui->FindEditMenu, &QAction::triggered, &NameList::FindEditMenu_Click);
    on(m_ui->GridEditMenu, &QAction::triggered, &NameList::GridEditMenu_Click);
    on(m_ui->ShowAllMenu, &QAction::triggered, &NameList::ShowAllMenu_Click);
    on(m_ui->ShowSelectedOnlyMenu, &QAction::triggered, &NameList::ShowSelectedOnlyMenu_Click);
    on(m_ui->HideSelectedMenu, &QAction::triggered, &NameList::HideSelectedMenu_Click);
    on(m_ui->RemoveSelectionsMenu, &QAction::triggered, &NameList::RemoveSelectionsMenu_Click);
    on(m_ui->DisplayRecCntMenu, &QAction::triggered, &NameList::DisplayRecCntMenu_Click);
    on(m_ui->mnuPopupDelete, &QAction::triggered, &NameList::cmdDelete_Click);
    on(m_ui->SelectionCriteria, &QAction::triggered, &NameList::SelectionCriteria_Click);
    on(m_ui->mnuFileFont, &QAction::triggered, &NameList::mnuFileFont_Click);
    on(m_ui->DataBaseLocation, &QAction::triggered, &NameList::DataBaseLocation_Click);
    on(m_ui->mnuPassword, &QAction::triggered, &NameList::mnuPassword_Click);
    on(m_ui->AboutBox, &QAction::triggered, &NameList::AboutBox_Click);
}

void NameList::wireOptions()
{
    const auto on = [this](QAction *entry, auto &commands, auto handler) {
        connect(entry, &QAction::triggered, this,
                [this, &commands, handler] { handle([&commands, handler] { (commands.*handler)(); }); });
    };
    on(m_ui->OpenDatabase, m_catalogueCommands, &CatalogueCommands::OpenDatabase_Click);
    on(m_ui->mnuCompactDatabase, m_catalogueCommands, &CatalogueCommands::mnuCompactDatabase_Click);
    on(m_ui->mnuDeleteAll, m_catalogueCommands, &CatalogueCommands::mnuDeleteAll_Click);
    on(m_ui->mnuBackupRoom, m_catalogueCommands, &CatalogueCommands::mnuBackupRoom_Click);
    on(m_ui->SelectColor, m_optionCommands, &OptionCommands::SelectColor_Click);
    on(m_ui->RestoreColor, m_optionCommands, &OptionCommands::RestoreColor_Click);
    on(m_ui->TabletMode, m_optionCommands, &OptionCommands::TabletMode_Click);
    on(m_ui->DesktopMode, m_optionCommands, &OptionCommands::DesktopMode_Click);
    on(m_ui->mnuOptionWindowSize, m_optionCommands, &OptionCommands::mnuOptionWindowSize_Click);
    on(m_ui->mnuOptionFileRename, m_optionCommands, &OptionCommands::mnuOptionFileRename_Click);
    on(m_ui->mnuOptionsWarningMessagesReset, m_optionCommands,
       &OptionCommands::mnuOptionsWarningMessagesReset_Click);
    on(m_ui->HelpSystem, m_helpSite, &HelpSite::HelpSystem_Click);
    on(m_ui->HelpGotoWebsite, m_helpSite, &HelpSite::HelpGotoWebsite_Click);
}

void NameList::wireAddCommands()
{
    AddCommands *add = m_addCommands.get();
    connect(m_ui->AddMusicFolder, &QAction::triggered, this, [add] { add->AddMusicFolder_Click(); });
    connect(m_ui->AddOneMusicFile, &QAction::triggered, this, [add] { add->AddOneMusicFile_Click(); });
    connect(m_ui->ScanFiles, &QAction::triggered, this, [add] { add->ScanFiles_Click(); });
}

void NameList::wirePlayCommands()
{
    PlayCommands *play = m_playCommands.get();
    for (QAction *entry : {m_ui->mnuPlayCurrentSong, m_ui->mnuPopupPlay})
        connect(entry, &QAction::triggered, this, [play] { play->cmdPlay_Click(); });
    connect(m_ui->cmdPlay, &QToolButton::clicked, this, [play] { play->cmdPlay_Click(); });
    connect(m_ui->mnuPlayAllSongs, &QAction::triggered, this, [play] { play->cmdPlayAll_Click(); });
    connect(m_ui->cmdPlayAll, &QToolButton::clicked, this, [play] { play->cmdPlayAll_Click(); });
    connect(m_ui->mnuPlayFolder, &QAction::triggered, this, [play] { play->mnuPlayFolder_Click(); });
    connect(m_ui->mnuPlayFolderAndSubfolders, &QAction::triggered, this,
            [play] { play->mnuPlayFolderAndSubfolders_Click(); });
}

void NameList::wireLocate()
{
    connect(m_ui->txtLocate, &LocateBox::KeyUp, this,
            [this](int key) { handle([&] { txtLocate_KeyUp(key); }); });
    connect(m_ui->txtLocate, &LocateBox::KeyPress, this, &NameList::txtLocate_KeyPress);
    connect(m_ui->txtLocate, &LocateBox::Click, this, &NameList::txtLocate_Click);
    connect(m_ui->FrameAlpha, &LetterBar::lblAlphabet_Click, this, &NameList::lblAlphabet_Click);
}

void NameList::addIcons()
{
    m_ui->toolRow->setUp({{m_ui->cmdAdd, u"add"_s},
                          {m_ui->cmdEdit, u"edit"_s},
                          {m_ui->cmdDelete, u"delete"_s},
                          {m_ui->cmdPlay, u"play"_s},
                          {m_ui->cmdPlayAll, u"play-all"_s},
                          {m_ui->cmdPlayList, u"play-list"_s},
                          {m_ui->cmdFind, u"find"_s},
                          {m_ui->cmdFilter, u"filter"_s},
                          {m_ui->cmdCategory, u"category"_s},
                          {m_ui->cmdAssignCatg, u"assign"_s},
                          {m_ui->cmdPictures, u"pictures"_s},
                          {m_ui->cmdNotes, u"notes"_s},
                          {m_ui->cmdCount, u"count"_s},
                          {m_ui->cmdShowAll, u"show-all"_s},
                          {m_ui->cmdMore, u"more"_s},
                          {m_ui->cmdHelp, u"help"_s},
                          {m_ui->cmdExit, u"exit"_s}});
}

void NameList::addPopup()
{
    m_popup = new QMenu(this);
    m_popup->setObjectName(u"mnuPopup"_s);
    m_popup->addActions({m_ui->mnuPopupAddToPlaylist, m_ui->mnuPopupPlay, m_ui->mnuPopupAssignToCategory,
                         m_ui->mnuPopupCopyFile, m_ui->mnuPopupDelete});
}

void NameList::cmbSort_Click()
{
    const bool rows = m_session.displayedSet().Data1().hasRows();
    m_session.displayedSet().applySort(cmbSort());
    if (rows)
        m_ui->txtLocate->setFocus();
}

void NameList::cmdSortArtist_Click()
{
    m_columns->putArtistFirst(true);
    set_cmbSort(u"Artist"_s);
}

void NameList::cmdSortSong_Click()
{
    m_columns->putArtistFirst(false);
    set_cmbSort(u"Song Name"_s);
}

void NameList::ShowAllMenu_Click()
{
    m_session.displayedSet().showAll();
}

void NameList::cmdShowArtistSongs_Click()
{
    m_session.displayedSet().showArtistSongs();
}

void NameList::cmdShowSelected_Click()
{
    ShowSelectedOnlyMenu_Click();
}

void NameList::ShowSelectedOnlyMenu_Click()
{
    m_session.displayedSet().selectedOnly();
}

void NameList::HideSelectedMenu_Click()
{
    m_session.displayedSet().hideSelected();
}

void NameList::RemoveSelectionsMenu_Click()
{
    m_session.displayedSet().removeMarks();
}

void NameList::FindEditMenu_Click()
{
    m_listCommands.FindEditMenu_Click();
}

void NameList::DisplayRecCntMenu_Click()
{
    m_listCommands.DisplayRecCntMenu_Click();
}

void NameList::cmdDelete_Click()
{
    clearGridMarkArmed();
    m_listCommands.cmdDelete_Click();
    m_ui->txtLocate->setFocus();
}

void NameList::GridEditMenu_Click()
{
    if (!m_ui->Table1->finishEditing())
        return;
    // The caption is the state.
    const bool allow = m_ui->GridEditMenu->text() == "Allow &Grid Editing"_L1;
    m_ui->Table1->setAllowUpdate(allow);
    m_ui->GridEditMenu->setText(allow ? u"Disable &Grid Editing"_s : u"Allow &Grid Editing"_s);
}

void NameList::SelectionCriteria_Click()
{
    auto form =
        std::make_unique<CriteriaForm>(m_session.displayedSet(), *this, m_session.settings(),
                                       m_session.catalogue(), m_session.desktop(), m_session.options(), this);
    form->setAttribute(Qt::WA_DeleteOnClose);
    form.release()->open();
}

void NameList::mnuFileFont_Click()
{
    (new frmFontForm(m_session.desktop(), m_session.options(), m_session.optionsStore(), this))
        ->showModally();
}

void NameList::DataBaseLocation_Click()
{
    const DatabaseLocation location(m_session.desktop(), m_session.catalogue(), m_session.optionsStore(),
                                    m_session.lastFolder());
    (new frmDatabaseLocation(m_session.desktop(), location, m_session.options().TabletActive, this))
        ->showModally();
}

void NameList::mnuPassword_Click()
{
    const PasswordChange change(m_session.desktop(), m_session.catalogue());
    (new frmPassword(m_session.desktop(), change, m_session.options().TabletActive, this))->showModally();
}

void NameList::AboutBox_Click()
{
    auto *about = new About([this] { m_helpSite.HelpGotoWebsite_Click(); }, this);
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->open();
}

void NameList::txtLocate_KeyUp(int key)
{
    switch (m_locate.txtLocate_KeyUp(key, m_ui->txtLocate->text())) {
    case Locate::Next::FocusGrid:
        focusGrid();
        break;
    case Locate::Next::ClearBox:
        set_txtLocate({});
        break;
    case Locate::Next::Nothing:
        break;
    }
}

void NameList::txtLocate_KeyPress(int key)
{
    m_columns->cancel();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return;
    focusGrid();
    m_spokes->edit.cmdEdit_Click();
}

void NameList::txtLocate_Click()
{
    if (m_session.desktop().isTabletWithoutMouse())
        m_session.desktop().ShowKeyboard();
}

// As good as the key itself.
void NameList::lblAlphabet_Click(int index)
{
    m_ui->txtLocate->setFocus();
    // A cell whose text was refused has kept the focus.
    if (focusWidget() != m_ui->txtLocate)
        return;
    const char16_t character = LetterBar::characterOf(index);
    SendKeysInput(character == u'\b' ? u"{BS}"_s : QString(QChar(character)));
}

} // namespace quaverly
