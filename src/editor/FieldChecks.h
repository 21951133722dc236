// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"
#include "editor/EditorFields.h"

/** What the editor says when a field is left: each check sees texts and facts only, and asks nobody. */
namespace quaverly {

/** What is to be done before the focus may go. */
struct Verdict
{
    enum class Ask {
        Nothing,
        /** Tell it; the focus stays. */
        Tell,
        /** OK and Cancel; Cancel takes `reverted`, and the focus stays. */
        OkCancel,
        /** The warning of that key; backing out takes `reverted`, and the focus stays. */
        Warning,
    };

    Ask ask = Ask::Nothing;
    QString text{};
    QString title{};
    Icon icon = Icon::None;
    /** The warning's entry in the options store. */
    const char16_t *key = nullptr;
    /** The focus stays after OK too. */
    bool stays = false;
    /** What the field takes after Cancel. */
    QString reverted{};
    /** What the field takes when it is let go; nothing for the text as it stands. */
    std::optional<QString> accepted{};
};

/** The record in the editor as it is stored, and what may happen to its file. */
struct EditedRow
{
    bool EditMode = false;
    bool FileRenameDisabled = false;
    /** Fields of the row as they were loaded; empty ones for a new record. */
    SongTexts texts{};
    /** The row's file is on the disk. */
    bool fileExists = false;
};

[[nodiscard]] Verdict checkDuration(const QString &text, const EditedRow &row);
[[nodiscard]] Verdict checkBPM(const QString &text);
[[nodiscard]] Verdict checkDate(const QString &text);
[[nodiscard]] Verdict checkFileName(const QString &fileName, const QString &pathName, const EditedRow &row);

/** Whether the text names a folder, as it stands and without its outer blanks. */
struct FolderFacts
{
    bool exists = false;
    bool trimmedExists = false;
};
[[nodiscard]] Verdict checkPathName(const QString &pathName, const QString &fileName, const EditedRow &row,
                                    FolderFacts folder);

/** The warning of a folder that was picked in the folder dialog. */
[[nodiscard]] Verdict checkPickedFolder(const QString &pathName, const EditedRow &row);

/** The text is no longer than its field, which would cut it. */
[[nodiscard]] bool fitsField(const QString &field, const QString &text);
/** What is told otherwise. */
[[nodiscard]] Verdict tooLong(const QString &what);

/** A name that the row bears already is accepted, whatever is in it: such files exist. */
[[nodiscard]] bool isAcceptedFileName(const QString &fileName, const QString &rowFileName);

/** From the root on, so that it means the same folder wherever the program was started. */
[[nodiscard]] bool isFullPath(const QString &path);

/** The new name of a file from what the user typed: the ending may be left out. */
[[nodiscard]] QString renamedFile(const QString &answer, const QString &fileName);

} // namespace quaverly
