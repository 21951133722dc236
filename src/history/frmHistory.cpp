// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/frmHistory.h"

#include "desktop/Desktop.h"
#include "desktop/ScreenLook.h"
#include "history/HistoryCommands.h"
#include "ui_frmHistory.h"

#include <QHeaderView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

using State = dao::Change::State;

} // namespace

frmHistory::frmHistory(Desktop &desktop, dao::Database &database, HistoryCommands &commands, QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::frmHistory>()), m_desktop(desktop), m_commands(commands),
      m_isKept(database.Updatable()), m_changes(database), m_rows(database)
{
    m_ui->setupUi(this);
    m_ui->listChanges->setModel(&m_changes);
    m_ui->listRows->setModel(&m_rows);
    wire();
    layOutColumns();
    showChanges();
}

frmHistory::~frmHistory() = default;

void frmHistory::wire()
{
    connect(m_ui->listChanges->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmHistory::listChanges_Click);
    connect(m_ui->txtFilter, &QLineEdit::textChanged, this, &frmHistory::txtFilter_Change);
    connect(m_ui->cmdTakeBack, &QPushButton::clicked, this, &frmHistory::cmdTakeBack_Click);
    connect(m_ui->cmdMakeAgain, &QPushButton::clicked, this, &frmHistory::cmdMakeAgain_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmHistory::layOutColumns()
{
    layOutTable(*m_ui->listChanges);
    layOutChanges(*m_ui->listRows);
    const int character = fontMetrics().averageCharWidth();
    QHeaderView &changes = *m_ui->listChanges->horizontalHeader();
    changes.setSectionResizeMode(ChangeListModel::What, QHeaderView::Stretch);
    changes.resizeSection(ChangeListModel::When, 26 * character);
    changes.resizeSection(ChangeListModel::Rows, 12 * character);
    changes.resizeSection(ChangeListModel::Files, 9 * character);
    resize(QSize(130 * character, 42 * fontMetrics().lineSpacing()).boundedTo(roomFor(*this)));
}

void frmHistory::showChanges()
{
    m_changes.reload();
    if (m_changes.rowCount() > 0)
        m_ui->listChanges->selectRow(0);
    listChanges_Click();
}

const dao::Change *frmHistory::chosen() const
{
    const QModelIndexList rows = m_ui->listChanges->selectionModel()->selectedRows();
    return rows.isEmpty() ? nullptr : &m_changes.change(rows.front().row());
}

void frmHistory::listChanges_Click()
{
    const dao::Change *change = chosen();
    m_rows.show(change == nullptr ? std::nullopt : std::optional(*change));
    // Nothing goes back beyond a change whose rows are not kept.
    const bool blocked =
        change != nullptr && std::ranges::any_of(m_changes.all(), [&](const dao::Change &each) {
            return each.state == State::CopyOnly && each.id >= change->id;
        });
    const bool isCopy = change != nullptr && change->state == State::CopyOnly;
    m_ui->cmdTakeBack->setEnabled(isCopy || (change != nullptr && change->state == State::Done && !blocked));
    m_ui->cmdMakeAgain->setEnabled(change != nullptr && change->state == State::TakenBack);
    m_ui->lblMessage->setText(messageFor(change, blocked));
}

QString frmHistory::messageFor(const dao::Change *change, bool blocked) const
{
    if (!m_isKept)
        return u"This database can't be written to, so that nothing is changed and nothing taken back."_s;
    if (m_changes.all().empty())
        return u"There are no changes yet.  What you do to songs, play lists, categories, filters and notes "
               u"is "
               "listed here, and can be taken back."_s;
    if (change != nullptr && change->state == State::CopyOnly)
        return u"Of this change only the copy of the database is kept that was made before it.  Take Back "
               "offers to restore that copy."_s;
    if (blocked)
        return u"After this change came one of which only a copy of the database is kept, so it can't be "
               u"taken "
               "back by itself."_s;
    return u"Choose a change to see what it did.  Changes are taken back from the newest down to the one "
           u"that "
           "is chosen."_s;
}

void frmHistory::txtFilter_Change()
{
    m_changes.setFilter(m_ui->txtFilter->text().trimmed());
    if (m_changes.rowCount() > 0)
        m_ui->listChanges->selectRow(0);
    listChanges_Click();
}

std::size_t frmHistory::countBetween(State state, const dao::Change &last) const
{
    return static_cast<std::size_t>(std::ranges::count_if(m_changes.all(), [&](const dao::Change &change) {
        return change.state == state && (state == State::Done ? change.id >= last.id : change.id <= last.id);
    }));
}

bool frmHistory::confirms(std::size_t changes, const QString &what)
{
    return changes == 1 ||
           m_desktop.MessageBox(
               u"%1 changes will be %2, one after the other.\n\nGo on?"_s.arg(changes).arg(what),
               windowTitle(), Icon::Question, Buttons::YesNo, Answer::No) == Answer::Yes;
}

void frmHistory::cmdTakeBack_Click()
{
    work(m_desktop, [this] {
        const dao::Change last = *chosen();
        if (last.state == State::CopyOnly)
            return m_commands.restoreCopyFor(last);
        if (confirms(countBetween(State::Done, last), u"taken back"_s))
            m_commands.walk(last, WalkDirection::Back);
        showChanges();
        return false;
    });
}

void frmHistory::cmdMakeAgain_Click()
{
    work(m_desktop, [this] {
        const dao::Change last = *chosen();
        if (confirms(countBetween(State::TakenBack, last), u"done again"_s))
            m_commands.walk(last, WalkDirection::Again);
        showChanges();
        return false;
    });
}

} // namespace quaverly
