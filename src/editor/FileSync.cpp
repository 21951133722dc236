// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/FileSync.h"

#include "desktop/FileHelpers.h"
#include "editor/FieldChecks.h"
#include "platform/shell/FileMove.h"
#include "platform/store/Dao.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

bool FileSync::canFollow(const SongFile &row, const SongFile &typed)
{
    return !row.FileName.isEmpty() && !typed.FileName.isEmpty() && FileExists(row.path()) &&
           FolderExists(typed.PathName) && isAcceptedFileName(typed.FileName, row.FileName);
}

void FileSync::follow(qint64 recordId, const SongFile &row, const SongFile &typed)
{
    // On a disk that is blind to case, the file itself is found under the new spelling.
    if (FileExists(typed.path()) && !shell::isOwnNameInOtherCapitals(row.path(), typed.path()))
        return;
    m_renamed = recordId;
    m_notes.moveFile(recordId, row, typed);
    m_notes.renameTracks(row.path(), typed.path());
}

std::optional<QString> FileSync::giveUp()
{
    const auto renamed = std::exchange(m_renamed, std::nullopt);
    if (!renamed || !m_notes.has(*renamed))
        return std::nullopt;
    return m_notes.giveUp(*renamed);
}

} // namespace quaverly
