// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/NameList.h"
#include "ui_NameList.h"

#include "desktop/About.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "intake/AddCommands.h"
#include "intake/MusicLoader.h"
#include "intake/ScanForms.h"
#include "main/Session.h"
#include "main/WindowPlace.h"
#include "platform/options/Folders.h"
#include "platform/text/Text.h"

#include <QApplication>
#include <QCloseEvent>
#include <QTimer>

#include <ctime>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** The colour of the background until the user chooses one: red, green and blue from the lowest byte up. */
constexpr quint32 OriginalBackColor = 8421440;

constexpr double DesktopRowTwips = 225.0709;
constexpr double TabletRowTwips = 400;

/** How long a closing that a scan held up waits for the next try. */
constexpr int CloseAgainMilliseconds = 50;

/** Lines of the description box: song, artist, album, file. */
constexpr int DescriptionLines = 4;

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

NameList::NameList(Session &session, std::function<void()> unloaded)
    : m_ui(std::make_unique<Ui::NameList>()), m_session(session), m_unloaded(std::move(unloaded))
{
    m_ui->setupUi(this);
    setCentralWidget(m_ui->background);
    m_scanForms =
        std::make_unique<ScanForms>(session.desktop(), *this, session.intake(), session.shell(), this);
    m_loader = std::make_unique<MusicLoader>(IntakeParts{
        session.desktop(), *this, session.shell(), session.catalogue(), session.intake(), *m_scanForms,
        systemClock(), folders::state() + u"scan-report.txt"_s, [this]() -> std::optional<QString> {
            const DataControl &shown = m_session.displayedSet().Data1();
            return shown.hasRows() ? std::optional(shown.currentText(u"Artist"_s)) : std::nullopt;
        }});
    m_addCommands =
        std::make_unique<AddCommands>(session.desktop(), *this, session.player(), session.intake(), *m_loader,
                                      [this] { m_scanForms->showScanDriveForm(*m_loader); });
    session.displayedSet().setScreen(this);
    showEmptyState();
    wire();
    Form_Load();
}

NameList::~NameList()
{
    m_session.displayedSet().setScreen(nullptr);
}

void NameList::wire()
{
    const auto on = [this](auto *sender, auto signal, auto handler) {
        connect(sender, signal, this, [this, handler] { handle([this, handler] { (this->*handler)(); }); });
    };
    on(m_ui->cmbSort, &QComboBox::activated, &NameList::cmbSort_Click);
    on(m_ui->cmdSortSong, &QPushButton::clicked, &NameList::cmdSortSong_Click);
    on(m_ui->cmdSortArtist, &QPushButton::clicked, &NameList::cmdSortArtist_Click);
    on(m_ui->cmdShowArtistSongs, &QPushButton::clicked, &NameList::cmdShowArtistSongs_Click);
    on(m_ui->cmdShowAll, &QPushButton::clicked, &NameList::ShowAllMenu_Click);
    on(m_ui->ShowAllMenu, &QAction::triggered, &NameList::ShowAllMenu_Click);
    on(m_ui->DisplayRecCntMenu, &QAction::triggered, &NameList::DisplayRecCntMenu_Click);
    on(m_ui->AboutBox, &QAction::triggered, &NameList::AboutBox_Click);
    connect(m_ui->cmdShowSelected, &QPushButton::clicked, this,
            [this] { handle([this] { m_session.displayedSet().selectedOnly(); }); });
    connect(m_ui->FileExit, &QAction::triggered, this, &QWidget::close);
    AddCommands *add = m_addCommands.get();
    connect(m_ui->AddMusicFolder, &QAction::triggered, this, [add] { add->AddMusicFolder_Click(); });
    connect(m_ui->AddOneMusicFile, &QAction::triggered, this, [add] { add->AddOneMusicFile_Click(); });
    connect(m_ui->ScanFiles, &QAction::triggered, this, [add] { add->ScanFiles_Click(); });
    connect(m_emptyButton, &QPushButton::clicked, m_ui->AddMusicFolder, &QAction::trigger);
}

void NameList::handle(const std::function<void()> &handler)
{
    static_cast<void>(guarded(m_session.desktop(), QString::fromUtf16(ProductName), handler));
}

void NameList::Form_Load()
{
    loadUserOptions(m_session.optionsStore(), m_session.options());
    placeWindow();
    setWindowTitle(QString::fromUtf16(ProductName) + u" Database  "_s + m_session.catalogue().DatabaseFile);
    SettingsRows &rows = m_session.settings();
    loadCatalogueOptions(rows, m_session.options());
    m_session.options().TabletActive = m_session.options().TabletActive || rows.tablet();
    m_ui->Table1->setData(m_session.displayedSet().Data1());
    connect(&m_ui->Table1->songs(), &SongGridModel::currentRowChanged, this, &NameList::showCurrentSong);
    connect(&m_ui->Table1->songs(), &QAbstractItemModel::modelReset, this, &NameList::showCurrentSong);
    m_session.displayedSet().openAtLoad();
    applyFont();
    applyBackColor(rows.backColor().value_or(OriginalBackColor));
    setVisible(MainControl::lblFilterMsg, false);
    setVisible(MainControl::cmdShowSelected, false);
    set_lblCategory(lblCategory());
    set_lblSelectedCount({});
    setVisible(MainControl::cmdShowArtistSongs, false);
}

void NameList::applyFont()
{
    QFont font(m_session.options().ScreenFont);
    font.setPointSizeF(QApplication::font().pointSizeF());
    QApplication::setFont(font);
    m_ui->Table1->setRowHeight(m_session.options().TabletActive ? TabletRowTwips : DesktopRowTwips);
    scaleFont(*m_ui->lblCategory, 1.1, true);
    const int line = m_ui->txtName->fontMetrics().lineSpacing();
    const int margins = 2 * static_cast<int>(m_ui->txtName->document()->documentMargin());
    m_ui->txtName->setFixedHeight(DescriptionLines * line + margins + line / 2);
}

// Black or white, whichever stands out more from the chosen colour.
void NameList::applyBackColor(quint32 colour)
{
    const QColor back(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                      static_cast<int>((colour >> 16) & 0xFF));
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    const double luminance =
        0.2126 * linear(back.redF()) + 0.7152 * linear(back.greenF()) + 0.0722 * linear(back.blueF());
    const QColor text = 1.05 / (luminance + 0.05) > (luminance + 0.05) / 0.05 ? Qt::white : Qt::black;
    m_ui->background->setAutoFillBackground(true);
    QPalette colours = m_ui->background->palette();
    colours.setColor(QPalette::Window, back);
    m_ui->background->setPalette(colours);
    for (QWidget *label :
         {static_cast<QWidget *>(m_ui->lblSort), static_cast<QWidget *>(m_ui->lblCategory),
          static_cast<QWidget *>(m_ui->lblFilterMsg), static_cast<QWidget *>(m_ui->lblSelectedCount),
          static_cast<QWidget *>(m_ui->txtName)}) {
        QPalette own = label->palette();
        own.setColor(QPalette::WindowText, text);
        own.setColor(QPalette::Text, text);
        own.setColor(QPalette::Base, back);
        label->setPalette(own);
    }
}

void NameList::showEmptyState()
{
    auto *empty = new QWidget;
    auto *layout = new QVBoxLayout(empty);
    m_emptyText = new QLabel(tr("There are no songs here yet.  Add a folder of music to begin."), empty);
    m_emptyButton = new QPushButton(tr("Add a Folder of Music Files ..."), empty);
    m_emptyButton->setObjectName(u"cmdEmptyAddFolder"_s);
    layout->addWidget(m_emptyText);
    layout->addWidget(m_emptyButton, 0, Qt::AlignCenter);
    m_ui->Table1->setEmptyState(empty);
}

void NameList::placeWindow()
{
    restorePlace(*this, m_session.optionsStore(), m_session.options().RememberWindowSize);
}

void NameList::Form_Activate()
{
    if (m_activating)
        return;
    m_activating = true;
    DisplayedSet &set = m_session.displayedSet();
    if (!set.Data1().hasRows()) {
        set_txtName({});
        setVisible(MainControl::cmdShowArtistSongs, false);
    }
    if (m_firstActivation) {
        m_firstActivation = false;
        handle([&] { set.openAtFirstActivation(); });
        focusGrid();
        dao::Recordset &all = *m_session.catalogue().ContactsTable;
        if (all.atBOF() && all.atEOF())
            emptyMessage();
    }
    m_activating = false;
}

void NameList::emptyMessage()
{
    m_session.desktop().MessageBox(
        u"Add songs automatically by choosing one of the options on the File menu."_s, u"Empty Database"_s);
}

void NameList::Form_Unload()
{
    const Hourglass hourglass(m_session.desktop());
    if (m_session.options().RememberWindowSize && pos().y() >= 0 && !isMinimized())
        savePlace(*this, m_session.optionsStore());
    m_session.displayedSet().Data1().Close();
    m_session.shutDown().leaveMainScreen();
}

void NameList::closeEvent(QCloseEvent *event)
{
    // A scan works on what the unload closes: it is cancelled first, and the screen goes after it.
    if (m_loader->isRunning()) {
        m_session.intake().CancelScan = true;
        event->ignore();
        QTimer::singleShot(CloseAgainMilliseconds, this, &QWidget::close);
        return;
    }
    event->accept();
    if (m_unloadedAlready)
        return;
    m_unloadedAlready = true;
    handle([this] { Form_Unload(); });
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
}

void NameList::showCurrentSong()
{
    const DataControl &shown = m_session.displayedSet().Data1();
    if (!shown.hasRows()) {
        set_txtName({});
        setVisible(MainControl::cmdShowArtistSongs, false);
        return;
    }
    const auto text = [&](const char16_t *field) { return shown.currentText(QString::fromUtf16(field)); };
    QString lines = text(u"SongName") + u'\n' + text(u"Artist") + u'\n' + text(u"AlbumName");
    while (lines.startsWith(u' ') || lines.startsWith(u'\n'))
        lines.remove(0, 1);
    set_txtName(lines + u'\n' + text(u"PathName") + text(u"FileName"));
    if (cmdShowArtistSongs() != QStringView(captions::ReturnFromArtist))
        m_session.displayedSet().showArtistButton();
}

void NameList::cmbSort_Click()
{
    m_session.displayedSet().applySort(cmbSort());
    showCurrentSong();
}

void NameList::cmdSortArtist_Click()
{
    m_ui->Table1->putArtistFirst(true);
    set_cmbSort(u"Artist"_s);
}

void NameList::cmdSortSong_Click()
{
    m_ui->Table1->putArtistFirst(false);
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

void NameList::DisplayRecCntMenu_Click()
{
    QString message;
    {
        const Hourglass hourglass(m_session.desktop());
        message = m_session.displayedSet().recordCountMessage();
    }
    m_session.desktop().MessageBox(message, u"Record Count"_s);
}

void NameList::AboutBox_Click()
{
    auto *about = new About([this] { static_cast<void>(m_session.openWebSite()); }, this);
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->open();
}

void NameList::raiseScreen()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

} // namespace quaverly
