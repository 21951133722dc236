// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/FieldKeys.h"

#include "desktop/KeySender.h"
#include "editor/LabelEdit.h"
#include "songlist/CriteriaEdit.h"
#include "ui_NameEdit.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

bool isWithModifier(const QKeyEvent &key)
{
    return (key.modifiers() &
            (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier | Qt::ShiftModifier)) != 0;
}

} // namespace

FieldKeys::FieldKeys(QWidget &screen, Ui::NameEdit &ui, FieldActions actions)
    : QObject(&screen), m_screen(screen), m_ui(ui), m_actions(std::move(actions))
{
    for (QWidget *control : screen.findChildren<QWidget *>())
        control->installEventFilter(this);
}

bool FieldKeys::eventFilter(QObject *watched, QEvent *event)
{
    auto *control = qobject_cast<QWidget *>(watched);
    // A list that has dropped down has its own keys.
    if (control == nullptr || control->window() != &m_screen)
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        return keyDown(*control, *static_cast<QKeyEvent *>(event));
    case QEvent::MouseButtonPress: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        return mouse->button() == Qt::RightButton &&
               m_actions.showMenu(*control, mouse->globalPosition().toPoint());
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
        return false;
    }
}

bool FieldKeys::keyDown(QWidget &control, const QKeyEvent &key)
{
    const bool isEnter = isPlainEnter(key);
    const bool leavesField = &control != m_ui.txtNotes && &control != m_ui.cmbHeader;
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
    if (isEnter && &control != m_ui.txtNotes)
        return true;
    auto *line = qobject_cast<QLineEdit *>(&control);
    return line != nullptr && capitalise(*line, key);
}

// Only the end of the text is looked at, wherever the cursor stands; that is meant.
bool FieldKeys::capitalise(QLineEdit &field, const QKeyEvent &key) const
{
    const bool isName = &field == m_ui.txtSongName || &field == m_ui.txtArtist ||
                        &field == m_ui.txtComposer || &field == m_ui.txtAlbum;
    const QString typed = key.text();
    const bool isCommand =
        (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    if (!isName || isCommand || !m_ui.ProperFlag->isChecked() || typed.size() != 1 || typed < u"a"_s ||
        typed > u"z"_s)
        return false;
    if (!field.text().isEmpty() && !field.text().endsWith(u' '))
        return false;
    field.insert(typed.toUpper());
    return true;
}

/** The keyboard's double click. */
bool FieldKeys::enlargeNotes(const QWidget &control)
{
    if (&control != m_ui.txtNotes)
        return false;
    m_actions.enlargeNotes();
    return true;
}

/** The keyboard's way to the label of a field that has one of its own. */
bool FieldKeys::focusLabel(const QWidget &field)
{
    auto *label = m_screen.findChild<LabelEdit *>(field.objectName() + u"_Desc"_s);
    if (label == nullptr)
        return false;
    label->setFocus(Qt::OtherFocusReason);
    label->selectAll();
    return true;
}

void FieldKeys::doubleClick(const QWidget &control)
{
    if (&control == m_ui.txtNotes->viewport()) {
        // After the click has placed the cursor.
        QMetaObject::invokeMethod(
            this, [this] { m_actions.enlargeNotes(); }, Qt::QueuedConnection);
        return;
    }
    for (const QLineEdit *misc : {m_ui.txtMiscField1, m_ui.txtMiscField2, m_ui.txtMiscField3}) {
        if (&control == misc)
            m_actions.openLink(misc->text());
    }
}

} // namespace quaverly
