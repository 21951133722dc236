// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/NameEdit.h"

#include "catalogue/Options.h"
#include "catalogue/SongFields.h"
#include "desktop/FileHelpers.h"
#include "desktop/Icons.h"
#include "desktop/KeySender.h"
#include "desktop/ScreenLook.h"
#include "editor/ControlTexts.h"
#include "editor/EditorGenres.h"
#include "editor/EditorState.h"
#include "editor/LabelEdit.h"
#include "editor/LeaveGate.h"
#include "editor/OpenLink.h"
#include "songlist/CriteriaEdit.h"
#include "ui_NameEdit.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

// The fields: what they hold, their keys, and what is asked when they are left.
namespace quaverly {

namespace {

constexpr int MostStars = 5;

bool isWithModifier(const QKeyEvent &key)
{
    return (key.modifiers() &
            (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier | Qt::ShiftModifier)) != 0;
}

/** The list to complete from, shown below: completed in place, a genre would change while it is typed. */
void completeBelow(QComboBox &box)
{
    box.completer()->setCompletionMode(QCompleter::PopupCompletion);
    box.completer()->setCaseSensitivity(Qt::CaseInsensitive);
}

} // namespace

void NameEdit::setUpControls()
{
    for (const EditedField &edited : editedFields()) {
        auto *control = findChild<QWidget *>(edited.control);
        m_controls[edited.field] = control;
        const SongField *known = songField(QString(edited.field));
        auto *line = qobject_cast<QLineEdit *>(control);
        if (auto *box = qobject_cast<QComboBox *>(control))
            line = box->lineEdit();
        if (line != nullptr && known->width > 0)
            line->setMaxLength(known->width);
    }
    m_ui->cmbGenre->addItems(editorGenres());
    completeBelow(*m_ui->cmbGenre);
    m_ui->cmbGenre->setCurrentIndex(-1);
    for (int stars = 1; stars <= MostStars; ++stars)
        m_ui->cmbRating->addItem(QString(stars, u'*'));
    m_ui->cmbRating->addItem({});
    m_ui->cmbRating->setCompleter(nullptr);
    m_ui->cmbRating->setCurrentIndex(-1);
    QSizePolicy kept = m_ui->txtSongAddedToPlaylist->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    m_ui->txtSongAddedToPlaylist->setSizePolicy(kept);
    setUpLook();
}

void NameEdit::setUpLook()
{
    m_ui->cmdPlay->setIcon(icon(u"play"_s));
    m_ui->cmdDelete->setIcon(icon(u"delete"_s));
    m_ui->cmdAddNew->setIcon(icon(u"add"_s));
    QPalette linked = palette();
    linked.setColor(QPalette::Text, linked.color(QPalette::Link));
    for (int slot = 1; slot <= PictureSlots; ++slot) {
        findChild<QPushButton *>(u"cmdPicture%1"_s.arg(slot))->setIcon(icon(u"pictures"_s));
        m_controls.value(u"PicturePath%1"_s.arg(slot))->setPalette(linked);
    }
    m_ui->cmbHeader->setPalette(linked);
    for (QLabel *faint :
         {m_ui->lblNotes, m_ui->lblUpdated, m_ui->lblDateUpdated, m_ui->lblToday, m_ui->lblTodaysDate})
        scaleFont(*faint, CaptionScale);
    if (!m_parts.options.TabletActive)
        return;
    sizeForFingers(*this);
    for (auto *label : findChildren<LabelEdit *>())
        label->setMinimumHeight(0);
}

void NameEdit::wireFields()
{
    const auto changed = [this] { setRecordDirty(true); };
    for (QWidget *control : std::as_const(m_controls)) {
        if (auto *line = qobject_cast<QLineEdit *>(control)) {
            connect(line, &QLineEdit::textChanged, this, changed);
        } else if (auto *box = qobject_cast<QComboBox *>(control)) {
            connect(box, &QComboBox::editTextChanged, this, changed);
            connect(box, &QComboBox::activated, this, changed);
        }
    }
    connect(m_ui->txtNotes, &QPlainTextEdit::textChanged, this, changed);
    connect(m_ui->txtPathName, &QLineEdit::textChanged, this, &NameEdit::showFileButtons);
    connect(m_ui->txtFileName, &QLineEdit::textChanged, this, &NameEdit::showFileButtons);
    m_gate = new LeaveGate(*this,
                           {m_ui->txtDuration, m_ui->txtBPM, m_ui->txtPurchaseDate, m_ui->txtDate2,
                            m_ui->txtFileName, m_ui->txtPathName},
                           *m_ui->cmdCancel, [this](QWidget &field) { return field_Validate(field); });
    for (QWidget *control : findChildren<QWidget *>())
        control->installEventFilter(this);
}

void NameEdit::showFileButtons()
{
    const bool existing = m_parts.state.EditMode;
    const bool noPath = m_ui->txtPathName->text().isEmpty();
    m_ui->cmdBrowsePath->setText(existing && !noPath ? u"Move"_s : u"Browse"_s);
    m_ui->cmdBrowseFile->setText(existing && !m_ui->txtFileName->text().isEmpty() ? u"Rename"_s
                                                                                  : u"Browse"_s);
    m_ui->cmdEditTags->setEnabled(!noPath && m_parts.hooks.cmdEditTags);
}

bool NameEdit::eventFilter(QObject *watched, QEvent *event)
{
    auto *control = qobject_cast<QWidget *>(watched);
    // A list that has dropped down has its own keys.
    if (control == nullptr || control->window() != this)
        return QDialog::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::KeyPress:
        return Form_KeyDown(*control, *static_cast<QKeyEvent *>(event));
    case QEvent::MouseButtonPress: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        return mouse->button() == Qt::RightButton &&
               rightButtonDown(*control, mouse->globalPosition().toPoint());
    }
    case QEvent::MouseButtonDblClick:
        doubleClick(*control);
        return false;
    case QEvent::Wheel:
        // Scrolling past a box must not change the song.
        if (qobject_cast<QComboBox *>(control) == nullptr || control->hasFocus())
            return false;
        event->ignore();
        return true;
    default:
        return QDialog::eventFilter(watched, event);
    }
}

bool NameEdit::Form_KeyDown(QWidget &control, const QKeyEvent &key)
{
    const bool isEnter = isPlainEnter(key);
    const bool leavesField = &control != m_ui->txtNotes && &control != m_ui->cmbHeader;
    if (key.key() == Qt::Key_F2 && (enlargeNotes(control) || focusLabel(control)))
        return true;
    if (leavesField && (isEnter || (key.key() == Qt::Key_Down && !isWithModifier(key)))) {
        SendKeysInput(u"{Tab}"_s);
        return true;
    }
    if (leavesField && key.key() == Qt::Key_Up && !isWithModifier(key)) {
        SendKeysInput(u"+{Tab}"_s);
        return true;
    }
    if (isEnter && &control != m_ui->txtNotes)
        return true;
    auto *line = qobject_cast<QLineEdit *>(&control);
    return line != nullptr && capitalise(*line, key);
}

// Only the end of the text is looked at, wherever the cursor stands; that is meant.
bool NameEdit::capitalise(QLineEdit &field, const QKeyEvent &key) const
{
    const bool isName = &field == m_ui->txtSongName || &field == m_ui->txtArtist ||
                        &field == m_ui->txtComposer || &field == m_ui->txtAlbum;
    const QString typed = key.text();
    const bool isCommand =
        (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    if (!isName || isCommand || !m_ui->ProperFlag->isChecked() || typed.size() != 1 || typed < u"a"_s ||
        typed > u"z"_s)
        return false;
    if (!field.text().isEmpty() && !field.text().endsWith(u' '))
        return false;
    field.insert(typed.toUpper());
    return true;
}

/** The keyboard's double click. */
bool NameEdit::enlargeNotes(const QWidget &control)
{
    if (&control != m_ui->txtNotes)
        return false;
    txtNotes_DblClick();
    return true;
}

/** The keyboard's way to the label of a field that has one of its own. */
bool NameEdit::focusLabel(const QWidget &field)
{
    auto *label = findChild<LabelEdit *>(field.objectName() + u"_Desc"_s);
    if (label == nullptr)
        return false;
    label->setFocus(Qt::OtherFocusReason);
    label->selectAll();
    return true;
}

bool NameEdit::rightButtonDown(const QWidget &control, QPoint globalPlace)
{
    const QString name = control.objectName();
    if (name == u"cmdWebLookup"_s && m_parts.hooks.showWebLookupMenu) {
        handle([&] { m_parts.hooks.showWebLookupMenu(*this, globalPlace); });
        return true;
    }
    const QString stem = u"cmdPicture"_s;
    if (!name.startsWith(stem) || !m_parts.hooks.showPictureMenu)
        return false;
    handle([&] { m_parts.hooks.showPictureMenu(*this, name.mid(stem.size()).toInt(), globalPlace); });
    return true;
}

void NameEdit::doubleClick(const QWidget &control)
{
    if (&control == m_ui->txtNotes->viewport()) {
        // After the click has placed the cursor.
        QMetaObject::invokeMethod(this, &NameEdit::txtNotes_DblClick, Qt::QueuedConnection);
        return;
    }
    for (const QLineEdit *misc : {m_ui->txtMiscField1, m_ui->txtMiscField2, m_ui->txtMiscField3}) {
        if (&control == misc)
            handle([&] { OpenLink(m_parts.desktop, misc->text()); });
    }
}

EditedRow NameEdit::row() const
{
    EditedRow row{.EditMode = m_parts.state.EditMode,
                  .FileRenameDisabled = m_parts.options.FileRenameDisabled,
                  .texts = m_loaded};
    row.fileExists =
        row.EditMode && FileExists(m_loaded.value(u"PathName"_s) + m_loaded.value(u"FileName"_s));
    return row;
}

Verdict NameEdit::check(const QLineEdit &field) const
{
    const QString typed = field.text();
    const QString trimmed = typed.trimmed();
    if (&field == m_ui->txtDuration)
        return checkDuration(typed, row());
    if (&field == m_ui->txtBPM)
        return checkBPM(typed);
    if (&field == m_ui->txtFileName)
        return checkFileName(typed, m_ui->txtPathName->text(), row());
    if (&field == m_ui->txtPathName)
        return checkPathName(typed, m_ui->txtFileName->text(), row(),
                             {FolderExists(typed), FolderExists(trimmed)});
    return checkDate(typed);
}

Leave NameEdit::field_Validate(QWidget &field)
{
    auto *line = qobject_cast<QLineEdit *>(&field);
    Leave leave{.stays = false, .asked = true};
    handle([&] { leave = settle(*line, check(*line)); });
    return leave;
}

Leave NameEdit::settle(QLineEdit &field, const Verdict &verdict)
{
    Desktop &desktop = m_parts.desktop;
    bool goesOn = true;
    switch (verdict.ask) {
    case Verdict::Ask::Nothing:
        break;
    case Verdict::Ask::Tell:
        desktop.MessageBox(verdict.text, verdict.title, verdict.icon);
        break;
    case Verdict::Ask::OkCancel:
        goesOn =
            desktop.MessageBox(verdict.text, verdict.title, verdict.icon, Buttons::OkCancel) == Answer::Ok;
        break;
    case Verdict::Ask::Warning:
        goesOn = desktop.ShowWarning(verdict.text, QString::fromUtf16(verdict.key));
        break;
    }
    if (!goesOn)
        field.setText(verdict.reverted);
    else if (!verdict.stays && verdict.accepted)
        field.setText(*verdict.accepted);
    return {.stays = !goesOn || verdict.stays, .asked = verdict.ask != Verdict::Ask::Nothing};
}

} // namespace quaverly
