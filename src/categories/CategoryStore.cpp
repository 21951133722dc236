// SPDX-License-Identifier: GPL-3.0-or-later
#include "categories/CategoryStore.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr char16_t AllCategories[] = u"Select * from tblCategoryDesc Order By CategoryDesc";

QString numbered(const QString &sql, qint64 number)
{
    return sql + QString::number(number);
}

QList<Category> listOf(dao::Recordset &rows)
{
    QList<Category> found;
    for (; !rows.atEOF(); rows.MoveNext())
        found.append({rows.value(u"CategoryNumber"_s).toLongLong(), rows.text(u"CategoryDesc"_s)});
    return found;
}

} // namespace

std::unique_ptr<dao::Recordset> CategoryStore::dynaset(const QString &sql) const
{
    return database().OpenRecordset(sql, dao::RecordsetType::Dynaset);
}

std::unique_ptr<dao::Recordset> CategoryStore::rowOf(qint64 number) const
{
    auto row = dynaset(numbered(u"Select * from tblCategoryDesc Where CategoryNumber="_s, number));
    if (row->isEmpty())
        throw dao::DaoError(dao::RecordDeleted, u"Record is deleted."_s);
    return row;
}

QList<Category> CategoryStore::categories() const
{
    return listOf(*database().OpenRecordset(QString::fromUtf16(AllCategories), dao::RecordsetType::Snapshot));
}

std::optional<qint64> CategoryStore::firstWith(QChar letter) const
{
    const auto rows = dynaset(QString::fromUtf16(AllCategories));
    rows->FindFirst(u"CategoryDesc like \""_s + letter + u"*\""_s);
    if (rows->NoMatch())
        return std::nullopt;
    return rows->value(u"CategoryNumber"_s).toLongLong();
}

bool CategoryStore::isTaken(const QString &name) const
{
    const auto rows = dynaset(QString::fromUtf16(AllCategories));
    rows->FindFirst(u"CategoryDesc=\""_s + name + u'"');
    return !rows->NoMatch();
}

void CategoryStore::requireCategory(qint64 number) const
{
    static_cast<void>(rowOf(number));
}

qint64 CategoryStore::add(const QString &name)
{
    const auto table = database().OpenRecordset(u"tblCategoryDesc"_s);
    table->AddNew();
    table->setValue(u"CategoryDesc"_s, name);
    table->Update();
    return table->LastModified().key;
}

void CategoryStore::rename(qint64 number, const QString &name)
{
    const auto row = rowOf(number);
    row->Edit();
    row->setValue(u"CategoryDesc"_s, name);
    row->Update();
}

void CategoryStore::remove(qint64 number)
{
    dao::Transaction transaction(database().workspace());
    const auto row = rowOf(number);
    database().Execute(numbered(u"Delete from tblCategoryID Where CategoryNumber="_s, number));
    row->Delete();
    transaction.commit();
}

qint64 CategoryStore::songsIn(qint64 number) const
{
    const auto count = database().OpenRecordset(
        numbered(
            u"Select count(*) as CountRecs from tblCategoryID Inner Join tblContacts On tblCategoryID.ID = "
            "tblContacts.RecordID Where CategoryNumber="_s,
            number),
        dao::RecordsetType::Snapshot);
    return count->value(u"CountRecs"_s).toLongLong();
}

QList<Category> CategoryStore::categoriesOf(qint64 song) const
{
    const auto rows = database().OpenRecordset(
        numbered(u"SELECT ID, CategoryDesc, tblCategoryID.CategoryNumber FROM tblCategoryID LEFT JOIN "
                 "tblCategoryDesc ON tblCategoryID.CategoryNumber = tblCategoryDesc.CategoryNumber WHERE "
                 "tblCategoryID.ID="_s,
                 song) +
            u" Order By CategoryDesc"_s,
        dao::RecordsetType::Snapshot);
    return listOf(*rows);
}

void CategoryStore::assign(qint64 song, qint64 number)
{
    requireCategory(number);
    const auto table = database().OpenRecordset(u"tblCategoryID"_s);
    table->AddNew();
    table->setValue(u"ID"_s, song);
    table->setValue(u"CategoryNumber"_s, number);
    table->Update();
}

void CategoryStore::unassign(qint64 song, qint64 number)
{
    const auto rows = dynaset(numbered(u"Select * from tblCategoryID Where ID="_s, song));
    rows->FindFirst(numbered(u"ID="_s, song) + numbered(u" AND CategoryNumber="_s, number));
    if (!rows->NoMatch())
        rows->Delete();
}

} // namespace quaverly
