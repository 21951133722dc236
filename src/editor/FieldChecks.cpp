// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/FieldChecks.h"

#include "catalogue/Options.h"
#include "catalogue/SongFields.h"
#include "desktop/FileHelpers.h"
#include "platform/text/Text.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr double MostSeconds = 59;
constexpr char16_t CanBeChanged[] = u"\r\nYou can change this behavior in the Options menu.";

Verdict refusal(const QString &text, const QString &title, const QString &reverted)
{
    return {.ask = Verdict::Ask::OkCancel, .text = text, .title = title, .stays = true, .reverted = reverted};
}

/** One that OK overrules: the text is kept and the save looks at it again. */
Verdict objection(const QString &text, const QString &title, const QString &reverted)
{
    Verdict verdict = refusal(text, title, reverted);
    verdict.stays = false;
    return verdict;
}

Verdict warning(const QString &text, const char16_t *key, const QString &reverted)
{
    return {.ask = Verdict::Ask::Warning,
            .text = text + QString::fromUtf16(CanBeChanged),
            .title = u"Warning"_s,
            .key = key,
            .reverted = reverted};
}

bool isDurationForm(const QString &text)
{
    constexpr qsizetype FirstColon = 2;
    constexpr qsizetype SecondColon = 5;
    return IsNumeric(text.left(2)) && IsNumeric(text.mid(3, 2)) && IsNumeric(text.right(2)) &&
           text.mid(FirstColon, 1) == u":"_s && text.mid(SecondColon, 1) == u":"_s;
}

/** Saving would rename or move the row's file. */
bool movesFile(const QString &pathName, const QString &fileName, const EditedRow &row)
{
    return !row.FileRenameDisabled && !fileName.trimmed().isEmpty() && !pathName.trimmed().isEmpty() &&
           row.fileExists;
}

QString storedIn(const EditedRow &row, const QString &field)
{
    return row.EditMode ? row.texts.value(field) : QString();
}

/** The row has such a text, and another one. */
bool changes(const QString &stored, const QString &text)
{
    return !stored.trimmed().isEmpty() && stored != text;
}

/** As a scan would name it: one separator at a time and none of the ways about. */
QString cleanFolder(const QString &path)
{
    // Behind a link the folder above is another one than the text says.
    const bool climbs = path.contains(u"/../"_s) || path.endsWith(u"/.."_s);
    return EnsureBackslash(climbs ? QFileInfo(path).canonicalFilePath() : QDir::cleanPath(path));
}

Verdict checkMissingFolder(const QString &pathName, const EditedRow &row)
{
    const QString trimmed = pathName.trimmed();
    Verdict verdict;
    if (!trimmed.isEmpty() && trimmed != row.texts.value(u"PathName"_s))
        verdict = objection(u"Invalid Path name. Folder \""_s + pathName + u"\" does not exist."_s,
                            u"Error"_s, storedIn(row, u"PathName"_s));
    if (trimmed != pathName)
        verdict.accepted = trimmed;
    return verdict;
}

/** Nobody sees them, and no music file would end in one. */
QString withoutEndBlanks(QString name)
{
    while (name.endsWith(u' '))
        name.chop(1);
    return name;
}

Verdict checkNewName(const QString &fileName, const QString &pathName, const EditedRow &row)
{
    const QString stored = row.texts.value(u"FileName"_s);
    if (!isAcceptedFileName(fileName, storedIn(row, u"FileName"_s))) {
        if (!fileName.trimmed().isEmpty())
            return objection(
                u'"' + fileName +
                    u"\" is not a valid file name.  Please change it or press the Cancel button."_s,
                u"Error - Invalid File Name"_s, storedIn(row, u"FileName"_s));
        return {};
    }
    if (row.EditMode && changes(stored, fileName) && movesFile(pathName, fileName, row))
        return warning(
            u"Changing the File name here will rename this file on your computer when you save this record."_s,
            keys::FileNameWarning, stored);
    return {};
}

} // namespace

Verdict checkDuration(const QString &text, const EditedRow &row)
{
    const QString stored = row.texts.value(u"Duration"_s);
    if (text.trimmed().isEmpty() || text == stored)
        return {};
    const QString example =
        u'"' + text + u"\" is not a valid duration.  An example of the correct format is 00:03:47"_s;
    if (!isDurationForm(text))
        return refusal(example, u"Error - Invalid Duration Format"_s, stored);
    // Minutes are not limited, which is meant: long recordings are entered that way.
    if (Val(text.right(2)) > MostSeconds)
        return refusal(u"There cannot be more than 59 seconds in the two right-most numbers of a song "
                       "duration.  Therefore, "_s +
                           example,
                       u"Error - Invalid Duration"_s, stored);
    return {};
}

Verdict checkBPM(const QString &text)
{
    if (text.trimmed().isEmpty() || IsNumeric(text))
        return {};
    return {.ask = Verdict::Ask::Tell,
            .text = u"Beats per minute must be a number"_s,
            .title = u"Invalid BPM"_s,
            .stays = true};
}

Verdict checkDate(const QString &text)
{
    if (text.isEmpty() || IsDate(text))
        return {};
    return {.ask = Verdict::Ask::Tell, .text = u"Invalid date"_s, .icon = Icon::Exclamation, .stays = true};
}

bool isAcceptedFileName(const QString &fileName, const QString &rowFileName)
{
    return IsValidFileName(fileName) || (isGreaterThanBlank(fileName) && fileName == rowFileName);
}

Verdict checkFileName(const QString &typed, const QString &pathName, const EditedRow &row)
{
    const QString stored = row.texts.value(u"FileName"_s);
    const QString fileName = typed == stored ? typed : withoutEndBlanks(typed);
    Verdict verdict = checkNewName(fileName, pathName, row);
    if (fileName != typed && !verdict.accepted)
        verdict.accepted = fileName;
    return verdict;
}

Verdict checkPathName(const QString &pathName, const QString &fileName, const EditedRow &row,
                      FolderFacts folder)
{
    const QString stored = row.texts.value(u"PathName"_s);
    if (row.EditMode && pathName == stored)
        return {};
    const QString typed = folder.exists ? pathName : pathName.trimmed();
    if (!typed.isEmpty() && typed != stored && !isFullPath(typed))
        return objection(u"Invalid Path name. \""_s + pathName +
                             u"\" is not complete: it must begin with \""_s + PathSeparator + u"\"."_s,
                         u"Error"_s, storedIn(row, u"PathName"_s));
    if (!folder.exists && !folder.trimmedExists)
        return checkMissingFolder(pathName, row);
    const QString named = cleanFolder(typed);
    if (!fitsField(u"PathName"_s, named))
        return tooLong(u"Path name"_s);
    Verdict verdict;
    if (row.EditMode && changes(stored, named) && movesFile(named, fileName, row))
        verdict = warning(u"Changing the Path name here will move this file to the specified Path/Folder on "
                          "your computer when you save this record."_s,
                          keys::PathNameWarning, stored);
    if (named != pathName)
        verdict.accepted = named;
    return verdict;
}

bool fitsField(const QString &field, const QString &text)
{
    const SongField *known = songField(field);
    return known == nullptr || known->width == 0 || text.size() <= known->width;
}

Verdict tooLong(const QString &what)
{
    return {.ask = Verdict::Ask::Tell,
            .text = u"The "_s + what + u" is longer than the catalogue can hold (255 characters)."_s,
            .title = what + u" too long"_s,
            .icon = Icon::Exclamation,
            .stays = true};
}

bool isFullPath(const QString &path)
{
    return path.startsWith(PathSeparator);
}

Verdict checkPickedFolder(const QString &pathName, const EditedRow &row)
{
    const QString stored = row.texts.value(u"PathName"_s);
    if (!row.EditMode || row.FileRenameDisabled || !changes(stored, pathName))
        return {};
    return warning(u"Changing the Path name here will move this file to the specified Path/Folder on your "
                   "computer disk when you save this record."_s,
                   keys::PathNameWarning, stored);
}

QString renamedFile(const QString &typed, const QString &fileName)
{
    QString answer = withoutEndBlanks(typed);
    constexpr qsizetype Ending = 4;
    if (answer.isEmpty() || answer.right(Ending) == fileName.right(Ending))
        return answer;
    const QString longer = fileName.right(Ending + 1);
    if (longer.compare(".flac"_L1, Qt::CaseInsensitive) == 0)
        return answer + u".flac"_s;
    if (longer.startsWith(u'.'))
        return answer + longer;
    if (const QString shorter = fileName.right(Ending - 1); shorter.startsWith(u'.'))
        return answer.endsWith(shorter) ? answer : answer + shorter;
    // A name without an ending lends none.
    return fileName.right(Ending).startsWith(u'.') ? answer + fileName.right(Ending) : answer;
}

} // namespace quaverly
