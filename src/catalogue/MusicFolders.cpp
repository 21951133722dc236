// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/MusicFolders.h"

#include "catalogue/Catalogue.h"
#include "desktop/FileHelpers.h"
#include "platform/text/Text.h"

#include <QMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString type()
{
    return u"MUSICFOLDER"_s;
}

/** "/home/anna/": songs that have only that much in common have no folder in common. */
constexpr int LeastSeparators = 3;

std::unique_ptr<dao::Recordset> rowsOf(dao::Database &database)
{
    return database.OpenRecordset(u"Select * from tblSettings Where Type='%1'"_s.arg(type()),
                                  dao::RecordsetType::Dynaset);
}

/** The whole path stands in the long text, since a name is cut at its width and blind to case. */
QString folderIn(const dao::Recordset &row)
{
    return NullToEmpty(row.value(u"Setting8"_s));
}

QString commonFolder(const QString &a, const QString &b)
{
    const auto [end, ignored] = std::ranges::mismatch(a, b);
    const qsizetype length = end - a.begin();
    return a.left(a.lastIndexOf(PathSeparator, std::max<qsizetype>(length - 1, 0)) + 1);
}

} // namespace

QStringList MusicFolders::all() const
{
    QStringList folders;
    for (const auto rows = rowsOf(*m_catalogue.CatalogueDb); !rows->atEOF(); rows->MoveNext())
        folders.append(folderIn(*rows));
    folders.sort();
    return folders;
}

void MusicFolders::remember(const QString &folder)
{
    const QString added = CleanFolder(EnsureBackslash(folder));
    for (const QString &known : all()) {
        if (added.startsWith(known))
            return;
        if (known.startsWith(added))
            forget(known);
    }
    const auto rows = rowsOf(*m_catalogue.CatalogueDb);
    rows->AddNew();
    rows->setValue(u"Type"_s, type());
    rows->setValue(u"Name"_s, added.left(255));
    rows->setValue(u"Setting8"_s, added);
    rows->Update();
}

void MusicFolders::forget(const QString &folder)
{
    const auto rows = rowsOf(*m_catalogue.CatalogueDb);
    for (; !rows->atEOF(); rows->MoveNext()) {
        if (folderIn(*rows) == folder)
            rows->Delete();
    }
}

QStringList MusicFolders::foldersOfSongs() const
{
    QMap<QString, QString> commonByStart;
    const auto rows = m_catalogue.CatalogueDb->OpenRecordset(
        u"Select Distinct PathName From tblContacts Where FileName > ''"_s, dao::RecordsetType::Snapshot);
    for (; !rows->atEOF(); rows->MoveNext()) {
        const QString folder = CleanFolder(rows->text(u"PathName"_s));
        if (!folder.startsWith(PathSeparator))
            continue;
        const QString start = folder.section(PathSeparator, 0, LeastSeparators - 1) + PathSeparator;
        const auto found = commonByStart.constFind(start);
        commonByStart[start] = found == commonByStart.cend() ? folder : commonFolder(*found, folder);
    }
    return commonByStart.values();
}

} // namespace quaverly
