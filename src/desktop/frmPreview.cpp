// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frmPreview.h"

#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "ui_frmPreview.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Width and height at first, in characters and lines. */
constexpr int CharactersWide = 150;
constexpr int LinesHigh = 36;
constexpr int RowsMeasured = 40;
constexpr int FieldCharacters = 12;

} // namespace

frmPreview::frmPreview(Desktop &desktop, Preview &preview, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPreview>()), m_desktop(desktop), m_preview(preview),
      m_rows(preview)
{
    m_ui->setupUi(this);
    wire();
    Form_Load();
}

frmPreview::~frmPreview() = default;

void frmPreview::wire()
{
    const auto shows = [this](QRadioButton *option, PreviewModel::Shows rows) {
        connect(option, &QRadioButton::clicked, this, [this, rows] { m_rows.show(rows); });
    };
    shows(m_ui->optAll, PreviewModel::Shows::All);
    shows(m_ui->optPossible, PreviewModel::Shows::Possible);
    shows(m_ui->optObstructed, PreviewModel::Shows::Obstructed);
    connect(m_ui->cmbRule, &QComboBox::activated, this, &frmPreview::cmbRule_Click);
    connect(m_ui->cmdAll, &QPushButton::clicked, this, &frmPreview::cmdAll_Click);
    connect(m_ui->cmdNone, &QPushButton::clicked, this, &frmPreview::cmdNone_Click);
    connect(m_ui->cmdSelected, &QPushButton::clicked, this, &frmPreview::cmdSelected_Click);
    connect(m_ui->cmdShowSong, &QPushButton::clicked, this, &frmPreview::cmdShowSong_Click);
    connect(m_ui->listRows, &QTableView::activated, this, &frmPreview::cmdShowSong_Click);
    connect(m_ui->cmdGoOn, &QPushButton::clicked, this, &frmPreview::cmdGoOn_Click);
    connect(m_ui->cmdGiveUp, &QPushButton::clicked, this, &QDialog::reject);
    connect(&m_rows, &PreviewModel::dataChanged, this, &frmPreview::showCounts);
}

void frmPreview::Form_Load()
{
    m_ui->lblSentence->setText(m_preview.sentence());
    scaleFont(*m_ui->lblSentence, HeadingScale);
    m_ui->listRows->setModel(&m_rows);
    m_ui->listRows->installEventFilter(this);
    layOutChanges(*m_ui->listRows);
    // The first rows are enough: they are read for that.
    m_ui->listRows->horizontalHeader()->setResizeContentsPrecision(RowsMeasured);
    const int least = FieldCharacters * fontMetrics().averageCharWidth();
    m_ui->listRows->horizontalHeader()->setMinimumSectionSize(least);
    m_ui->listRows->resizeColumnToContents(ChangeTableModel::Field);
    const QLocale locale;
    m_ui->optAll->setText(u"A&ll rows: %1"_s.arg(locale.toString(m_preview.count())));
    m_ui->optPossible->setText(
        u"C&hanges: %1"_s.arg(locale.toString(m_preview.count() - m_preview.obstructed())));
    m_ui->optObstructed->setText(u"&Impossible: %1"_s.arg(locale.toString(m_preview.obstructed())));
    for (QWidget *option : {m_ui->optAll, m_ui->optPossible, m_ui->optObstructed})
        option->setVisible(m_preview.obstructed() > 0);
    m_ui->cmbRule->addItems(m_preview.rules());
    for (QWidget *control : std::initializer_list<QWidget *>{m_ui->lblRule, m_ui->cmbRule})
        control->setVisible(m_ui->cmbRule->count() > 0);
    showCounts();
    resize(QSize(CharactersWide * fontMetrics().averageCharWidth(), LinesHigh * fontMetrics().lineSpacing())
               .boundedTo(roomFor(*this)));
    m_ui->listRows->setFocus();
    if (m_rows.rowCount() > 0)
        m_ui->listRows->setCurrentIndex(m_rows.index(0, 0));
}

void frmPreview::showCounts()
{
    const QLocale locale;
    m_ui->lblTicked->setText(u"%1 of %2 ticked"_s.arg(
        locale.toString(m_preview.ticked()), locale.toString(m_preview.count() - m_preview.obstructed())));
    m_ui->cmdGoOn->setEnabled(m_preview.ticked() > 0);
}

void frmPreview::guard(const std::function<void()> &handler)
{
    guarded(m_desktop, windowTitle(), handler);
}

bool frmPreview::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Space)
        return QDialog::eventFilter(watched, event);
    cmdSelected_Click();
    return true;
}

void frmPreview::cmdAll_Click()
{
    m_preview.tickAll(true);
    m_rows.showTicks();
}

void frmPreview::cmdNone_Click()
{
    m_preview.tickAll(false);
    m_rows.showTicks();
}

// All alike, as the current one will be.
void frmPreview::cmdSelected_Click()
{
    const QModelIndex current = m_ui->listRows->currentIndex();
    if (!current.isValid())
        return;
    const bool on = !m_preview.isTicked(m_rows.place(current));
    for (const QModelIndex &row : m_ui->listRows->selectionModel()->selectedRows())
        m_preview.tick(m_rows.place(row), on);
    m_rows.showTicks();
}

void frmPreview::cmdShowSong_Click()
{
    guard([this] {
        const QModelIndex current = m_ui->listRows->currentIndex();
        const bool shown = current.isValid() && m_preview.showSong(m_rows.place(current));
        m_ui->lblTold->setText(shown ? u"This is the current song of the list now."_s
                                     : u"This song is not in the list that is displayed."_s);
    });
}

void frmPreview::cmbRule_Click(int rule)
{
    guard([&] {
        const Hourglass hourglass(m_desktop);
        m_preview.follow(rule);
    });
    m_rows.showTicks();
}

void frmPreview::cmdGoOn_Click()
{
    guard([this] {
        const QString objection = m_preview.objection();
        if (objection.isEmpty())
            accept();
        else
            m_desktop.MessageBox(objection, windowTitle(), Icon::Exclamation);
    });
}

} // namespace quaverly
