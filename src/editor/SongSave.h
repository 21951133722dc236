// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/EditorFields.h"
#include "editor/FileSync.h"

#include <QDateTime>

#include <functional>

namespace quaverly {

class Desktop;
class DisplayedSet;
struct EditorState;
struct Options;

/** What came of a save. */
enum class SaveOutcome {
    /** Told to the user; the record stays as it is on the screen. */
    Refused,
    /** There was nothing to write. */
    Unchanged,
    Saved,
};

struct SaveResult
{
    SaveOutcome outcome = SaveOutcome::Refused;
    /** The control that a refusal is about, if one is. */
    QLatin1StringView control{};
};

/** What saving works with. All of it outlives the save. */
struct SaveParts
{
    Desktop &desktop;
    DisplayedSet &set;
    Catalogue &catalogue;
    const Options &options;
    EditorState &state;
    std::function<QDateTime()> now;
};

/**
 * Writes the editor's texts: checks, the music file, the play lists and the record, in that order. The order
 * is meant: a save that is refused after the file was renamed leaves it renamed, and a later one writes the
 * row.
 */
class SongSave final
{
public:
    explicit SongSave(SaveParts parts);

    /** Refusals and errors are told here. */
    [[nodiscard]] SaveResult save(const SongTexts &texts);

    /** Writes the texts to the record, or to a new one. @throws dao::DaoError. */
    void MoveFormToData(const SongTexts &texts);

    /** True after MoveFormToData ran, false when a check refused the save. */
    [[nodiscard]] bool SaveAccepted() const { return m_saveAccepted; }

private:
    [[nodiscard]] SaveResult checkAndWrite(const SongTexts &texts);
    [[nodiscard]] std::optional<SaveResult> syncFile(const SongFile &typed);
    [[nodiscard]] std::optional<SaveResult> checkNames(const SongFile &typed);
    [[nodiscard]] std::optional<SaveResult> checkID(const SongTexts &texts);
    void write(const SongTexts &texts);
    void writeOrRetry(const SongTexts &texts);
    void writeFields(dao::Recordset &song, const SongTexts &texts);
    void assignShownCategory();
    [[nodiscard]] SaveResult refuse(const QString &title, const QString &text, bool exclamation,
                                    QLatin1StringView control = {});
    [[nodiscard]] SongFile rowFile();
    [[nodiscard]] qint64 rowID();

    SaveParts m_parts;
    FileSync m_files;
    bool m_saveAccepted = false;
};

} // namespace quaverly
