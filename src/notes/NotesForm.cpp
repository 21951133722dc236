// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/NotesForm.h"

#include "catalogue/Options.h"
#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "desktop/Printing.h"
#include "desktop/ScreenLook.h"
#include "notes/NotesPlace.h"
#include "ui_NotesForm.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

NotesForm::NotesForm(const QString &text, Desktop &desktop, const Options &options, OptionsStore &store,
                     Closed closed, QWidget *parent)
    : QDialog(parent), handle(desktop, [this] { return windowTitle(); }),
      m_ui(std::make_unique<Ui::NotesForm>()), m_desktop(desktop), m_options(options), m_store(store),
      m_search(desktop), m_closed(std::move(closed))
{
    m_ui->setupUi(this);
    Form_Load(text);
    wire();
}

NotesForm::~NotesForm() = default;

void NotesForm::wire()
{
    connect(m_ui->cmdFind, &QPushButton::clicked, this, &NotesForm::cmdFind_Click);
    connect(m_ui->cmdFindNext, &QPushButton::clicked, this, &NotesForm::cmdFindNext_Click);
    connect(m_ui->cmdPreview, &QPushButton::clicked, this, &NotesForm::cmdPreview_Click);
    connect(m_ui->cmdPrint, &QPushButton::clicked, this, &NotesForm::cmdPrint_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, &NotesForm::cmdExit_Click);
    connect(m_ui->ImageKeyboard, &QPushButton::clicked, this, &NotesForm::ImageKeyboard_Click);
}

void NotesForm::Form_Load(const QString &text)
{
    m_ui->txtNotes->setPlainText(text);
    m_ui->txtNotes->document()->setModified(false);
    m_ui->ImageKeyboard->setVisible(m_options.TabletActive);
    if (m_options.TabletActive) {
        sizeForFingers(*this);
        QFont tablet = m_ui->txtNotes->font();
        tablet.setFamily(u"Tahoma"_s);
        m_ui->txtNotes->setFont(tablet);
    }
    restoreNotesPlace(*this, m_store, m_options);
}

void NotesForm::done(int result)
{
    handle([this] { saveNotesPlace(*this, m_store, m_options); });
    QDialog::done(result);
    if (const Closed closed = std::exchange(m_closed, nullptr))
        closed(m_ui->txtNotes->toPlainText(), m_ui->txtNotes->document()->isModified());
}

void NotesForm::cmdFind_Click()
{
    handle([this] { select(m_search.cmdFind(*m_ui->txtNotes->document())); });
}

void NotesForm::cmdFindNext_Click()
{
    handle(
        [this] { select(m_search.cmdFindNext(*m_ui->txtNotes->document(), m_ui->txtNotes->textCursor())); });
}

void NotesForm::select(const std::optional<QTextCursor> &hit)
{
    if (hit)
        m_ui->txtNotes->setTextCursor(*hit);
    m_ui->txtNotes->setFocus();
}

void NotesForm::cmdExit_Click()
{
    accept();
}

void NotesForm::cmdPreview_Click()
{
    handle([this] { previewDocument(m_desktop, u"Print Preview"_s, *m_ui->txtNotes->document(), {}); });
}

void NotesForm::cmdPrint_Click()
{
    handle([this] { printDocument(m_desktop, *m_ui->txtNotes->document(), {}); });
}

void NotesForm::ImageKeyboard_Click()
{
    m_ui->txtNotes->setFocus();
    m_desktop.ShowKeyboard();
}

} // namespace quaverly
