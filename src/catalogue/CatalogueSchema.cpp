// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueSchema.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

// Outside any namespace, as Qt asks; a static library's resources are not found without it.
static void loadSchemaResource()
{
    Q_INIT_RESOURCE(schema);
}

namespace quaverly {

namespace {

/** "QVLY", which tells a catalogue from any other SQLite file. */
constexpr qint32 ApplicationId = 0x51564C59;

QString script(const QString &name)
{
    QFile file(u":/catalogue/"_s + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The catalogue's scripts are missing from the program.");
    return QString::fromUtf8(file.readAll());
}

} // namespace

dao::Schema catalogueSchema()
{
    loadSchemaResource();
    dao::Schema schema;
    schema.applicationId = ApplicationId;
    for (const QString &name : QDir(u":/catalogue"_s).entryList({u"0*.sql"_s}, QDir::Files, QDir::Name))
        schema.migrations.append(script(name));
    for (const QString &line : script(u"indexes.sql"_s).split(u'\n')) {
        if (line.startsWith("CREATE"_L1))
            schema.indexes.append(line);
    }
    // Marks are of the run, and of the settings only filters and notes are a user's work.
    schema.logged = {{u"tblContacts"_s, {u"Selected"_s}, {}},
                     {u"tblCategoryDesc"_s, {}, {}},
                     {u"tblCategoryID"_s, {}, {}},
                     {u"tblPlayListHeader"_s, {}, {}},
                     {u"tblPlayListDetail"_s, {}, {}},
                     {u"tblSettings"_s, {}, u"row.Type IN ('FILTER', 'NOTE')"_s}};
    return schema;
}

dao::Schema catalogueSchema(int version)
{
    dao::Schema schema = catalogueSchema();
    schema.migrations = schema.migrations.first(version);
    schema.indexes.clear();
    return schema;
}

} // namespace quaverly
