// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "desktop/Guard.h"
#include "desktop/ModalScreen.h"
#include "player/PlayCommands.h"

#include <QDateTime>

#include <functional>
#include <memory>

namespace Ui {
class NameEdit;
}

namespace quaverly {

class DisplayedSet;
class FieldGate;
class FileFields;
class MainScreen;
class NameEdit;
class PictureButtons;
class PlayListChoice;
class SettingsRows;
class ShownRecord;
class SongControls;
struct EditorState;

/** What the editor leads to. A button whose hook is empty is disabled. */
struct NameEditHooks
{
    std::function<void(const EditedSong &, const EditorScreens &)> playFromEditor;
    std::function<void()> hideNameList;
    /** The category screen for the displayed set's current row. */
    std::function<void(NameEdit &)> ShowCategoryAssign;
    /** The same after a new record was saved, when the editor is gone. */
    std::function<void()> assignCategoryOnAdd;
    /** The enlarged notes; calls back with their text when they are closed. */
    std::function<void(NameEdit &, const QString &notes, std::function<void(const QString &)> closed)>
        showNotesForm;
    /** A picture of slot 1 to PictureSlots, by its button or its menu. */
    std::function<void(NameEdit &, int slot)> showPicture;
    std::function<void(NameEdit &, int slot, QPoint globalPlace)> showPictureMenu;
    /** The tags of that file, beside what the fields show. */
    std::function<void(NameEdit &, const QString &path)> editTags;
    std::function<void(NameEdit &)> cmdWebLookup;
    std::function<void(NameEdit &, QPoint globalPlace)> showWebLookupMenu;
};

/** What the editor works with. All of it outlives the screen. */
struct NameEditParts
{
    Services services;
    DisplayedSet &set;
    MainScreen &mainScreen;
    SettingsRows &settings;
    PlayerState &player;
    EditorState &state;
    /** The folder chosen last in a folder dialog. */
    QString &LastMusicFolder;
    /** Wall time. */
    std::function<QDateTime()> now;
    NameEditHooks hooks;
};

/**
 * Shows, changes and adds song records, one at a time, over the displayed set. Which of it, EditMode tells
 * when the screen is made. Shown modally over the main screen, which is disabled meanwhile; it goes when it
 * is closed.
 */
class NameEdit final : public ModalScreen
{
    Q_OBJECT

public:
    /** @throws dao::DaoError when the record can't be read. */
    explicit NameEdit(NameEditParts parts, QWidget *parent = nullptr);
    ~NameEdit() override;

    void showModally(std::function<void()> closed);

    /** Closes the screen when it was the button that asked for it. */
    void cmdSave_Click();

    /** Text of the control that shows a field of the song. */
    [[nodiscard]] QString text(const QString &field) const;
    /** As if it had been typed: the record counts as changed. */
    void setText(const QString &field, const QString &text);
    void setRecordDirty(bool dirty);
    [[nodiscard]] EditorState &state() { return m_parts.state; }
    /** 0 while the record is not stored. */
    [[nodiscard]] qint64 recordID() const;

    /** Escape and the close box: as the Cancel button. */
    void reject() override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void build();
    void wire();
    void setUpLook();
    void enableHooks();
    void hideForList();
    void placeScreen();
    void Form_Load();
    [[nodiscard]] bool Form_Unload();
    [[nodiscard]] bool mayLoseChanges();
    void unload();

    [[nodiscard]] bool showMenu(const QWidget &control, QPoint globalPlace);
    void cmdPlay_Click();
    void cmdCategories_Click();
    void txtNotes_DblClick();
    void ImageKeyboard_Click();

    GuardedHandler handle;
    std::unique_ptr<Ui::NameEdit> m_ui;
    NameEditParts m_parts;
    std::unique_ptr<SongControls> m_controls;
    std::unique_ptr<FieldGate> m_gate;
    std::unique_ptr<FileFields> m_files;
    std::unique_ptr<PlayListChoice> m_playLists;
    std::unique_ptr<ShownRecord> m_record;
    std::unique_ptr<PictureButtons> m_pictures;
    bool m_unloaded = false;
    bool m_assignCategory = false;
};

} // namespace quaverly
