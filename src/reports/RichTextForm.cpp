// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/RichTextForm.h"

#include "catalogue/Options.h"
#include "desktop/Guard.h"
#include "desktop/Printing.h"
#include "desktop/ScreenLook.h"
#include "platform/richtext/RichText.h"
#include "reports/ReportViewer.h"
#include "ui_RichTextForm.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QTextDocument>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr QSize FirstSize(820, 720);
constexpr int NarrowScreen = 800;
/** Half an inch: what a report's pages are made for. */
constexpr int PageMarginTwips = 720;
constexpr richtext::PrintMargins PageMargins{PageMarginTwips, PageMarginTwips, PageMarginTwips,
                                             PageMarginTwips};

QString saveQuestion(bool stats)
{
    const QString margins =
        stats
            ? QString()
            : u"You will need to set all margins (right, left, top, bottom) of the document to one-half inch "
              "after opening in the Word Processor in order for the report to display and print correctly."_s;
    return u"You are about to save this report to a Rich Text File (.rtf) that can be opened and printed "
           "with Microsoft Word, WordPad, or any Word Processor.\n"_s +
           margins + u"\n\nProceed?"_s;
}

} // namespace

RichTextForm::RichTextForm(Desktop &desktop, const Options &options, ReportState &state, QWidget *parent)
    : QWidget(parent, Qt::Window), m_ui(std::make_unique<Ui::RichTextForm>()), m_desktop(desktop),
      m_state(state)
{
    m_ui->setupUi(this);
    wire();
    Form_Load(options);
}

RichTextForm::~RichTextForm()
{
    letGo();
}

// The box lets go of a document, but doesn't own it.
void RichTextForm::letGo()
{
    std::unique_ptr<QTextDocument> report(std::exchange(m_report, nullptr));
    m_ui->RichTextBox->setDocument(nullptr);
    richtext::discard(std::move(report));
}

void RichTextForm::wire()
{
    connect(m_ui->cmdLock, &QPushButton::clicked, this, &RichTextForm::cmdLock_Click);
    connect(m_ui->cmdSave, &QPushButton::clicked, this, &RichTextForm::cmdSave_Click);
    connect(m_ui->cmdPreview, &QPushButton::clicked, this, &RichTextForm::cmdPreview_Click);
    connect(m_ui->cmdPrint, &QPushButton::clicked, this, &RichTextForm::cmdPrint_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &RichTextForm::cmdClose_Click);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &RichTextForm::windowFocused);
}

void RichTextForm::Form_Load(const Options &options)
{
    if (options.TabletActive)
        sizeForFingers(*this);
    resize(FirstSize.boundedTo(roomFor(*this)));
    if (options.TabletActive || screen()->availableSize().width() < NarrowScreen)
        setWindowState(windowState() | Qt::WindowFullScreen);
}

void RichTextForm::setReport(std::unique_ptr<QTextDocument> report)
{
    letGo();
    m_report = report.release();
    m_report->setParent(m_ui->RichTextBox);
    m_ui->RichTextBox->setDocument(m_report);
    Form_Activate();
}

void RichTextForm::Form_Activate()
{
    m_desktop.resetPointer();
    m_ui->RichTextBox->moveCursor(QTextCursor::Start);
    lock(true);
}

// Only coming back from another screen counts, not the end of one of its own boxes.
void RichTextForm::windowFocused(const QWindow *window)
{
    const QWindow *own = windowHandle();
    if (!window || !own || !isVisible())
        return;
    if (window != own && window->transientParent() != own)
        m_wasElsewhere = true;
    else if (window == own && std::exchange(m_wasElsewhere, false))
        Form_Activate();
}

// The caption is the state: it says what a click will do.
void RichTextForm::lock(bool locked)
{
    m_ui->RichTextBox->setReadOnly(locked);
    m_ui->cmdLock->setText(locked ? u"Edit"_s : u"Lock"_s);
    if (locked)
        m_ui->RichTextBox->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void RichTextForm::cmdLock_Click()
{
    lock(m_ui->cmdLock->text() != "Edit"_L1);
    m_ui->RichTextBox->setFocus();
}

void RichTextForm::cmdSave_Click()
{
    guarded(m_desktop, windowTitle(), [this] { save(); }, {.text = {}, .icon = Icon::None});
}

void RichTextForm::save()
{
    const bool stats = m_state.ReportKind == "Stats"_L1;
    if (m_desktop.MessageBox(saveQuestion(stats), u"Confirmation"_s, Icon::Question, Buttons::YesNo) !=
        Answer::Yes)
        return;
    std::optional<QString> name = m_desktop.ShowSaveDialog(
        {u"Save As"_s, u"rtf Files & (*.rtf)|*.rtf|All Files (*.*)|*.*"_s, {}, u"*.rtf"_s});
    if (!name)
        return;
    if (name->right(4).toLower() != ".rtf"_L1)
        *name += u".rtf"_s;
    {
        const Hourglass hourglass(m_desktop);
        richtext::saveRtf(*m_ui->RichTextBox->document(), *name, {.marginTwips = PageMarginTwips});
    }
    m_desktop.MessageBox(u"File "_s + *name + u" Saved"_s, windowTitle());
}

void RichTextForm::cmdPreview_Click()
{
    guarded(m_desktop, windowTitle(), [this] {
        previewDocument(m_desktop, u"Print Preview"_s, *m_ui->RichTextBox->document(), PageMargins);
    });
}

void RichTextForm::cmdPrint_Click()
{
    guarded(m_desktop, windowTitle(),
            [this] { printDocument(m_desktop, *m_ui->RichTextBox->document(), PageMargins); });
}

void RichTextForm::cmdClose_Click()
{
    close();
}

void RichTextForm::closeEvent(QCloseEvent *event)
{
    m_state.ReportKind.clear();
    QWidget::closeEvent(event);
}

} // namespace quaverly
