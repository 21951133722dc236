// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/SongControls.h"

#include "catalogue/SongFields.h"
#include "editor/ControlTexts.h"
#include "editor/EditorGenres.h"

#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int MostStars = 5;

/** The list to complete from, shown below: completed in place, a genre would change while it is typed. */
void completeBelow(QComboBox &box)
{
    box.completer()->setCompletionMode(QCompleter::PopupCompletion);
    box.completer()->setCaseSensitivity(Qt::CaseInsensitive);
}

} // namespace

SongControls::SongControls(QWidget &screen, std::function<void()> changed)
    : m_changed(std::move(changed)), m_genre(*screen.findChild<QComboBox *>(u"cmbGenre"_s)),
      m_rating(*screen.findChild<QComboBox *>(u"cmbRating"_s)),
      m_notes(*screen.findChild<QPlainTextEdit *>(u"txtNotes"_s))
{
    for (const EditedField &edited : editedFields())
        m_controls[edited.field] = screen.findChild<QWidget *>(edited.control);
    limitLengths();
    fillLists();
    watch();
}

void SongControls::limitLengths()
{
    for (auto control = m_controls.cbegin(); control != m_controls.cend(); ++control) {
        const SongField *known = songField(control.key());
        auto *line = qobject_cast<QLineEdit *>(control.value());
        if (auto *box = qobject_cast<QComboBox *>(control.value()))
            line = box->lineEdit();
        if (line != nullptr && known->width > 0)
            line->setMaxLength(known->width);
    }
}

void SongControls::fillLists()
{
    m_genre.addItems(editorGenres());
    completeBelow(m_genre);
    m_genre.setCurrentIndex(-1);
    for (int stars = 1; stars <= MostStars; ++stars)
        m_rating.addItem(QString(stars, u'*'));
    m_rating.addItem({});
    m_rating.setCompleter(nullptr);
    m_rating.setCurrentIndex(-1);
}

void SongControls::watch()
{
    for (QWidget *control : std::as_const(m_controls)) {
        if (auto *line = qobject_cast<QLineEdit *>(control)) {
            QObject::connect(line, &QLineEdit::textChanged, line, m_changed);
        } else if (auto *box = qobject_cast<QComboBox *>(control)) {
            QObject::connect(box, &QComboBox::editTextChanged, box, m_changed);
            QObject::connect(box, &QComboBox::activated, box, m_changed);
        }
    }
    QObject::connect(&m_notes, &QPlainTextEdit::textChanged, &m_notes, m_changed);
}

QString SongControls::text(const QString &field) const
{
    QWidget *control = m_controls.value(field);
    // An untouched note is kept to the letter, with the line ends that it came with.
    if (control == &m_notes && !m_notes.document()->isModified() && m_loaded.contains(field))
        return m_loaded.value(field);
    return control == nullptr ? QString() : controlText(*control);
}

SongTexts SongControls::texts() const
{
    SongTexts all;
    for (const EditedField &edited : editedFields())
        all[edited.field] = text(edited.field);
    return all;
}

void SongControls::setText(const QString &field, const QString &text)
{
    QWidget *control = m_controls.value(field);
    if (control != nullptr)
        setControlText(*control, text);
    if (control == &m_notes)
        m_notes.document()->setModified();
    m_changed();
}

void SongControls::show(const SongTexts &record)
{
    m_loaded = record;
    for (auto control = m_controls.cbegin(); control != m_controls.cend(); ++control)
        setControlText(*control.value(), m_loaded.value(control.key()));
}

void SongControls::clear()
{
    m_loaded.clear();
    for (const EditedField &edited : editedFields()) {
        if (!edited.field.endsWith("_Desc"_L1))
            setText(edited.field, {});
    }
}

} // namespace quaverly
