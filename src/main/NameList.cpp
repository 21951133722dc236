// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/NameList.h"
#include "ui_NameList.h"

#include "catalogue/CatalogueCommands.h"
#include "desktop/KeySender.h"
#include "desktop/ScreenLook.h"
#include "intake/AddCommands.h"
#include "intake/GatherFolders.h"
#include "intake/MusicLoader.h"
#include "intake/ScanForms.h"
#include "main/Commands.h"
#include "main/EmptyState.h"
#include "main/Session.h"
#include "main/SongPopup.h"
#include "main/WindowPlace.h"
#include "platform/options/Folders.h"
#include "player/PlayCommands.h"
#include "player/Player.h"
#include "player/TemporaryList.h"
#include "songlist/ColumnMoves.h"
#include "songlist/GridHandlers.h"

#include <QApplication>
#include <QCloseEvent>
#include <QTimer>

#include <ctime>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** How long a closing that a scan held up waits for the next try. */
constexpr int CloseAgainMilliseconds = 50;

constexpr int NoticeMilliseconds = 800;
/** So long a sentence can be read. */
constexpr int SentenceMilliseconds = 5000;

/** The local time; asked once a song, so the zone is looked up once. */
QDateTime localNow()
{
    const std::time_t seconds = std::time(nullptr);
    std::tm parts{};
    localtime_r(&seconds, &parts);
    return {QDate(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday),
            QTime(parts.tm_hour, parts.tm_min, std::min(parts.tm_sec, 59)), Qt::UTC};
}

ScanClock systemClock()
{
    return {[] { return QTime::currentTime().msecsSinceStartOfDay() / 1000.0; }, localNow};
}

} // namespace

NameList::NameList(Session &session, CatalogueCommands &catalogueCommands, Player &player,
                   std::function<void()> unloaded)
    : handle(session.desktop(), [] { return QString::fromUtf16(ProductName); }),
      m_ui(std::make_unique<Ui::NameList>()), m_session(session), m_catalogueCommands(catalogueCommands),
      m_player(player), m_unloaded(std::move(unloaded)),
      m_optionCommands(session.desktop(), *this, session.options(), session.optionsStore(),
                       session.settings()),
      m_listCommands(session.displayedSet(), *this, session.desktop()),
      m_locate(session.catalogue(), session.displayedSet(), session.desktop()),
      m_helpSite(session.desktop(), session.optionsStore(), QCoreApplication::applicationDirPath() + u'/'),
      m_letters(*m_ui), m_stateLine(*m_ui), m_dialogs(session, catalogueCommands, m_helpSite, *this, *this)
{
    m_ui->setupUi(this);
    setCentralWidget(m_ui->content);
    build();
    session.displayedSet().setScreen(this);
    wire();
    Form_Load();
}

NameList::~NameList()
{
    if (!m_unloadedAlready)
        m_session.displayedSet().setScreen(nullptr);
}

void NameList::build()
{
    m_scanForms =
        std::make_unique<ScanForms>(m_session.desktop(), *this, m_session.intake(), m_session.shell(), this);
    m_loader = std::make_unique<MusicLoader>(
        IntakeParts{.services = m_session.services(),
                    .mainScreen = *this,
                    .shell = m_session.shell(),
                    .state = m_session.intake(),
                    .screens = *m_scanForms,
                    .clock = systemClock(),
                    .reportPlaces = {folders::state() + u"scan-report.txt"_s,
                                     folders::runtime() + u"scan-report.txt"_s}});
    m_addCommands =
        std::make_unique<AddCommands>(m_session.desktop(), *this, m_session.player(), m_session.intake(),
                                      *m_loader, [this] { m_scanForms->showScanDriveForm(*m_loader); });
    buildPlayCommands();
    buildCommands();
    addIcons();
    m_popup = new SongPopup({m_ui->mnuPopupAddToPlaylist, m_ui->mnuPopupPlay, m_ui->mnuPopupPlayNext,
                             m_ui->mnuPopupAddToQueue, m_ui->mnuPopupAssignToCategory, m_ui->mnuTags,
                             m_ui->mnuPopupCopyFile, m_ui->mnuPopupShowFile, m_ui->mnuPopupDelete},
                            m_ui->mnuPopupAddToPlaylist, this);
    showEmptyState();
    SongGrid &grid = *m_ui->Table1;
    grid.setData(m_session.displayedSet().Data1());
    m_columns = std::make_unique<ColumnMoves>(grid, m_session.desktop());
    m_gridHandlers = std::make_unique<GridHandlers>(
        grid, m_session.displayedSet(), m_session.desktop(), *m_columns,
        GridActions{[this] { m_ui->txtLocate->setFocus(); }, [this] { m_commands->edit.cmdEdit_Click(); },
                    [this] { showCurrentSong(); },
                    [this](QPoint place) { m_popup->show(place, m_session.player().CurrentPlayListName); }});
}

void NameList::buildPlayCommands()
{
    m_playCommands = std::make_unique<PlayCommands>(PlayParts{
        .services = m_session.services(),
        .player = m_player,
        .state = m_session.player(),
        .displayed = m_session.displayedSet().Data1(),
        .shell = m_session.shell(),
        .LastMusicFolder = m_session.intake().LastMusicFolder,
        .gatherFolders =
            [this](const QString &root) {
                GatheredFolders found;
                const bool never = false;
                GatherFolders(m_session.shell(), m_session.desktop(), never, root, found);
                return found.folders;
            },
        .showPlayLists = [this](const std::function<void()> &closed) { m_commands->playLists.show(closed); },
        .showSongAdded = [this] { showNotice(u"Song Added to Play List"_s, NoticeMilliseconds); }});
}

void NameList::buildCommands()
{
    m_commands = std::make_unique<Commands>(
        m_session,
        CommandHooks{
            .player = m_player,
            .owner = *this,
            .mainScreen = *this,
            .beforeBulk =
                [this](const QString &command) {
                    return m_catalogueCommands.backups().beforeBulkCommand(command);
                },
            .playFromEditor =
                [this](const EditedSong &song, const EditorScreens &screens) {
                    m_playCommands->playFromEditor(song, screens);
                },
            .focusCmdPictures = [this] { m_ui->cmdPictures->setFocus(); },
            .tell = [this](const QString &sentence) { showNotice(sentence, SentenceMilliseconds); },
            .restoreBefore = [this](const QDateTime &made) { return m_dialogs.restoreBefore(made); }});
}

void NameList::showNotice(const QString &text, int milliseconds)
{
    m_ui->lblNotice->setText(text);
    m_ui->lblNotice->show();
    m_noticeTimer.start(milliseconds);
}

void NameList::Form_Load()
{
    loadUserOptions(m_session.optionsStore(), m_session.options());
    restorePlace(*this, m_session.optionsStore(), m_session.options().RememberWindowSize);
    setWindowTitle(QString::fromUtf16(ProductName) + u" Database  "_s + m_session.catalogue().DatabaseFile);
    loadCatalogueOptions(m_session.settings(), m_session.options());
    m_session.displayedSet().openAtLoad();
    m_optionCommands.load();
    scaleFont(*m_ui->lblCategory, 1.1, true);
    m_stateLine.keepRoom();
    m_ui->Table1->setDesignWidths();
    m_columns->load(m_session.catalogue().DatabaseFolder);
    // One that a run left behind which could not end.
    if (!m_session.player().PlayerOpen)
        removeTemporaryList(m_session.catalogue().DatabaseFolder);
}

void NameList::showEmptyState()
{
    m_emptyState = new EmptyState;
    m_ui->Table1->setEmptyState(m_emptyState);
    connect(m_emptyState, &EmptyState::addFolderWanted, m_ui->AddMusicFolder, &QAction::trigger);
    connect(m_emptyState, &EmptyState::showAllWanted, m_ui->ShowAllMenu, &QAction::trigger);
}

void NameList::Form_Activate()
{
    if (m_activating)
        return;
    m_activating = true;
    DisplayedSet &set = m_session.displayedSet();
    if (!set.Data1().hasRows())
        set_txtName({});
    set.activated();
    clearGridMarkArmed();
    if (m_firstActivation) {
        m_firstActivation = false;
        handle([&] { set.openAtFirstActivation(); });
        focusGrid();
        const dao::Recordset &all = *m_session.catalogue().ContactsTable;
        if (all.atBOF() && all.atEOF())
            m_session.desktop().MessageBox(
                u"Add songs automatically by choosing one of the options on the File menu."_s,
                u"Empty Database"_s);
        m_session.editor().RecordJustSaved = true;
    }
    if (std::exchange(m_session.editor().RecordJustSaved, false))
        SendKeysInput(u"{right}"_s);
    m_activating = false;
}

void NameList::Form_Unload()
{
    const Hourglass hourglass(m_session.desktop());
    handle([this] { m_columns->save(); });
    handle([this] {
        if (m_session.options().RememberWindowSize && pos().y() >= 0 && !isMinimized())
            savePlace(*this, m_session.optionsStore());
    });
    m_commands->unload();
    m_session.shutDown().leaveMainScreen();
}

void NameList::unbind()
{
    m_ui->Table1->unbind();
    m_session.displayedSet().setScreen(nullptr);
    m_session.displayedSet().Data1().Close();
}

void NameList::closeEvent(QCloseEvent *event)
{
    // A long command works on what the unload closes: it ends first, and the screen goes after it.
    if (m_loader->isRunning() || m_commands->isBusy()) {
        m_session.intake().CancelScan = true;
        m_commands->maintenance.endSearch();
        event->ignore();
        QTimer::singleShot(CloseAgainMilliseconds, this, &QWidget::close);
        return;
    }
    // What closes the screen from within has its reasons: only the user is held up by a refused text.
    if (!m_ui->Table1->finishEditing() && event->spontaneous()) {
        event->ignore();
        return;
    }
    event->accept();
    if (m_unloadedAlready)
        return;
    m_unloadedAlready = true;
    // What went wrong is told over the list as it was.
    handle([this] { Form_Unload(); });
    unbind();
    m_unloaded();
}

// Without a window manager no activation ever comes: being shown counts as the first one.
void NameList::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (m_firstActivation)
        QTimer::singleShot(0, this, &NameList::Form_Activate);
}

void NameList::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !m_firstActivation)
        Form_Activate();
    if (event->type() == QEvent::FontChange) {
        m_stateLine.keepRoom();
        m_letters.place(width());
    }
}

void NameList::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    m_letters.place(width());
}

void NameList::showCurrentSong()
{
    const DataControl &shown = m_session.displayedSet().Data1();
    m_session.displayedSet().showLook();
    if (!shown.hasRows()) {
        const auto &all = m_session.catalogue().ContactsTable;
        m_emptyState->setCatalogueEmpty(all == nullptr || all->isEmpty());
        set_txtName({});
        return;
    }
    // Each field has its line, whatever stands in it.
    const auto text = [&](const char16_t *field) {
        return shown.currentText(QString::fromUtf16(field)).replace(u'\n', u' ').replace(u'\r', u' ');
    };
    QString lines = text(u"SongName") + u'\n' + text(u"Artist") + u'\n' + text(u"AlbumName");
    while (lines.startsWith(u' ') || lines.startsWith(u'\n'))
        lines.remove(0, 1);
    set_txtName(lines + u'\n' + text(u"PathName") + text(u"FileName"));
}

void NameList::unloadPics3()
{
    m_commands->pictures.unloadPics3();
}

void NameList::unloadPlayForm()
{
    m_player.unload();
}

void NameList::raiseScreen()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

} // namespace quaverly
