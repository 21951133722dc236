// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/NameList.h"
#include "ui_NameList.h"

#include "desktop/KeySender.h"
#include "intake/AddCommands.h"
#include "main/Commands.h"
#include "main/FileManager.h"
#include "main/MainMenu.h"
#include "main/MenuWiring.h"
#include "main/Session.h"
#include "main/SongPopup.h"
#include "songlist/ColumnMoves.h"
#include "songlist/GridHandlers.h"

#include <QDropEvent>
#include <QMimeData>

using namespace Qt::StringLiterals;

// The commands that are the main screen's own, and what leads to them.
namespace quaverly {

void NameList::wire()
{
    const MenuWiring wiring(*this, handle);
    wireMainMenu(wiring,
                 {*m_ui, m_session.displayedSet(), m_listCommands, m_optionCommands, m_catalogueCommands,
                  m_helpSite, *m_addCommands, *m_playCommands, *m_commands, m_dialogs});
    wiring.guarded({{m_ui->cmbSort, [this] { cmbSort_Click(); }},
                    {m_ui->cmdSortSong, [this] { cmdSortSong_Click(); }},
                    {m_ui->cmdSortArtist, [this] { cmdSortArtist_Click(); }},
                    {m_ui->GridEditMenu, [this] { GridEditMenu_Click(); }},
                    {m_ui->mnuPopupShowFile, [this] { mnuPopupShowFile_Click(); }},
                    {m_ui->mnuPopupDelete, [this] { cmdDelete_Click(); }}});
    setAcceptDrops(true);
    wiring.own({{m_ui->FileExit, [this] { FileExit_Click(); }}});
    wireLocate();
    m_noticeTimer.setSingleShot(true);
    connect(&m_noticeTimer, &QTimer::timeout, m_ui->lblNotice, &QWidget::hide);
    connect(m_ui->txtName, &DescriptionBox::KeyDown, this,
            [this](QKeyEvent *key) { handle([&] { m_gridHandlers->Table1_KeyDown(key); }); });
}

void NameList::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void NameList::dropEvent(QDropEvent *event)
{
    QStringList paths;
    for (const QUrl &url : event->mimeData()->urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    event->acceptProposedAction();
    // The program that they come from waits until this has returned.
    QTimer::singleShot(0, this, [this, paths] { m_addCommands->addDropped(paths); });
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
    m_session.displayedSet().ShowAllMenu_Click();
}

void NameList::mnuPopupShowFile_Click()
{
    const DataControl &shown = m_session.displayedSet().Data1();
    const QString path = shown.currentText(u"PathName"_s) + shown.currentText(u"FileName"_s);
    if (!showInFileManager(m_session.desktop(), path))
        m_session.desktop().MessageBox(u"The folder of this song can't be shown:  "_s + path,
                                       u"Show in File Manager"_s, Icon::Exclamation);
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

void NameList::FileExit_Click()
{
    if (m_ui->Table1->finishEditing())
        close();
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
    m_commands->edit.cmdEdit_Click();
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
