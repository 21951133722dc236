// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueSchema.h"
#include "platform/store/Sqlite.h"
#include "support/QtPrinters.h"
#include "support/store/StoreFixture.h"

#include <gtest/gtest.h>

namespace quaverly::test {

/** The number that @p run throws, 0 when it throws nothing. */
template <typename Run> int errorOf(const Run &run)
{
    try {
        run();
    } catch (const dao::DaoError &error) {
        EXPECT_FALSE(error.description.isEmpty());
        return error.number;
    }
    return 0;
}

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

[[nodiscard]] QByteArray bytesOf(const QString &path);
void writeBytes(const QString &path, const QByteArray &bytes);

/** Runs in a forked child, as a user without rights where @p asNobody says so; gives back what it returned.
 */
[[nodiscard]] int inChild(bool asNobody, const std::function<int()> &run);

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
