// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/frmUpdate.h"

#include "catalogue/Catalogue.h"
#include "desktop/ChangeTableModel.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/ScreenLook.h"
#include "intake/IntakeState.h"
#include "songlist/DisplayedSet.h"
#include "songlist/InvalidFiles.h"
#include "ui_frmUpdate.h"
#include "update/UpdateCarrier.h"
#include "update/UpdateFinder.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QSaveFile>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

frmUpdate::frmUpdate(const UpdateParts &parts, QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::frmUpdate>()), m_parts(parts),
      m_folders(parts.services.catalogue)
{
    m_ui->setupUi(this);
    m_ui->listRows->setModel(&m_model);
    m_ui->listRows->installEventFilter(this);
    layOut();
    wire();
    listFolders();
    showCounts();
}

frmUpdate::~frmUpdate() = default;

std::vector<std::pair<QAbstractButton *, std::optional<UpdateKind>>> frmUpdate::kinds() const
{
    return {{m_ui->cmdKindAll, {}},
            {m_ui->cmdKindNew, UpdateKind::New},
            {m_ui->cmdKindChanged, UpdateKind::Changed},
            {m_ui->cmdKindMoved, UpdateKind::Moved},
            {m_ui->cmdKindGone, UpdateKind::Gone},
            {m_ui->cmdKindUnreadable, UpdateKind::Unreadable}};
}

void frmUpdate::wire()
{
    for (const auto &[button, kind] : kinds())
        connect(button, &QAbstractButton::clicked, this, [this, kind = kind] {
            m_model.show(kind);
            showTicks();
        });
    connect(m_ui->cmdAddFolder, &QPushButton::clicked, this, &frmUpdate::cmdAddFolder_Click);
    connect(m_ui->cmdRemoveFolder, &QPushButton::clicked, this, &frmUpdate::cmdRemoveFolder_Click);
    connect(m_ui->cmdLook, &QPushButton::clicked, this, &frmUpdate::cmdLook_Click);
    connect(m_ui->cmdAll, &QPushButton::clicked, this, [this] { m_model.tickAll(true); });
    connect(m_ui->cmdNone, &QPushButton::clicked, this, [this] { m_model.tickAll(false); });
    connect(m_ui->cmdShowGone, &QPushButton::clicked, this, &frmUpdate::cmdShowGone_Click);
    connect(m_ui->cmdSaveCsv, &QPushButton::clicked, this, &frmUpdate::cmdSaveCsv_Click);
    connect(m_ui->cmdUpdate, &QPushButton::clicked, this, &frmUpdate::cmdUpdate_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(&m_model, &UpdateModel::ticksChanged, this, &frmUpdate::showTicks);
}

void frmUpdate::layOut()
{
    layOutTable(*m_ui->listRows);
    scaleFont(*m_ui->lblMessage, HeadingScale);
    m_ui->lstFolders->setFixedHeight(4 * fontMetrics().lineSpacing() + 8);
    QHeaderView &heading = *m_ui->listRows->horizontalHeader();
    const int character = fontMetrics().averageCharWidth();
    const std::pair<UpdateModel::Column, int> widths[] = {
        {UpdateModel::Kind, 16},  {UpdateModel::Song, 26},   {UpdateModel::Artist, 20},
        {UpdateModel::Field, 14}, {UpdateModel::Before, 32}, {UpdateModel::After, 32}};
    for (const auto &[column, characters] : widths)
        heading.resizeSection(column, characters * character);
    heading.setStretchLastSection(true);
    resize(QSize(160 * character, 42 * fontMetrics().lineSpacing()).boundedTo(roomFor(*this)));
}

void frmUpdate::listFolders()
{
    QStringList folders = m_folders.all();
    if (folders.isEmpty())
        folders = m_folders.foldersOfSongs();
    m_ui->lstFolders->clear();
    for (const QString &folder : folders) {
        auto *item = new QListWidgetItem(folder, m_ui->lstFolders);
        item->setToolTip(folder);
        item->setCheckState(Qt::Checked);
    }
}

QStringList frmUpdate::chosenFolders() const
{
    QStringList folders;
    for (int row = 0; row < m_ui->lstFolders->count(); ++row) {
        if (m_ui->lstFolders->item(row)->checkState() == Qt::Checked)
            folders.append(m_ui->lstFolders->item(row)->text());
    }
    return folders;
}

void frmUpdate::showEvent(QShowEvent *event)
{
    ModalScreen::showEvent(event);
    if (std::exchange(m_hasLooked, true) || chosenFolders().isEmpty())
        return;
    m_ui->lblMessage->setText(u"Looking at the folders..."_s);
    QTimer::singleShot(0, this, &frmUpdate::cmdLook_Click);
}

bool frmUpdate::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Space) {
        m_model.turnTicks(m_ui->listRows->selectionModel()->selectedRows());
        return true;
    }
    return ModalScreen::eventFilter(watched, event);
}

void frmUpdate::cmdAddFolder_Click()
{
    work(m_parts.services.desktop, [this] {
        const QString folder =
            m_parts.services.desktop.BrowseForFolder(u"Add a folder that holds music, with all below it"_s,
                                                     windowTitle(), m_parts.intake.LastMusicFolder);
        if (!folder.isEmpty()) {
            m_folders.remember(folder);
            listFolders();
            look();
        }
        return false;
    });
}

void frmUpdate::cmdRemoveFolder_Click()
{
    work(m_parts.services.desktop, [this] {
        if (const QListWidgetItem *item = m_ui->lstFolders->currentItem()) {
            m_folders.forget(item->text());
            delete m_ui->lstFolders->takeItem(m_ui->lstFolders->currentRow());
            m_model.setList({});
            showCounts();
        }
        return false;
    });
}

void frmUpdate::cmdLook_Click()
{
    work(m_parts.services.desktop, [this] {
        look();
        return false;
    });
}

UpdateGoesOn frmUpdate::waiting(WorkingWindow &wait)
{
    return [this, &wait](const QString &what, qint64 done, qint64 all) {
        wait.setMsg(what);
        wait.setBar(static_cast<int>(done * FullBarTwips / std::max<qint64>(all, 1)));
        m_parts.services.desktop.letEventsRun();
        return !wait.isClosed();
    };
}

void frmUpdate::look()
{
    const QScopedValueRollback busy(m_parts.busy, true);
    m_model.setList({});
    bool isWhole = false;
    {
        const auto wait = m_parts.services.desktop.ShowWorkingForm(windowTitle(), u"Please wait..."_s, true);
        wait->offerCancel();
        m_parts.services.desktop.letEventsRun();
        if (auto found = UpdateFinder(m_parts, waiting(*wait)).find(chosenFolders())) {
            m_model.setList(std::move(*found));
            isWhole = true;
        }
    }
    showCounts();
    if (!isWhole)
        m_ui->lblMessage->setText(u"The look at the folders was stopped."_s);
}

void frmUpdate::showCounts()
{
    const auto counts = m_model.list().counts();
    const QString words = updateWords(m_model.list(), &UpdateCount::songs);
    QString message =
        words.isEmpty() ? u"Nothing has changed on the disk."_s : u"Found on the disk: %1."_s.arg(words);
    if (m_ui->lstFolders->count() == 0)
        message = u"Add the folders that hold your music.  Quaverly then tells what has changed in them."_s;
    for (const auto &[folder, songs] : m_model.list().away)
        message += u"\n%1 songs in %2 were left as they are."_s.arg(songs).arg(folder);
    m_ui->lblMessage->setText(message);
    for (const auto &[button, kind] : kinds()) {
        const int rows = kind ? counts[static_cast<std::size_t>(*kind)].songs
                              : static_cast<int>(m_model.list().rows.size());
        button->setText(button->accessibleName() + u' ' + QString::number(rows));
        button->setEnabled(!kind || rows > 0);
    }
    m_ui->cmdKindAll->click();
}

void frmUpdate::showTicks()
{
    const auto counts = m_model.list().counts();
    int songs = 0;
    for (const UpdateCount &count : counts)
        songs += count.ticked;
    m_ui->cmdUpdate->setText(songs == 1 ? u"&Update 1 Song"_s : u"&Update %1 Songs"_s.arg(songs));
    m_ui->cmdUpdate->setEnabled(songs > 0);
    m_ui->cmdShowGone->setEnabled(counts[static_cast<std::size_t>(UpdateKind::Gone)].rows > 0);
    m_ui->cmdSaveCsv->setEnabled(!m_model.list().rows.empty());
    m_ui->cmdAll->setEnabled(m_model.rowCount() > 0);
    m_ui->cmdNone->setEnabled(m_model.rowCount() > 0);
}

void frmUpdate::cmdUpdate_Click()
{
    work(m_parts.services.desktop, [this] { return carryOut(); });
}

bool frmUpdate::carryOut()
{
    Desktop &desktop = m_parts.services.desktop;
    const int deleted = m_model.list().counts()[static_cast<std::size_t>(UpdateKind::Gone)].ticked;
    if (deleted > 0 &&
        desktop.MessageBox(
            u"%1 songs whose files are gone will be deleted from the database.\n\nGo on?"_s.arg(deleted),
            windowTitle(), Icon::Question, Buttons::YesNo, Answer::No) != Answer::Yes)
        return false;
    const QScopedValueRollback busy(m_parts.busy, true);
    std::optional<UpdateOutcome> outcome;
    {
        const auto wait = desktop.ShowWorkingForm(windowTitle(), u"Please wait..."_s, true);
        wait->offerCancel();
        desktop.letEventsRun();
        outcome = UpdateCarrier(m_parts, waiting(*wait)).carryOut(m_model.list());
    }
    DataControl &shown = m_parts.set.Data1();
    if (shown.hasRows()) {
        const KeepRow row(shown);
        shown.Refresh();
    } else {
        m_parts.set.ShowAllMenu_Click();
    }
    if (!outcome) {
        desktop.MessageBox(u"The update was stopped.  Nothing was changed."_s, windowTitle());
        return false;
    }
    tell(*outcome);
    return true;
}

void frmUpdate::tell(const UpdateOutcome &outcome)
{
    constexpr std::size_t MostTold = 10;
    QString text = u"Update from disk: "_s + outcome.words() + u'.';
    if (!outcome.problems.empty())
        text += u"\n\nNot all could be done:"_s;
    for (std::size_t i = 0; i < std::min(outcome.problems.size(), MostTold); ++i)
        text += u"\n%1: %2"_s.arg(outcome.problems[i].path, outcome.problems[i].why);
    if (outcome.problems.size() > MostTold)
        text += u"\nand %1 more"_s.arg(outcome.problems.size() - MostTold);
    m_parts.services.desktop.MessageBox(text, windowTitle(), Icon::Information);
}

void frmUpdate::cmdShowGone_Click()
{
    work(m_parts.services.desktop, [this] {
        std::vector<qint64> gone;
        for (const UpdateRow &row : m_model.list().rows) {
            if (row.kind == UpdateKind::Gone)
                gone.push_back(row.recordId);
        }
        listInvalidFiles(*m_parts.services.catalogue.CatalogueDb, gone);
        m_parts.set.invalidFileView();
        return true;
    });
}

void frmUpdate::cmdSaveCsv_Click()
{
    work(m_parts.services.desktop, [this] {
        const auto path = m_parts.services.desktop.ShowSaveDialog(
            {u"Save as CSV"_s, u"CSV files (*.csv)|*.csv|All Files (*.*)|*.*"_s, {}, u"update.csv"_s});
        if (!path)
            return false;
        QSaveFile file(*path);
        if (!file.open(QIODevice::WriteOnly) || file.write(updateCsv(m_model.list())) < 0 || !file.commit())
            throw dao::DaoError(dao::PathFileAccess, file.errorString());
        return false;
    });
}

} // namespace quaverly
