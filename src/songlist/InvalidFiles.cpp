// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/InvalidFiles.h"

#include "platform/store/Dao.h"

using namespace Qt::StringLiterals;

namespace quaverly {

void listInvalidFiles(dao::Database &database, const std::vector<qint64> &songs)
{
    dao::Transaction transaction(database.workspace());
    database.Execute(u"Delete * from tblOrphanFileNames"_s);
    const auto rows = database.OpenRecordset(u"Select * from tblOrphanFileNames"_s);
    for (const qint64 song : songs) {
        rows->AddNew();
        rows->setValue(u"RecordIdOrphan"_s, song);
        rows->Update();
    }
    transaction.commit();
}

} // namespace quaverly
