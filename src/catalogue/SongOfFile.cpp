// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SongOfFile.h"

#include "platform/store/Dao.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString quoted(QString text)
{
    return u'"' + text.replace(u'"', u"\"\""_s) + u'"';
}

} // namespace

std::optional<FiledSong> songOfFile(dao::Database &database, const SongFile &file)
{
    const auto rows = database.OpenRecordset(
        u"Select RecordID, SongName, PathName, FileName from tblContacts Where FileName="_s +
            quoted(file.FileName) + u" And PathName="_s + quoted(file.PathName),
        dao::RecordsetType::Snapshot);
    for (; !rows->atEOF(); rows->MoveNext()) {
        // The store's comparison is blind to case, but files are told apart by it.
        if (rows->text(u"FileName"_s) == file.FileName && rows->text(u"PathName"_s) == file.PathName)
            return FiledSong{rows->value(u"RecordID"_s).toLongLong(), rows->text(u"SongName"_s)};
    }
    return {};
}

} // namespace quaverly
