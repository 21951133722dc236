// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/SongSave.h"

#include "catalogue/Options.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "editor/EditorState.h"
#include "editor/FieldChecks.h"
#include "platform/store/History.h"
#include "platform/text/Text.h"
#include "songlist/DisplayedSet.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Tries of a record that somebody else writes at the same time. */
constexpr int MostTries = 3;

SongFile fileOf(const SongTexts &texts)
{
    return {texts.value(u"PathName"_s), texts.value(u"FileName"_s)};
}

bool isBlank(const QString &text)
{
    return text.trimmed().isEmpty();
}

} // namespace

SongSave::SongSave(SaveParts parts) : m_parts(std::move(parts)), m_files(m_parts.services.catalogue)
{}

SaveResult SongSave::save(const SongTexts &texts)
{
    try {
        return checkAndWrite(texts);
    } catch (const dao::DaoError &error) {
        return tell(error);
    }
}

SaveResult SongSave::tell(const dao::DaoError &error, QLatin1StringView control)
{
    m_parts.services.desktop.resetPointer();
    m_parts.services.desktop.MessageBox(error.description, u"Error"_s);
    return {SaveOutcome::Refused, control};
}

SaveResult SongSave::checkAndWrite(const SongTexts &texts)
{
    EditorState &state = m_parts.state;
    if (m_parts.set.isDuplicateView())
        state.RecordDirty = false;
    if (isBlank(texts.value(u"SongName"_s)))
        return refuse(u"Song Name was not specified"_s, u"You cannot add a Song that does not have a Name."_s,
                      true, "txtSongName"_L1);
    if (!state.RecordDirty)
        return {SaveOutcome::Unchanged};
    const SongFile typed = fileOf(texts);
    if (const auto refused = checkPlace(typed))
        return *refused;
    if (!m_parts.services.options.FileRenameDisabled && state.EditMode) {
        if (const auto refused = syncFile(typed))
            return *refused;
    }
    if (const auto refused = checkNames(typed))
        return *refused;
    if (const auto refused = checkID(texts))
        return *refused;
    const Hourglass hourglass(m_parts.services.desktop);
    write(texts);
    return {SaveOutcome::Saved};
}

SaveResult SongSave::refuse(const QString &title, const QString &text, bool exclamation,
                            QLatin1StringView control)
{
    m_parts.services.desktop.MessageBox(text, title, exclamation ? Icon::Exclamation : Icon::None);
    return {SaveOutcome::Refused, control};
}

// Before the disk is touched: a file renamed to what another record names would be that record's, and this
// one would be left without.
std::optional<SaveResult> SongSave::checkPlace(const SongFile &typed)
{
    const SongFile row = rowFile();
    if (isBlank(typed.FileName) || typed == row)
        return std::nullopt;
    const QLatin1StringView changed = typed.FileName != row.FileName ? "txtFileName"_L1 : "txtPathName"_L1;
    if (!isBlank(typed.PathName) && typed.PathName != row.PathName && !isFullPath(typed.PathName))
        return refuse(u"Invalid Path Name"_s,
                      u"The Path name must be complete, beginning with \""_s + PathSeparator + u"\"."_s, true,
                      "txtPathName"_L1);
    const auto bearer = songOfFile(*m_parts.services.catalogue.CatalogueDb, typed);
    if (!bearer || (m_parts.state.EditMode && bearer->RecordID == rowID()))
        return std::nullopt;
    return refuse(u"File of another record"_s,
                  u"\"%1\" is the file of another record already, the song \"%2\".  Please choose another "
                  "name or folder."_s.arg(typed.path(), bearer->SongName),
                  true, changed);
}

// A file that is not on the disk, and a folder that is not there, don't stop here: the checks behind do.
std::optional<SaveResult> SongSave::syncFile(const SongFile &typed)
{
    const SongFile row = rowFile();
    if (typed == m_files.placeOf(rowID(), row))
        return std::nullopt;
    if (const auto refused = moveFile(row, typed))
        return refused;
    if (typed == row || isAcceptedFileName(typed.FileName, row.FileName))
        return std::nullopt;
    if (isBlank(typed.FileName))
        return refuse(u"Blank File Name"_s, u"File Name is blank.  Please correct it."_s, true,
                      "txtFileName"_L1);
    return refuse(u"Invalid File Name"_s, u"File Name contains illegal characters.  Please correct it."_s,
                  true, "txtFileName"_L1);
}

// By way of its old name, which the row bears, so that one note tells at every moment where the file is.
std::optional<SaveResult> SongSave::moveFile(const SongFile &row, const SongFile &typed)
{
    try {
        m_files.takeBack(rowID());
        if (typed != row && FileSync::canFollow(row, typed))
            m_files.follow(rowID(), row, typed);
        return std::nullopt;
    } catch (const dao::DaoError &error) {
        const bool isName = typed.PathName == row.PathName || error.number == dao::FileAlreadyExists;
        return tell(error, isName ? "txtFileName"_L1 : "txtPathName"_L1);
    }
}

std::optional<SaveResult> SongSave::checkNames(const SongFile &typed)
{
    if (!isBlank(typed.PathName) && !FolderExists(typed.PathName))
        return refuse(u"Invalid Path Name"_s, u"The Path name does not exist."_s, true, "txtPathName"_L1);
    if (isBlank(typed.PathName) && !isBlank(typed.FileName))
        return refuse(u"Invalid Path Name"_s,
                      u"The Path name cannot be blank if the File name is not blank."_s, false,
                      "txtPathName"_L1);
    if (isBlank(typed.FileName) && !isBlank(typed.PathName))
        return refuse(u"Invalid File Name"_s,
                      u"The File name cannot be blank if the Path name is not blank."_s, false,
                      "txtFileName"_L1);
    return std::nullopt;
}

// The song itself may carry its ID in several rows.
std::optional<SaveResult> SongSave::checkID(const SongTexts &texts)
{
    const QString id = texts.value(u"ID"_s).trimmed();
    if (id.isEmpty())
        return std::nullopt;
    const auto rows = m_parts.services.catalogue.CatalogueDb->OpenRecordset(
        u"SELECT ID, SongName from tblContacts Where ID="_s + quoted(id), dao::RecordsetType::Snapshot);
    if (rows->isEmpty())
        return std::nullopt;
    const QString known = rows->text(u"SongName"_s).trimmed();
    if (known.compare(texts.value(u"SongName"_s).trimmed(), Qt::CaseInsensitive) == 0)
        return std::nullopt;
    m_parts.services.desktop.MessageBox(
        u"You cannot have a Song with the same ID number as an existing Song."_s, u"Duplicate ID"_s,
        Icon::Stop);
    return SaveResult{SaveOutcome::Refused, "txtID"_L1};
}

void SongSave::write(const SongTexts &texts)
{
    EditorState &state = m_parts.state;
    const EditorState before = state;
    state.RecordSaved = true;
    try {
        // The song with its category or neither: else the next save would add the song a second time.
        dao::Transaction transaction(m_parts.services.catalogue.CatalogueDb->workspace());
        dao::History(*m_parts.services.catalogue.CatalogueDb)
            .ofSitting(std::exchange(state.PictureSitting, {}));
        writeOrRetry(texts);
        assignShownCategory();
        transaction.commit();
    } catch (...) {
        // Otherwise the next closing would take the record for saved, and let it go without a word.
        state = before;
        throw;
    }
    state.RecordJustSaved = true;
}

void SongSave::writeOrRetry(const SongTexts &texts)
{
    for (int tries = 1;; ++tries) {
        try {
            MoveFormToData(texts);
            return;
        } catch (const dao::DaoError &error) {
            if (error.number != dao::ChangedByAnother || tries == MostTries)
                throw;
            if (m_parts.set.Data1().Recordset().editing())
                m_parts.set.Data1().Recordset().Update();
        }
    }
}

void SongSave::MoveFormToData(const SongTexts &texts)
{
    EditorState &state = m_parts.state;
    const auto songs = m_parts.services.catalogue.CatalogueDb->OpenRecordset(u"tblContacts"_s);
    songs->setIndex(u"PrimaryKey"_s);
    const SongFile before = rowFile();
    if (state.EditMode) {
        songs->Seek(u"="_s, {rowID()});
        songs->Edit();
    } else {
        songs->AddNew();
        state.NewRecordSaved = true;
    }
    writeFields(*songs, texts);
    songs->Update();
    songs->setBookmark(songs->LastModified());
    state.CurrentRecordID = songs->value(u"RecordID"_s).toLongLong();
    // The note goes with the row's own transaction: a death leaves both or neither.
    if (state.EditMode && fileOf(texts) != before)
        m_files.rowWritten(state.CurrentRecordID);
}

void SongSave::writeFields(dao::Recordset &song, const SongTexts &texts)
{
    for (const EditedField &edited : editedFields()) {
        song.setValue(edited.field, valueToKeep(edited.kept, texts.value(edited.field)));
        if (edited.field != "FileSize"_L1)
            continue;
        if (const auto number = trackNumber(texts.value(u"TrackText"_s)))
            song.setValue(u"TrackNum"_s, *number);
    }
    song.setValue(u"DateUpdated"_s, m_parts.now());
    if (!m_parts.state.EditMode)
        song.setValue(u"DateAdded"_s, m_parts.now());
}

// A new song lands in the category on show.
void SongSave::assignShownCategory()
{
    const qint64 category = m_parts.set.view().category.number;
    if (!m_parts.state.NewRecordSaved || category == 0)
        return;
    const auto rows = m_parts.services.catalogue.CatalogueDb->OpenRecordset(u"tblCategoryID"_s);
    rows->AddNew();
    rows->setValue(u"ID"_s, m_parts.state.CurrentRecordID);
    rows->setValue(u"CategoryNumber"_s, category);
    rows->Update();
}

SongFile SongSave::rowFile()
{
    if (!m_parts.state.EditMode)
        return {};
    const dao::Recordset &row = m_parts.set.Data1().Recordset();
    return {row.text(u"PathName"_s), row.text(u"FileName"_s)};
}

qint64 SongSave::rowID()
{
    return m_parts.set.Data1().Recordset().value(u"RecordID"_s).toLongLong();
}

} // namespace quaverly
