// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ModalScreen.h"
#include "editor/FieldChecks.h"
#include "editor/SongSave.h"
#include "editor/SongWalk.h"
#include "editor/TemplateRecord.h"
#include "player/AddToPlayListBox.h"
#include "player/PlayCommands.h"

#include <functional>
#include <memory>

class QComboBox;
class QLineEdit;

namespace Ui {
class NameEdit;
}

namespace quaverly {

class DisplayedSet;
class LeaveGate;
class MainScreen;
class NameEdit;
class SettingsRows;
struct EditorState;
struct Leave;

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
    std::function<void(NameEdit &)> cmdEditTags;
    std::function<void(NameEdit &)> cmdWebLookup;
    std::function<void(NameEdit &, QPoint globalPlace)> showWebLookupMenu;
};

/** What the editor works with. All of it outlives the screen. */
struct NameEditParts
{
    Desktop &desktop;
    DisplayedSet &set;
    MainScreen &mainScreen;
    Catalogue &catalogue;
    SettingsRows &settings;
    Options &options;
    PlayerState &player;
    EditorState &state;
    /** The folder chosen last in a folder dialog. */
    QString &MusicFolder;
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

    /** Asks for a picture's file; nothing on cancel. */
    [[nodiscard]] std::optional<QString> GetFileName();
    /** Closes the screen when it was the button that asked for it. */
    void cmdSave_Click();
    [[nodiscard]] bool SaveAccepted() const { return m_save.SaveAccepted(); }

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
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void Form_Load();
    [[nodiscard]] bool Form_Unload();
    void giveUpRename();
    [[nodiscard]] bool mayLoseChanges();
    void wire();
    void wireFields();
    void setUpControls();
    void setUpLook();
    void loadPlayLists();
    void enableHooks();
    void hideForList();
    void placeScreen();
    void loadScreen();
    void loadNewRecord();
    void LoadFormFromData();
    void loadExisting();
    void loadFromTemplate();
    void clearScreen();
    void showMode(bool existing);
    void showCaption();
    void showUpdated(const QString &date);
    void showFileButtons();
    void showPlayListTip();

    [[nodiscard]] bool Form_KeyDown(QWidget &control, const QKeyEvent &key);
    [[nodiscard]] bool rightButtonDown(const QWidget &control, QPoint globalPlace);
    void doubleClick(const QWidget &control);
    [[nodiscard]] bool enlargeNotes(const QWidget &control);
    [[nodiscard]] bool focusLabel(const QWidget &field);
    [[nodiscard]] bool capitalise(QLineEdit &field, const QKeyEvent &key) const;
    [[nodiscard]] Leave field_Validate(QWidget &field);
    [[nodiscard]] Verdict check(const QLineEdit &field) const;
    [[nodiscard]] Leave settle(QLineEdit &field, const Verdict &verdict);
    [[nodiscard]] EditedRow row() const;

    void cmdBrowseFile_Click();
    void cmdBrowsePath_Click();
    void browseForFile();
    void renameFile();
    void cmdNext_Click();
    void cmdPrev_Click();
    void step(void (SongWalk::*goOn)());
    [[nodiscard]] bool mayStep();
    void tellNoRecords();
    void cmdDelete_Click();
    [[nodiscard]] bool mayDelete();
    void cmdAddNew_Click();
    void cmdMakeDefault_Click();
    void cmdClearDefault_Click();
    void cmdPlay_Click();
    void cmdAddToPlaylist_Click();
    void cmbHeader_Click();
    void cmdCategories_Click();
    void txtNotes_DblClick();
    void ImageKeyboard_Click();
    void showPicture(int slot);

    /** Runs a handler; whatever it throws is shown under the screen's title. */
    void handle(const std::function<void()> &handler);
    /** The same for moving about in the set, whose failures are dropped. */
    void handleMove(const std::function<void()> &handler);
    [[nodiscard]] SaveOutcome save();
    /** True when the record on the screen may go: written, or nothing to write. */
    [[nodiscard]] bool saveForMove();
    void unload();
    [[nodiscard]] SongTexts texts() const;
    /** Puts a picked text in, unless it is too long: that is told. */
    bool take(const QString &field, const QString &what, const QString &text);

    std::unique_ptr<Ui::NameEdit> m_ui;
    NameEditParts m_parts;
    SongSave m_save;
    SongWalk m_walk;
    TemplateRecord m_template;
    PlayListStore m_lists;
    AddToPlayList m_addToPlayList;
    std::unique_ptr<AddToPlayListBox> m_playLists;
    /** By their fields. */
    QMap<QString, QWidget *> m_controls;
    LeaveGate *m_gate = nullptr;
    /** The record's texts as they were loaded. */
    SongTexts m_loaded;
    bool m_unloaded = false;
    bool m_assignCategory = false;
};

} // namespace quaverly
