// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "editor/FieldGate.h"
#include "editor/SongSave.h"
#include "editor/SongWalk.h"
#include "editor/TemplateRecord.h"

#include <QObject>

namespace quaverly {

class SettingsRows;
class SongControls;

/** What the record on the screen works with. All of it outlives it. */
struct ShownRecordParts
{
    Services services;
    DisplayedSet &set;
    SettingsRows &settings;
    EditorState &state;
    /** Wall time. */
    std::function<QDateTime()> now;
    /** The record may be played. */
    bool canPlay = false;
    /** The screen shows another record, or one of the other kind. */
    std::function<void()> modeShown;
    std::function<void()> unload;
    Handle handle;
};

/**
 * The record that the editor shows: a row of the displayed set or a new one. Loads and saves it, goes to
 * others, deletes it, and starts new ones.
 */
class ShownRecord final : public QObject
{
    Q_OBJECT

public:
    ShownRecord(QWidget &screen, Ui::NameEdit &ui, SongControls &controls, ShownRecordParts parts);

    /** The one that the screen opens with. @throws dao::DaoError when it can't be read. */
    void loadScreen();
    void setDirty(bool dirty);
    /** As it is stored. */
    [[nodiscard]] EditedRow row() const;
    /** 0 while the record is not stored. */
    [[nodiscard]] qint64 recordID() const;

    /** Tells of refusals, and puts the focus where they lie. */
    SaveOutcome save();
    /** The screen closes: the list shows the record that was written last, or its last one. */
    void leave();

private:
    void loadNewRecord();
    void loadExisting();
    void loadFromTemplate();
    void LoadFormFromData();
    void showMode(bool existing);
    void showCaption();
    void showDates(const SongTexts &record);
    void giveUpRename();

    [[nodiscard]] bool saveForMove();
    void step(void (SongWalk::*goOn)());
    [[nodiscard]] bool mayStep();
    void tellNoRecords();
    void cmdDelete_Click();
    [[nodiscard]] bool mayDelete();
    void cmdAddNew_Click();
    /** The same as the editor's handle, for moving about in the set, whose failures are dropped. */
    void handleMove(const std::function<void()> &handler);

    QWidget &m_screen;
    Ui::NameEdit &m_ui;
    SongControls &m_controls;
    ShownRecordParts m_parts;
    SongSave m_save;
    SongWalk m_walk;
    TemplateRecord m_template;
};

} // namespace quaverly
