// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "editor/FieldGate.h"

#include <QObject>

namespace quaverly {

class SongControls;
struct EditorState;

/** What the fields of the song's file work with. All of it outlives them. */
struct FileFieldsParts
{
    Services services;
    const EditorState &state;
    /** The folder chosen last in a folder dialog. */
    QString &LastMusicFolder;
    std::function<EditedRow()> row;
    std::function<void(const QString &path)> editTags;
    Handle handle;
};

/** Path and name of the song's file, and the buttons that choose, rename and move it and show its folder. */
class FileFields final : public QObject
{
    Q_OBJECT

public:
    FileFields(Ui::NameEdit &ui, SongControls &controls, FieldGate &gate, FileFieldsParts parts);

    /** What the buttons do depends on the record and on what stands in the fields. */
    void showButtons();

private:
    void cmdBrowseFile_Click();
    void cmdBrowsePath_Click();
    void cmdEditTags_Click();
    void browseForFile();
    void renameFile();
    /** Puts a picked text in, unless it is too long: that is told. */
    bool take(const QString &field, const QString &what, const QString &text);

    Ui::NameEdit &m_ui;
    SongControls &m_controls;
    FieldGate &m_gate;
    FileFieldsParts m_parts;
};

} // namespace quaverly
