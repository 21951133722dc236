// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/MemoForm.h"

#include "catalogue/Options.h"
#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "desktop/Printing.h"
#include "desktop/ScreenLook.h"
#include "notes/NoteFormats.h"
#include "notes/NoteText.h"
#include "platform/richtext/RichText.h"
#include "ui_MemoForm.h"

#include <QFile>
#include <QLineEdit>
#include <QScopeGuard>
#include <QSignalBlocker>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int AutosaveMilliseconds = 30'000;

} // namespace

MemoForm::MemoForm(NoteBook book, NoteDrafts drafts, Desktop &desktop, const Options &options,
                   QWidget *parent)
    : QDialog(parent), handle(desktop, [this] { return windowTitle(); }),
      m_ui(std::make_unique<Ui::MemoForm>()), m_book(book), m_drafts(drafts), m_note(book, std::move(drafts)),
      m_desktop(desktop), m_search(desktop)
{
    m_ui->setupUi(this);
    const NoteFormats::Boxes boxes{*m_ui->chkBold, *m_ui->chkItalic, *m_ui->chkUnderline};
    m_formats = std::make_unique<NoteFormats>(*m_ui->txtNotes, boxes);
    m_autosave.setSingleShot(true);
    m_autosave.setInterval(AutosaveMilliseconds);
    Form_Load(options);
    wire();
}

MemoForm::~MemoForm()
{
    // The box that has the focus loses it with its screen, which is no longer there to hear of it.
    for (QWidget *control : findChildren<QWidget *>())
        control->disconnect(this);
}

void MemoForm::wire()
{
    connect(m_ui->cmbTitle, &QComboBox::activated, this, &MemoForm::cmbTitle_Click);
    connect(m_ui->cmbTitle->lineEdit(), &QLineEdit::editingFinished, this, &MemoForm::cmbTitle_Validate);
    connect(m_ui->cmbTitle->lineEdit(), &QLineEdit::textEdited, this, [this] { m_titleRefused = false; });
    connect(m_ui->cmdAdd, &QPushButton::clicked, this, &MemoForm::cmdAdd_Click);
    connect(m_ui->cmdDelete, &QPushButton::clicked, this, &MemoForm::cmdDelete_Click);
    connect(m_ui->cmdFind, &QPushButton::clicked, this, &MemoForm::cmdFind_Click);
    connect(m_ui->cmdFindNext, &QPushButton::clicked, this, &MemoForm::cmdFindNext_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &MemoForm::cmdCancel_Click);
    connect(m_ui->cmdPreview, &QPushButton::clicked, this, &MemoForm::cmdPreview_Click);
    connect(m_ui->cmdPrint, &QPushButton::clicked, this, &MemoForm::cmdPrint_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, &MemoForm::cmdExit_Click);
    connect(m_ui->cmdFontColor, &QPushButton::clicked, this,
            [this] { handle([this] { m_formats->cmdFontColor_Click(m_desktop); }); });
    connect(m_ui->cmdPicture, &QPushButton::clicked, this, &MemoForm::cmdPicture_Click);
    connect(m_ui->ImageKeyboard, &QPushButton::clicked, this, &MemoForm::ImageKeyboard_Click);
    connect(m_ui->txtNotes, &QTextEdit::textChanged, this, &MemoForm::txtNotes_Change);
    connect(m_ui->txtNotes, &NoteText::left, this, &MemoForm::saveQuietly);
    connect(&m_autosave, &QTimer::timeout, this, &MemoForm::saveQuietly);
    QTimer::singleShot(0, this, [this] { handle([this] { offerDrafts(); }); });
}

void MemoForm::Form_Load(const Options &options)
{
    // What is typed there is a title, not the beginning of another one.
    m_ui->cmbTitle->setCompleter(nullptr);
    m_ui->ImageKeyboard->setVisible(options.TabletActive);
    if (options.TabletActive)
        sizeForFingers(*this);
    try {
        m_book.repairTitles();
    } catch (const dao::DaoError &) {
        // On a full disk the notes can be read all the same.
    }
    showTitles(m_book.lastIndex());
}

void MemoForm::showTitles(int index)
{
    const QStringList titles = m_book.titles();
    const bool valid = index >= 0 && index < titles.size();
    fillTitles(titles, valid ? index : 0);
    showNote(m_ui->cmbTitle->currentText());
}

void MemoForm::fillTitles(const QStringList &titles, qsizetype index)
{
    const QSignalBlocker quiet(m_ui->cmbTitle);
    m_ui->cmbTitle->clear();
    m_ui->cmbTitle->addItems(titles);
    m_ui->cmbTitle->setCurrentIndex(static_cast<int>(index));
}

void MemoForm::showNote(const QString &title)
{
    const Hourglass hourglass(m_desktop);
    m_autosave.stop();
    showText(m_note.open(title));
    m_ui->lblUnsaved->hide();
    m_ui->txtNotes->setPlaceholderText(
        title.isEmpty() ? u"No note is open.  Choose one, or click Add New Note."_s : QString());
    for (QWidget *control : std::initializer_list<QWidget *>{
             m_ui->txtNotes, m_ui->cmbTitle, m_ui->cmdDelete, m_ui->cmdFind, m_ui->cmdFindNext, m_ui->chkBold,
             m_ui->chkItalic, m_ui->chkUnderline, m_ui->cmdFontColor, m_ui->cmdPicture, m_ui->cmdPreview,
             m_ui->cmdPrint})
        control->setEnabled(!title.isEmpty());
    m_formats->show();
}

void MemoForm::showText(const QString &rtf)
{
    const QSignalBlocker quiet(m_ui->txtNotes);
    const richtext::Reading reading = richtext::readRtfText(rtf, *m_ui->txtNotes->document());
    m_ui->txtNotes->document()->setModified(false);
    m_ui->txtNotes->moveCursor(QTextCursor::Start);
    m_ui->lblNotice->setVisible(!reading.isWhole || !reading.keepsAll);
}

void MemoForm::offerDrafts()
{
    for (const NoteDraft &draft : m_drafts.all()) {
        if (m_desktop.MessageBox(questionAbout(draft), windowTitle(), Icon::Question, Buttons::YesNo) ==
            Answer::Yes)
            showDraft(draft);
        else
            m_drafts.forget(draft);
    }
}

void MemoForm::showDraft(const NoteDraft &draft)
{
    saveNote();
    if (m_book.placeOf(draft.title) < 0)
        m_book.add(draft.title);
    showTitles(m_book.placeOf(draft.title));
    showText(draft.rtf);
    m_ui->txtNotes->document()->setModified(true);
    m_autosave.start();
}

// A note that was only looked at is never written again: it may hold more than is shown.
void MemoForm::saveNote()
{
    m_autosave.stop();
    if (m_note.title().isEmpty() || !m_ui->txtNotes->document()->isModified())
        return;
    const Hourglass hourglass(m_desktop);
    try {
        m_note.save(QString::fromLatin1(richtext::toRtf(*m_ui->txtNotes->document())));
    } catch (const dao::DaoError &error) {
        tellUnsaved(error.description);
        m_autosave.start();
        throw;
    }
    m_ui->txtNotes->document()->setModified(false);
    m_ui->lblUnsaved->hide();
}

// A box here would swallow the click that took the focus away.
void MemoForm::saveQuietly()
{
    // Cancel asks first whether anything is to be saved at all.
    if (m_ui->cmdCancel->hasFocus())
        return;
    handle([this] {
        try {
            saveNote();
        } catch (const dao::DaoError &) {
            // It stands on the screen, and the next way out tells it.
        }
    });
}

void MemoForm::tellUnsaved(const QString &text)
{
    m_ui->lblUnsaved->setText(text.simplified());
    m_ui->lblUnsaved->show();
}

void MemoForm::txtNotes_Change()
{
    if (!m_autosave.isActive())
        m_autosave.start();
}

void MemoForm::cmbTitle_Click(int index)
{
    const QString title = m_ui->cmbTitle->itemText(index);
    if (title == m_note.title())
        return;
    handle([&] {
        // Before any box: leaving it, the title of another note would be taken for a new one.
        const auto titleOfText = qScopeGuard(
            [this] { m_ui->cmbTitle->setCurrentIndex(m_ui->cmbTitle->findText(m_note.title())); });
        saveNote();
        showNote(title);
    });
}

void MemoForm::cmbTitle_Validate()
{
    const QString typed = m_ui->cmbTitle->currentText();
    // Enter reaches the box twice, by itself and through the list that it belongs to.
    if (typed == m_note.title() || m_titleRefused || m_ui->cmdCancel->hasFocus())
        return;
    handle([&] {
        const QString title = noteTitle(typed);
        const TitleFault fault = m_book.check(typed, m_note.title());
        if (fault == TitleFault::None)
            return takeTitle(title);
        if (fault == TitleFault::Blank)
            m_ui->cmbTitle->setEditText(m_note.title());
        m_titleRefused = true;
        QTimer::singleShot(0, this, [this] { m_titleRefused = false; });
        static_cast<void>(tellFault(fault, title));
        m_ui->cmbTitle->setFocus();
    });
}

void MemoForm::takeTitle(const QString &title)
{
    try {
        m_note.rename(title);
    } catch (const dao::DaoError &error) {
        m_ui->cmbTitle->setEditText(m_note.title());
        tellUnsaved(error.description + u"  The title \"%1\" is not saved."_s.arg(title));
        // On the way to something else, a box would swallow the click.
        if (!m_ui->cmbTitle->hasFocus())
            return;
        throw;
    }
    const QStringList titles = m_book.titles();
    fillTitles(titles, titles.indexOf(title));
}

bool MemoForm::tellFault(TitleFault fault, const QString &title)
{
    switch (fault) {
    case TitleFault::None:
        return false;
    case TitleFault::Blank:
        m_desktop.MessageBox(u"Note Title cannot be blank"_s, windowTitle(), Icon::Exclamation);
        return true;
    case TitleFault::Quotes:
        m_desktop.MessageBox(u"Cannot use quotes or apostrophes in Note Title"_s, windowTitle(),
                             Icon::Exclamation);
        return true;
    case TitleFault::Taken:
        m_desktop.MessageBox(u"A note with that same name ("_s + title +
                                 u") already exists.  Choose a different name."_s,
                             windowTitle(), Icon::Exclamation);
        return true;
    }
    return false;
}

void MemoForm::cmdAdd_Click()
{
    handle([this] {
        const QString typed = m_desktop.InputPrompt(u"Enter a Title for this new note."_s, u"New Note"_s);
        const TitleFault fault = m_book.check(typed);
        if (fault == TitleFault::Blank)
            return;
        saveNote();
        const QString title = noteTitle(typed);
        if (tellFault(fault, title))
            return;
        m_book.add(title);
        showTitles(m_book.placeOf(title));
        m_ui->txtNotes->setFocus();
    });
}

void MemoForm::cmdDelete_Click()
{
    handle([this] {
        if (m_note.title().isEmpty())
            return;
        if (m_desktop.MessageBox(u"Are you sure you want to delete this note?\r"_s, u"Confirmation"_s,
                                 Icon::Question, Buttons::YesNo) != Answer::Yes)
            return;
        const int index = m_ui->cmbTitle->findText(m_note.title());
        m_note.remove();
        showTitles(std::min(index, m_ui->cmbTitle->count() - 2));
    });
}

void MemoForm::cmdFind_Click()
{
    handle([this] { select(m_search.cmdFind(*m_ui->txtNotes->document())); });
}

void MemoForm::cmdFindNext_Click()
{
    handle(
        [this] { select(m_search.cmdFindNext(*m_ui->txtNotes->document(), m_ui->txtNotes->textCursor())); });
}

void MemoForm::select(const std::optional<QTextCursor> &hit)
{
    if (hit)
        m_ui->txtNotes->setTextCursor(*hit);
    m_ui->txtNotes->setFocus();
}

void MemoForm::cmdCancel_Click()
{
    handle([this] {
        if (m_desktop.MessageBox(u"Lose any changes?"_s, u"Confirmation"_s, Icon::Question, Buttons::YesNo) !=
            Answer::Yes)
            return;
        m_autosave.stop();
        // Whatever fails now, the screen goes.
        QDialog::reject();
        m_note.takeBack();
    });
}

void MemoForm::cmdExit_Click()
{
    reject();
}

void MemoForm::reject()
{
    const auto withWayOut = [](const dao::DaoError &error) {
        return error.description + u"\n\nCancel leaves the notes all the same."_s;
    };
    if (!guarded(m_desktop, windowTitle(), [this] { saveNote(); }, {.text = withWayOut, .icon = Icon::Stop}))
        return;
    static_cast<void>(handle([this] {
        try {
            m_book.storeLastIndex(m_ui->cmbTitle->findText(m_note.title()));
        } catch (const dao::DaoError &) {
            // Nobody has to stay here for the sake of where the next time begins.
        }
    }));
    QDialog::reject();
}

void MemoForm::cmdPicture_Click()
{
    handle([this] {
        const FileQuestion question{u"Picture to insert"_s,
                                    u"Pictures (*.jpg;*.gif;*.bmp)|*.jpg;*.jpeg;*.gif;*.bmp"_s,
                                    QStandardPaths::writableLocation(QStandardPaths::PicturesLocation),
                                    {}};
        const auto path = m_desktop.ShowOpenDialog(question);
        if (!path)
            return;
        QFile file(*path);
        if (!file.open(QIODevice::ReadOnly) || !m_ui->txtNotes->insertPictureFile(file.readAll()))
            m_desktop.MessageBox(u'"' + *path + u"\"\r\nThis file is no picture that can be inserted."_s,
                                 windowTitle(), Icon::Exclamation);
        m_ui->txtNotes->setFocus();
    });
}

void MemoForm::cmdPreview_Click()
{
    handle([this] { previewDocument(m_desktop, u"Print Preview"_s, *m_ui->txtNotes->document(), {}); });
}

void MemoForm::cmdPrint_Click()
{
    handle([this] { printDocument(m_desktop, *m_ui->txtNotes->document(), {}); });
}

void MemoForm::ImageKeyboard_Click()
{
    m_ui->txtNotes->setFocus();
    m_desktop.ShowKeyboard();
}

} // namespace quaverly
