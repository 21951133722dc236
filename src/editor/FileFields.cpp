// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/FileFields.h"

#include "catalogue/Catalogue.h"
#include "desktop/FileHelpers.h"
#include "desktop/MusicFolder.h"
#include "editor/EditorState.h"
#include "editor/SongControls.h"
#include "platform/shell/MusicKinds.h"
#include "ui_NameEdit.h"

using namespace Qt::StringLiterals;

namespace quaverly {

FileFields::FileFields(Ui::NameEdit &ui, SongControls &controls, FieldGate &gate, FileFieldsParts parts)
    : m_ui(ui), m_controls(controls), m_gate(gate), m_parts(std::move(parts))
{
    const auto on = [this](const QPushButton *button, void (FileFields::*handler)()) {
        connect(button, &QPushButton::clicked, this,
                [this, handler] { m_parts.handle([this, handler] { (this->*handler)(); }); });
    };
    on(m_ui.cmdBrowseFile, &FileFields::cmdBrowseFile_Click);
    on(m_ui.cmdBrowsePath, &FileFields::cmdBrowsePath_Click);
    on(m_ui.cmdEditTags, &FileFields::cmdEditTags_Click);
    connect(m_ui.txtPathName, &QLineEdit::textChanged, this, &FileFields::showButtons);
    connect(m_ui.txtFileName, &QLineEdit::textChanged, this, &FileFields::showButtons);
}

void FileFields::showButtons()
{
    const bool existing = m_parts.state.EditMode;
    const bool noPath = m_ui.txtPathName->text().isEmpty();
    m_ui.cmdBrowsePath->setText(existing && !noPath ? u"Move"_s : u"Browse"_s);
    m_ui.cmdBrowseFile->setText(existing && !m_ui.txtFileName->text().isEmpty() ? u"Rename"_s : u"Browse"_s);
    m_ui.cmdEditTags->setEnabled(!noPath);
}

void FileFields::cmdBrowseFile_Click()
{
    // A new record has no file yet that could be renamed.
    if (m_parts.state.EditMode && !m_ui.txtFileName->text().isEmpty())
        renameFile();
    else
        browseForFile();
}

void FileFields::browseForFile()
{
    const QString path = m_ui.txtPathName->text();
    const QString start =
        FolderExists(path) ? EnsureBackslash(path) : m_parts.services.catalogue.DatabaseFolder;
    const auto chosen = m_parts.services.desktop.ShowOpenDialog(
        {u"Select a music file"_s, shell::musicFileFilter(false), start, {}});
    if (!chosen)
        return;
    if (!FileExists(*chosen)) {
        m_parts.services.desktop.MessageBox(
            u"The file name you selected cannot be displayed in Quaverly, likely because "
            "it contains invalid characters in the file name.\r\n"
            "Rename this file on your computer first."_s,
            u"File name not changed"_s);
        return;
    }
    if (take(u"PathName"_s, u"Path name"_s, folderOf(*chosen)))
        take(u"FileName"_s, u"File name"_s, fileNameOf(*chosen));
}

void FileFields::renameFile()
{
    const QString answer = m_parts.services.desktop.InputPrompt(
        u"Enter the new name for this file, then press the OK button.\r\n"
        "File will not be renamed until you Save this record.\r\n"
        "To rename to the Song Name, just press OK."_s,
        u"Rename existing file"_s, m_ui.txtSongName->text());
    if (answer.isEmpty())
        return;
    take(u"FileName"_s, u"File name"_s, renamedFile(answer, m_ui.txtFileName->text()));
    // From here, the name is looked at when the focus leaves it.
    m_ui.txtFileName->setFocus();
}

void FileFields::cmdBrowsePath_Click()
{
    if (m_parts.LastMusicFolder.isEmpty())
        m_parts.LastMusicFolder = musicFolder();
    if (!m_ui.txtPathName->text().isEmpty())
        m_parts.LastMusicFolder = m_ui.txtPathName->text();
    const QString folder = m_parts.services.desktop.BrowseForFolder(
        u"Pick a folder to move this file into"_s, u"Select a Folder"_s, m_parts.LastMusicFolder);
    if (folder.isEmpty() || !take(u"PathName"_s, u"Path name"_s, EnsureBackslash(folder)))
        return;
    m_gate.settle(*m_ui.txtPathName, checkPickedFolder(m_ui.txtPathName->text(), m_parts.row()));
}

void FileFields::cmdEditTags_Click()
{
    const QString folder = m_ui.txtPathName->text().trimmed();
    if (folder.isEmpty() || !FolderExists(folder))
        return;
    const QString path = EnsureBackslash(folder) + m_ui.txtFileName->text();
    if (FileExists(path))
        m_parts.editTags(path);
    else
        m_parts.services.desktop.MessageBox(u"There is no such file:\n"_s + path, u"Edit Tags"_s,
                                            Icon::Exclamation);
}

bool FileFields::take(const QString &field, const QString &what, const QString &text)
{
    if (fitsField(field, text)) {
        m_controls.setText(field, text);
        return true;
    }
    const Verdict refusal = tooLong(what);
    m_parts.services.desktop.MessageBox(refusal.text, refusal.title, refusal.icon);
    return false;
}

} // namespace quaverly
