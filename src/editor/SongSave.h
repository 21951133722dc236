// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "editor/EditorFields.h"
#include "editor/FileSync.h"

#include <QDateTime>

#include <functional>

namespace dao {
class DaoError;
}

namespace quaverly {

class DisplayedSet;
struct EditorState;

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
    Services services;
    DisplayedSet &set;
    EditorState &state;
    std::function<QDateTime()> now;
};

/**
 * Writes the editor's texts: checks, the music file, the play lists and the record, in that order. The order
 * is meant: a save that is refused after the file was renamed leaves it renamed. A later one writes the row,
 * from there to yet another name if it says so; without one, giveUp() takes the file back.
 */
class SongSave final
{
public:
    explicit SongSave(SaveParts parts);

    /** Refusals and errors are told here. */
    [[nodiscard]] SaveResult save(const SongTexts &texts);

    /** Writes the texts to the record, or to a new one. @throws dao::DaoError. */
    void MoveFormToData(const SongTexts &texts);

    /** The record on the screen is left as it was stored: a file that a refused save renamed goes back.
     * @returns nothing when there was none; else what the user is to be told, mostly the empty text */
    [[nodiscard]] std::optional<QString> giveUp() { return m_files.giveUp(); }

private:
    [[nodiscard]] SaveResult checkAndWrite(const SongTexts &texts);
    [[nodiscard]] std::optional<SaveResult> checkPlace(const SongFile &typed);
    [[nodiscard]] std::optional<SaveResult> syncFile(const SongFile &typed);
    [[nodiscard]] std::optional<SaveResult> moveFile(const SongFile &row, const SongFile &typed);
    [[nodiscard]] std::optional<SaveResult> checkNames(const SongFile &typed);
    [[nodiscard]] std::optional<SaveResult> checkID(const SongTexts &texts);
    void write(const SongTexts &texts);
    void writeOrRetry(const SongTexts &texts);
    void writeFields(dao::Recordset &song, const SongTexts &texts);
    void assignShownCategory();
    [[nodiscard]] SaveResult refuse(const QString &title, const QString &text, bool exclamation,
                                    QLatin1StringView control = {});
    [[nodiscard]] SaveResult tell(const dao::DaoError &error, QLatin1StringView control = {});
    /** Where the record names its file; empty for a new one. */
    [[nodiscard]] SongFile rowFile();
    [[nodiscard]] qint64 rowID();

    SaveParts m_parts;
    FileSync m_files;
};

} // namespace quaverly
