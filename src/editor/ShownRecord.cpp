// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ShownRecord.h"

#include "catalogue/Options.h"
#include "desktop/FileHelpers.h"
#include "editor/EditorState.h"
#include "editor/SongControls.h"
#include "songlist/DisplayedSet.h"
#include "songlist/ListCommands.h"
#include "ui_NameEdit.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int MiscFields = 3;

} // namespace

ShownRecord::ShownRecord(QWidget &screen, Ui::NameEdit &ui, SongControls &controls, ShownRecordParts parts)
    : m_screen(screen), m_ui(ui), m_controls(controls), m_parts(std::move(parts)),
      m_save({.services = m_parts.services, .set = m_parts.set, .state = m_parts.state, .now = m_parts.now}),
      m_walk(m_parts.services.catalogue, m_parts.set.Data1()),
      m_template(m_parts.services.desktop, m_parts.services.options, m_parts.settings, m_parts.set.Data1())
{
    const auto on = [this](const QPushButton *button, auto handler) {
        connect(button, &QPushButton::clicked, this, [this, handler] { m_parts.handle(handler); });
    };
    connect(m_ui.cmdNext, &QPushButton::clicked, this, [this] { step(&SongWalk::next); });
    connect(m_ui.cmdPrev, &QPushButton::clicked, this, [this] { step(&SongWalk::previous); });
    on(m_ui.cmdDelete, [this] { cmdDelete_Click(); });
    on(m_ui.cmdAddNew, [this] { cmdAddNew_Click(); });
    on(m_ui.cmdMakeDefault, [this] { m_template.make(m_parts.state.EditMode); });
    on(m_ui.cmdClearDefault, [this] { m_template.clear(); });
}

void ShownRecord::loadScreen()
{
    if (!m_parts.state.EditMode) {
        loadNewRecord();
        return;
    }
    DataControl &displayed = m_parts.set.Data1();
    displayed.findRecord(displayed.Recordset().value(u"RecordID"_s).toLongLong());
    showMode(true);
    loadExisting();
}

void ShownRecord::loadExisting()
{
    LoadFormFromData();
    for (int number = 1; number <= MiscFields; ++number) {
        const QString field = u"MiscField%1_Desc"_s.arg(number);
        if (m_controls.text(field).isEmpty())
            m_controls.setText(field, u"Misc Field %1"_s.arg(number));
    }
    setDirty(false);
}

void ShownRecord::loadNewRecord()
{
    showMode(false);
    showDates({});
    if (m_template.isSet() && m_template.find())
        loadFromTemplate();
}

// Clearing these makes the new record a changed one at once, and leaves out more than the message about
// templates says: both are meant. The file is the other song's.
void ShownRecord::loadFromTemplate()
{
    LoadFormFromData();
    for (const auto &field : {u"SongName"_s, u"ID"_s, u"BPM"_s, u"PathName"_s, u"FileName"_s})
        m_controls.setText(field, {});
    m_ui.cmbGenre->setCurrentIndex(-1);
    m_ui.cmbGenre->clearEditText();
    showDates({});
}

void ShownRecord::LoadFormFromData()
{
    m_controls.show(textsOf(m_parts.set.Data1().Recordset()));
    showDates(m_controls.loaded());
    setDirty(false);
}

void ShownRecord::showDates(const SongTexts &record)
{
    m_ui.lblDateAdded->setText(record.value(u"DateAdded"_s));
    m_ui.lblAdded->setVisible(!m_ui.lblDateAdded->text().isEmpty());
    m_ui.lblDateUpdated->setText(record.value(u"DateUpdated"_s));
    m_ui.lblUpdated->setVisible(!m_ui.lblDateUpdated->text().isEmpty());
}

void ShownRecord::showMode(bool existing)
{
    m_parts.state.EditMode = existing;
    m_ui.cmdCategories->setVisible(existing);
    m_ui.cmdWebLookup->setVisible(existing);
    m_ui.cmdPlay->setEnabled(existing && m_parts.canPlay);
    showCaption();
    m_parts.modeShown();
}

void ShownRecord::showCaption()
{
    const QString caption =
        m_parts.state.EditMode ? u"View/Edit an Existing Record"_s : u"Add a New Record"_s;
    m_screen.setWindowTitle(m_parts.state.RecordDirty ? u"• "_s + caption : caption);
}

void ShownRecord::setDirty(bool dirty)
{
    m_parts.state.RecordDirty = dirty;
    showCaption();
}

EditedRow ShownRecord::row() const
{
    const SongTexts &loaded = m_controls.loaded();
    EditedRow row{.EditMode = m_parts.state.EditMode,
                  .FileRenameDisabled = m_parts.services.options.FileRenameDisabled,
                  .texts = loaded};
    row.fileExists = row.EditMode && FileExists(loaded.value(u"PathName"_s) + loaded.value(u"FileName"_s));
    return row;
}

qint64 ShownRecord::recordID() const
{
    return m_parts.state.EditMode ? m_parts.set.Data1().currentText(u"RecordID"_s).toLongLong() : 0;
}

SaveOutcome ShownRecord::save()
{
    const SaveResult result = m_save.save(m_controls.texts());
    if (result.outcome == SaveOutcome::Saved)
        m_parts.state.RecordDirty = false;
    showCaption();
    if (!result.control.isEmpty())
        m_screen.findChild<QWidget *>(result.control)->setFocus();
    return result.outcome;
}

/** True when the record on the screen may go: written, or nothing to write. */
bool ShownRecord::saveForMove()
{
    if (!m_parts.state.RecordDirty)
        return true;
    switch (save()) {
    case SaveOutcome::Refused:
        return false;
    case SaveOutcome::Unchanged:
        break;
    case SaveOutcome::Saved:
        m_walk.refreshAt(m_parts.state.CurrentRecordID);
        m_parts.state.NewRecordSaved = false;
    }
    setDirty(false);
    return true;
}

void ShownRecord::leave()
{
    giveUpRename();
    if (!m_parts.state.RecordSaved)
        return;
    m_parts.state.PictureChanged = false;
    m_walk.refreshForList(m_parts.state.CurrentRecordID);
}

// The record is to be as it was before the save that was refused; what came of it is settled here and not
// only at the next start, since until then the list would name a file that isn't there.
void ShownRecord::giveUpRename()
{
    const auto told = m_save.giveUp();
    if (!told)
        return;
    m_walk.refreshForList(m_parts.set.Data1().currentText(u"RecordID"_s).toLongLong());
    if (!told->isEmpty())
        m_parts.services.desktop.MessageBox(*told, u"Renamed files"_s, Icon::Exclamation);
}

void ShownRecord::step(void (SongWalk::*goOn)())
{
    handleMove([&] {
        if (!mayStep() || !saveForMove())
            return;
        if (!m_parts.set.Data1().hasRows()) {
            tellNoRecords();
            m_parts.unload();
            return;
        }
        (m_walk.*goOn)();
        showMode(true);
        loadExisting();
    });
}

bool ShownRecord::mayStep()
{
    if (!m_parts.set.Data1().hasRows()) {
        tellNoRecords();
        return false;
    }
    if (!m_parts.state.RecordDirty || !m_controls.text(u"SongName"_s).trimmed().isEmpty())
        return true;
    m_parts.services.desktop.MessageBox(
        u"You have made changes to the existing record, but it cannot be saved because "
        "it does not have a Song Name."_s,
        u"Critical data was not supplied"_s, Icon::Exclamation);
    return false;
}

void ShownRecord::tellNoRecords()
{
    m_parts.services.desktop.MessageBox(
        u"There are no records to display in the current selection.  Add some records first."_s,
        u"No records to display"_s, Icon::Information);
}

void ShownRecord::handleMove(const std::function<void()> &handler)
{
    m_parts.handle([&] {
        try {
            handler();
        } catch (const dao::DaoError &) {
            // Nothing is shown: the record on the screen stays where it is.
            m_parts.services.desktop.resetPointer();
        }
    });
}

void ShownRecord::cmdDelete_Click()
{
    if (!mayDelete())
        return;
    const bool others = m_walk.deleteCurrent();
    m_parts.set.recountMarks();
    if (others) {
        loadExisting();
        return;
    }
    setDirty(false);
    m_parts.unload();
}

bool ShownRecord::mayDelete()
{
    Desktop &desktop = m_parts.services.desktop;
    if (!m_parts.state.EditMode) {
        desktop.MessageBox(u"You cannot delete a record before you add it!"_s, u"New record not saved yet"_s,
                           Icon::Stop);
        return false;
    }
    if (m_controls.text(u"SongName"_s).trimmed().isEmpty()) {
        desktop.MessageBox(u"Name is blank."_s, u"No record deleted"_s, Icon::Information);
        return false;
    }
    return mayDeleteRecord(desktop, m_parts.set.Data1().Recordset().text(u"SongName"_s).trimmed());
}

void ShownRecord::cmdAddNew_Click()
{
    if (!saveForMove())
        return;
    showMode(false);
    const bool hadTemplate = m_template.isSet();
    if (hadTemplate && m_template.find()) {
        loadFromTemplate();
    } else {
        m_controls.clear();
        showDates({});
        m_parts.modeShown();
        // With a template that is gone, the new record counts as changed, as one from a template does.
        setDirty(hadTemplate);
    }
    m_ui.txtSongName->setFocus();
}

} // namespace quaverly
