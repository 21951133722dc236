// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/NameEdit.h"

#include "catalogue/Options.h"
#include "desktop/FileHelpers.h"
#include "desktop/MusicFolder.h"
#include "editor/EditorState.h"
#include "editor/LeaveGate.h"
#include "lists/PlayerState.h"
#include "songlist/DisplayedSet.h"
#include "songlist/ListCommands.h"
#include "ui_NameEdit.h"

using namespace Qt::StringLiterals;

// The buttons.
namespace quaverly {

namespace {

constexpr char16_t MusicFilter[] = u"Music files (*.mp3;*.m4a;*.wma;*.wav;*.flac;*.ogg;*.aac)|"
                                   "*.mp3;*.m4a;*.wma;*.wav;*.flac;*.ogg;*.aac|All Files (*.*)|*.*";
constexpr char16_t PictureFilter[] = u"Image files (*.jpg;*.gif;*.bmp)|*.jpg;*.gif;*.bmp|All Files (*.*)|*.*";

} // namespace

void NameEdit::wire()
{
    wireFields();
    const auto on = [this](QPushButton *button, auto handler) {
        connect(button, &QPushButton::clicked, this, handler);
    };
    on(m_ui->cmdBrowsePath, &NameEdit::cmdBrowsePath_Click);
    on(m_ui->cmdBrowseFile, &NameEdit::cmdBrowseFile_Click);
    on(m_ui->cmdSave, &NameEdit::cmdSave_Click);
    on(m_ui->cmdCancel, &NameEdit::reject);
    on(m_ui->cmdNext, &NameEdit::cmdNext_Click);
    on(m_ui->cmdPrev, &NameEdit::cmdPrev_Click);
    on(m_ui->cmdDelete, &NameEdit::cmdDelete_Click);
    on(m_ui->cmdAddNew, &NameEdit::cmdAddNew_Click);
    on(m_ui->cmdMakeDefault, &NameEdit::cmdMakeDefault_Click);
    on(m_ui->cmdClearDefault, &NameEdit::cmdClearDefault_Click);
    on(m_ui->cmdPlay, &NameEdit::cmdPlay_Click);
    on(m_ui->cmdAddToPlaylist, &NameEdit::cmdAddToPlaylist_Click);
    on(m_ui->cmdCategories, &NameEdit::cmdCategories_Click);
    on(m_ui->ImageKeyboard, &NameEdit::ImageKeyboard_Click);
    on(m_ui->cmdEditTags, [this] { handle([this] { m_parts.hooks.cmdEditTags(*this); }); });
    on(m_ui->cmdWebLookup, [this] { handle([this] { m_parts.hooks.cmdWebLookup(*this); }); });
    for (int slot = 1; slot <= PictureSlots; ++slot)
        on(findChild<QPushButton *>(u"cmdPicture%1"_s.arg(slot)), [this, slot] { showPicture(slot); });
    connect(m_ui->cmbHeader, &QComboBox::activated, this, &NameEdit::cmbHeader_Click);
}

void NameEdit::enableHooks()
{
    const NameEditHooks &hooks = m_parts.hooks;
    m_ui->cmdCategories->setEnabled(hooks.ShowCategoryAssign != nullptr);
    m_ui->cmdWebLookup->setEnabled(hooks.cmdWebLookup != nullptr);
    for (int slot = 1; slot <= PictureSlots; ++slot)
        findChild<QPushButton *>(u"cmdPicture%1"_s.arg(slot))->setEnabled(hooks.showPicture != nullptr);
}

std::optional<QString> NameEdit::GetFileName()
{
    return m_parts.desktop.ShowOpenDialog({u"Load Picture"_s, QString::fromUtf16(PictureFilter), {}, {}});
}

void NameEdit::cmdSave_Click()
{
    handle([this] {
        if (save() != SaveOutcome::Refused)
            unload();
    });
}

SaveOutcome NameEdit::save()
{
    const SaveResult result = m_save.save(texts());
    if (result.outcome == SaveOutcome::Saved)
        m_parts.state.RecordDirty = false;
    showCaption();
    if (!result.control.isEmpty())
        findChild<QWidget *>(result.control)->setFocus();
    return result.outcome;
}

bool NameEdit::saveForMove()
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
    setRecordDirty(false);
    return true;
}

void NameEdit::cmdNext_Click()
{
    step(&SongWalk::next);
}

void NameEdit::cmdPrev_Click()
{
    step(&SongWalk::previous);
}

void NameEdit::step(void (SongWalk::*goOn)())
{
    handleMove([&] {
        if (!mayStep() || !saveForMove())
            return;
        if (!m_parts.set.Data1().hasRows()) {
            tellNoRecords();
            unload();
            return;
        }
        (m_walk.*goOn)();
        showMode(true);
        loadExisting();
    });
}

bool NameEdit::mayStep()
{
    if (!m_parts.set.Data1().hasRows()) {
        tellNoRecords();
        return false;
    }
    if (!m_parts.state.RecordDirty || !text(u"SongName"_s).trimmed().isEmpty())
        return true;
    m_parts.desktop.MessageBox(
        u"You have made changes to the existing record, but it cannot be saved because "
        "it does not have a Song Name."_s,
        u"Critical data was not supplied"_s, Icon::Exclamation);
    return false;
}

void NameEdit::tellNoRecords()
{
    m_parts.desktop.MessageBox(
        u"There are no records to display in the current selection.  Add some records first."_s,
        u"No records to display"_s, Icon::Information);
}

void NameEdit::handleMove(const std::function<void()> &handler)
{
    handle([&] {
        try {
            handler();
        } catch (const dao::DaoError &) {
            // Nothing is shown: the record on the screen stays where it is.
            m_parts.desktop.resetPointer();
        }
    });
}

void NameEdit::cmdDelete_Click()
{
    handle([this] {
        if (!mayDelete())
            return;
        const bool others = m_walk.deleteCurrent();
        m_parts.set.recountMarks();
        if (others) {
            loadExisting();
            return;
        }
        setRecordDirty(false);
        unload();
    });
}

bool NameEdit::mayDelete()
{
    Desktop &desktop = m_parts.desktop;
    if (!m_parts.state.EditMode) {
        desktop.MessageBox(u"You cannot delete a record before you add it!"_s, u"New record not saved yet"_s,
                           Icon::Stop);
        return false;
    }
    if (text(u"SongName"_s).trimmed().isEmpty()) {
        desktop.MessageBox(u"Name is blank."_s, u"No record deleted"_s, Icon::Information);
        return false;
    }
    const QString song = m_parts.set.Data1().Recordset().text(u"SongName"_s).trimmed();
    return mayDeleteRecord(desktop, song);
}

void NameEdit::cmdAddNew_Click()
{
    handle([this] {
        if (!saveForMove())
            return;
        showMode(false);
        if (!m_template.isSet()) {
            clearScreen();
            setRecordDirty(false);
        } else if (m_template.find()) {
            loadFromTemplate();
        } else {
            // A template that is gone: the new record counts as changed, as one from a template does.
            clearScreen();
        }
        m_ui->txtSongName->setFocus();
    });
}

// Labels are data that the next record starts with.
void NameEdit::clearScreen()
{
    m_loaded.clear();
    for (const EditedField &edited : editedFields()) {
        if (!edited.field.endsWith("_Desc"_L1))
            setText(edited.field, {});
    }
    showUpdated({});
    showFileButtons();
}

void NameEdit::cmdMakeDefault_Click()
{
    handle([this] { m_template.make(m_parts.state.EditMode); });
}

void NameEdit::cmdClearDefault_Click()
{
    handle([this] { m_template.clear(); });
}

void NameEdit::cmdBrowseFile_Click()
{
    handle([this] {
        // A new record has no file yet that could be renamed.
        if (m_parts.state.EditMode && !m_ui->txtFileName->text().isEmpty())
            renameFile();
        else
            browseForFile();
    });
}

void NameEdit::browseForFile()
{
    const QString path = m_ui->txtPathName->text();
    const QString start = FolderExists(path) ? EnsureBackslash(path) : m_parts.catalogue.DatabaseFolder;
    const auto chosen = m_parts.desktop.ShowOpenDialog(
        {u"Select a music file"_s, QString::fromUtf16(MusicFilter), start, {}});
    if (!chosen)
        return;
    if (!FileExists(*chosen)) {
        m_parts.desktop.MessageBox(
            u"The file name you selected cannot be displayed in Quaverly, likely because "
            "it contains invalid characters in the file name.\r\n"
            "Rename this file on your computer first."_s,
            u"File name not changed"_s);
        return;
    }
    if (take(u"PathName"_s, u"Path name"_s, folderOf(*chosen)))
        take(u"FileName"_s, u"File name"_s, fileNameOf(*chosen));
}

void NameEdit::renameFile()
{
    const QString answer =
        m_parts.desktop.InputPrompt(u"Enter the new name for this file, then press the OK button.\r\n"
                                    "File will not be renamed until you Save this record.\r\n"
                                    "To rename to the Song Name, just press OK."_s,
                                    u"Rename existing file"_s, m_ui->txtSongName->text());
    if (answer.isEmpty())
        return;
    take(u"FileName"_s, u"File name"_s, renamedFile(answer, m_ui->txtFileName->text()));
    // From here, the name is looked at when the focus leaves it.
    m_ui->txtFileName->setFocus();
}

bool NameEdit::take(const QString &field, const QString &what, const QString &text)
{
    if (fitsField(field, text)) {
        setText(field, text);
        return true;
    }
    const Verdict refusal = tooLong(what);
    m_parts.desktop.MessageBox(refusal.text, refusal.title, refusal.icon);
    return false;
}

void NameEdit::cmdBrowsePath_Click()
{
    handle([this] {
        if (m_parts.MusicFolder.isEmpty())
            m_parts.MusicFolder = musicFolder();
        if (!m_ui->txtPathName->text().isEmpty())
            m_parts.MusicFolder = m_ui->txtPathName->text();
        const QString folder = m_parts.desktop.BrowseForFolder(u"Pick a folder to move this file into"_s,
                                                               u"Select a Folder"_s, m_parts.MusicFolder);
        if (folder.isEmpty() || !take(u"PathName"_s, u"Path name"_s, EnsureBackslash(folder)))
            return;
        static_cast<void>(settle(*m_ui->txtPathName, checkPickedFolder(m_ui->txtPathName->text(), row())));
    });
}

void NameEdit::cmdPlay_Click()
{
    handle([this] {
        const EditedSong song{text(u"PathName"_s), text(u"FileName"_s), m_parts.state.EditMode};
        m_parts.hooks.playFromEditor(song, {[this] {
                                                m_gate->setOpen(true);
                                                hide();
                                            },
                                            m_parts.hooks.hideNameList,
                                            [this] {
                                                show();
                                                m_gate->setOpen(false);
                                            }});
    });
}

void NameEdit::cmdAddToPlaylist_Click()
{
    handle([this] { m_playLists->follow(m_addToPlayList.addFromEditor(m_parts.set.Data1().Recordset())); });
}

void NameEdit::cmbHeader_Click()
{
    m_parts.player.CurrentPlayListName = m_ui->cmbHeader->currentText();
    showPlayListTip();
}

void NameEdit::showPlayListTip()
{
    const QString &name = m_parts.player.CurrentPlayListName;
    const QString tip =
        name.isEmpty() ? u"Select a Play List from the drop-down list."_s : u"Play List: "_s + name;
    m_ui->cmdAddToPlaylist->setToolTip(tip);
    m_ui->cmbHeader->setToolTip(tip);
}

void NameEdit::cmdCategories_Click()
{
    handle([this] { m_parts.hooks.ShowCategoryAssign(*this); });
}

void NameEdit::showPicture(int slot)
{
    handle([&] { m_parts.hooks.showPicture(*this, slot); });
}

void NameEdit::txtNotes_DblClick()
{
    if (!m_parts.hooks.showNotesForm)
        return;
    handle([this] {
        const QString before = text(u"Notes"_s);
        m_parts.hooks.showNotesForm(*this, before, [this, before](const QString &notes) {
            if (notes != before)
                setText(u"Notes"_s, notes);
            m_ui->txtNotes->moveCursor(QTextCursor::Start);
        });
    });
}

void NameEdit::ImageKeyboard_Click()
{
    if (m_parts.options.TabletActive)
        m_parts.desktop.ShowKeyboard();
}

} // namespace quaverly
