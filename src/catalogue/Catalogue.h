// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Dao.h"

#include <QString>

#include <memory>

namespace quaverly {

/** The program's name as messages and titles show it. */
inline constexpr char16_t ProductName[] = u"Quaverly";

/** The open catalogue. Everything that reads it goes through here, since the file may be exchanged. */
struct Catalogue
{
    /** Null before the start and while the file is being exchanged. */
    std::unique_ptr<dao::Database> CatalogueDb;
    /** The whole song table, open for the run; its Index is the field that Locate searches. */
    std::unique_ptr<dao::Recordset> ContactsTable;
    /** Full path. Blank in a fresh process. */
    QString DatabaseFile;
    /** Ends in a separator. Anchors the column file, the picture folders and the temporary list. */
    QString DatabaseFolder;
    /** True while another catalogue is being opened: closing the main screen then ends no process. */
    bool SwitchingCatalogue = false;
};

/** What a catalogue without its indexes means to the user. */
[[nodiscard]] inline QString slowerText()
{
    return QStringLiteral(
        "There is no room for all indexes of the database, so that sorting and searching are slower.  "
        "Make room on the disk and start Quaverly again: it then builds them.");
}

} // namespace quaverly
