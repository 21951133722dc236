// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueSchema.h"
#include "platform/store/Sqlite.h"
#include "support/Errors.h"
#include "support/Files.h"
#include "support/store/StoreFixture.h"

namespace quaverly::test {

/** First fields of all rows in their order, joined by bars; a Null shows as "Null". */
[[nodiscard]] QString firstFields(dao::Recordset &rows);
[[nodiscard]] QString firstFields(dao::Database &db, const QString &sql,
                                  dao::RecordsetType type = dao::RecordsetType::Dynaset);

/** Lines of a file in tables/, each of that many fields between tabs; "(none)" is the empty field. */
[[nodiscard]] QList<QStringList> table(const QString &name, qsizetype fields);

/** As a text literal of the dialect. */
[[nodiscard]] QString quotedSql(QString text);

/** What SQLite says of a closed catalogue's file: "ok" for a sound one. */
[[nodiscard]] QString integrityOf(const QString &path);

/** A catalogue with eleven songs of awkward texts, three categories and two play lists. */
class SongCatalogue : public ::testing::Test
{
protected:
    void SetUp() override;
    dao::Database &db() { return store.db(); }
    QString keys(const QString &sql) { return firstFields(db(), sql); }
    std::unique_ptr<dao::Recordset> open(const QString &sql) { return db().OpenRecordset(sql); }
    /** All that the catalogue holds, as one text. */
    QString everything();

    StoreFixture store;
};

} // namespace quaverly::test
