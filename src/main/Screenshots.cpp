// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/Screenshots.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int StepMilliseconds = 50;
/** Steps without a change until a screen counts as settled. */
constexpr int SettledSteps = 6;
/** Steps until a screen counts as missing: a minute. */
constexpr int PatientSteps = 1200;

using Act = std::function<void(QWidget &)>;

Act choose(const QString &action)
{
    return [action](QWidget &window) { window.findChild<QAction *>(action)->trigger(); };
}

Act press(const QString &button)
{
    return [button](QWidget &window) { window.findChild<QAbstractButton *>(button)->click(); };
}

/** A command at work shuts its screen's menus and buttons and leaves the window open. */
bool isAtRest(const QWidget &window)
{
    const auto *menus = window.findChild<QMenuBar *>();
    return window.isVisible() && window.isEnabled() && (menus == nullptr || menus->isEnabled());
}

void close(QWidget &window)
{
    window.close();
}

/** A song whose record has most fields filled. */
void standOnASong(QWidget &window)
{
    constexpr int Row = 6;
    const auto *grid = window.findChild<QAbstractItemView *>(u"Table1"_s);
    QWidget *cells = grid->viewport();
    const QPointF at = grid->visualRect(grid->model()->index(Row, 1)).center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QCoreApplication::postEvent(
            cells, new QMouseEvent(type, at, cells->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier));
    }
}

void writeFilter(QWidget &window)
{
    window.findChild<QPlainTextEdit *>(u"txtCriteria"_s)
        ->setPlainText(u"Genre = \"Reggae\" And AlbumName Like \"Gold*\""_s);
}

} // namespace

Screenshots::Screenshots(QString folder, QString musicFolder, std::function<void(bool)> finished)
    : m_folder(std::move(folder)), m_musicFolder(std::move(musicFolder)), m_finished(std::move(finished))
{
    if (!m_musicFolder.isEmpty())
        visitMusic();
    else
        m_stops.push_back({u"NameList"_s, u"NameList"_s, {}});
    m_stops.push_back({u"NameList"_s, {}, choose(u"AboutBox"_s)});
    m_stops.push_back({u"About"_s, u"About"_s, close});
}

void Screenshots::visitMusic()
{
    const QString list = u"NameList"_s;
    m_stops = {{list, {}, choose(u"AddMusicFolder"_s)},
               {list, {}, standOnASong},
               {list, list, choose(u"SelectionCriteria"_s)},
               {u"CriteriaForm"_s, {}, writeFilter},
               {u"CriteriaForm"_s, u"CriteriaForm"_s, close},
               {list, {}, choose(u"EditViewMenu"_s)},
               {u"NameEdit"_s, u"NameEdit"_s, close},
               {list, {}, choose(u"mnuRenameFiles"_s)},
               {u"frmRenameFiles"_s, u"frmRenameFiles"_s, close}};
    visitPlayLists();
    m_stops.push_back({list, {}, choose(u"mnuArtistRpt"_s)});
    m_stops.push_back({u"RichTextForm"_s, u"RichTextForm"_s, close});
    m_stops.push_back({list, {}, choose(u"mnuPlayAllSongs"_s)});
    m_stops.push_back({u"PlayForm"_s, u"PlayForm"_s, close});
}

void Screenshots::visitPlayLists()
{
    m_stops.push_back({u"NameList"_s, {}, press(u"cmdPlayList"_s)});
    m_stops.push_back({u"frmPlayList"_s, {}, press(u"cmdAddHeader"_s)});
    m_stops.push_back({u"frmPlayListHeader"_s, {}, [](QWidget &window) {
                           window.findChild<QLineEdit *>(u"txtPlayListName"_s)->setText(u"Sunday Morning"_s);
                           press(u"cmdOK"_s)(window);
                       }});
    m_stops.push_back({u"frmPlayList"_s, {}, choose(u"mnuAddAllSongs"_s)});
    m_stops.push_back({u"frmPlayList"_s, u"frmPlayList"_s, close});
}

void Screenshots::start()
{
    QDir().mkpath(m_folder);
    qApp->installEventFilter(this);
    QTimer::singleShot(StepMilliseconds, this, &Screenshots::step);
}

bool Screenshots::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::UpdateRequest && watched->objectName() == "ScanFolderForm"_L1)
        save(*qobject_cast<QWidget *>(watched), watched->objectName());
    return false;
}

void Screenshots::save(QWidget &window, const QString &name)
{
    window.grab().save(QDir(m_folder).filePath(name + u".png"_s));
}

QWidget *Screenshots::windowOf(const Stop &stop) const
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(windows, [&](const QWidget *window) {
        return window->objectName() == stop.window && isAtRest(*window);
    });
    return found == windows.end() ? nullptr : *found;
}

bool Screenshots::isOnTheWay(const QString &window) const
{
    return std::ranges::any_of(m_stops, [&](const Stop &stop) { return stop.window == window; });
}

void Screenshots::answer(QDialog &dialog)
{
    if (auto *folder = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s))
        folder->setText(m_musicFolder);
    else
        save(dialog, dialog.objectName().isEmpty() ? u"message"_s : dialog.objectName());
    const auto *buttons = dialog.findChild<QDialogButtonBox *>();
    QPushButton *yes = buttons == nullptr ? nullptr : buttons->button(QDialogButtonBox::Yes);
    if (yes != nullptr)
        yes->click();
    else
        dialog.accept();
}

// An act may open a screen that returns only when it is closed, so the next step is on its way before.
void Screenshots::step()
{
    QTimer::singleShot(StepMilliseconds, this, &Screenshots::step);
    auto *modal = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (modal != nullptr && !isOnTheWay(modal->objectName())) {
        m_quietSteps = 0;
        answer(*modal);
        return;
    }
    if (m_next == m_stops.size()) {
        m_finished(true);
        return;
    }
    const Stop &stop = m_stops[m_next];
    QWidget *window = windowOf(stop);
    if (window == nullptr || (modal != nullptr && modal != window)) {
        m_quietSteps = 0;
        if (++m_waitedSteps == PatientSteps)
            m_finished(false);
        return;
    }
    if (++m_quietSteps < SettledSteps)
        return;
    m_quietSteps = m_waitedSteps = 0;
    ++m_next;
    if (!stop.picture.isEmpty())
        save(*window, stop.picture);
    if (stop.act)
        stop.act(*window);
}

} // namespace quaverly
