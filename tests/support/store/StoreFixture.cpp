// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/store/StoreFixture.h"

#include "catalogue/CatalogueSchema.h"

using namespace Qt::StringLiterals;

namespace quaverly::test {

Song::Song(const QString &name, const QString &artist)
{
    with(u"SongName"_s, name);
    if (!artist.isNull())
        with(u"Artist"_s, artist);
}

Song &Song::with(const QString &field, const QVariant &value)
{
    m_values[field] = value;
    return *this;
}

Song &Song::file(const QString &pathName, const QString &fileName)
{
    return with(u"PathName"_s, pathName).with(u"FileName"_s, fileName);
}

StoreFixture::StoreFixture()
    : m_engine(catalogueSchema()), m_settings(m_catalogue), m_optionsStore(path(u"options.ini"_s))
{
    m_catalogue.DatabaseFolder = folder();
    m_catalogue.DatabaseFile = path(QString::fromUtf16(CatalogueFileName));
    m_engine.CreateEmpty(m_catalogue.DatabaseFile);
    open();
}

StoreFixture::~StoreFixture()
{
    close();
}

void StoreFixture::open()
{
    m_catalogue.CatalogueDb = m_engine.OpenDatabase(m_catalogue.DatabaseFile);
    m_catalogue.ContactsTable = db().OpenRecordset(u"tblContacts"_s);
}

void StoreFixture::close()
{
    m_catalogue.ContactsTable.reset();
    m_catalogue.CatalogueDb.reset();
}

void StoreFixture::reopen()
{
    close();
    open();
}

qint64 StoreFixture::addRow(const QString &table, const QMap<QString, QVariant> &values)
{
    const auto rows = db().OpenRecordset(table);
    rows->AddNew();
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        rows->setValue(value.key(), value.value());
    rows->Update();
    return rows->LastModified().key;
}

qint64 StoreFixture::addCategory(const QString &name, const QList<qint64> &songs)
{
    const qint64 number = addRow(u"tblCategoryDesc"_s, {{u"CategoryDesc"_s, name}});
    for (const qint64 song : songs)
        addRow(u"tblCategoryID"_s, {{u"ID"_s, song}, {u"CategoryNumber"_s, number}});
    return number;
}

qint64 StoreFixture::addPlayList(const QString &name, const QList<qint64> &songs)
{
    const qint64 list = addRow(u"tblPlayListHeader"_s, {{u"ListName"_s, name}});
    int place = 0;
    for (const qint64 song : songs)
        addRow(u"tblPlayListDetail"_s,
               {{u"ListID"_s, list}, {u"ListTrackID"_s, ++place}, {u"ContactRecordID"_s, song}});
    return list;
}

QVariant StoreFixture::songValue(qint64 recordId, const QString &field)
{
    return valueOf(u"Select %1 from tblContacts Where RecordID = %2"_s.arg(field).arg(recordId));
}

QVariant StoreFixture::valueOf(const QString &sql)
{
    const auto rows = db().OpenRecordset(sql, dao::RecordsetType::Snapshot);
    return rows->isEmpty() ? QVariant() : rows->valueAt(0, 0);
}

QStringList StoreFixture::column(const QString &sql)
{
    const auto rows = db().OpenRecordset(sql, dao::RecordsetType::Snapshot);
    QStringList values;
    for (qint64 row = 0; row < rows->RecordCount(); ++row)
        values.append(rows->valueAt(row, 0).toString());
    return values;
}

} // namespace quaverly::test
