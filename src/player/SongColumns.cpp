// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/SongColumns.h"

#include "platform/store/Dao.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr auto AllColumns = " * from "_L1;
constexpr auto AllOfSongs = " tblContacts.* from "_L1;

/** The columns as expressions: the store then reads them with the keys, not row by row. */
QString computedColumns(const QString &table)
{
    return u"%1PathName & %1FileName as SongPath, %1FileName & \"\" as SongFile, %1SongName & \"\" as "
           "SongTitle, %1Artist & \"\" as SongArtist"_s.arg(table);
}

QString computedSource(const QString &recordSource)
{
    QString statement = recordSource;
    if (const qsizetype place = statement.indexOf(AllOfSongs, 0, Qt::CaseInsensitive); place >= 0)
        return statement.replace(place, AllOfSongs.size(),
                                 u' ' + computedColumns(u"tblContacts."_s) + u" from "_s);
    return withColumns(recordSource, computedColumns({}));
}

} // namespace

QString withColumns(const QString &recordSource, const QString &columns)
{
    // The first one only: others belong to a filter.
    QString statement = recordSource;
    if (const qsizetype place = statement.indexOf(AllColumns, 0, Qt::CaseInsensitive); place >= 0)
        statement.replace(place, AllColumns.size(), u' ' + columns + u" from "_s);
    return statement;
}

struct DisplayedSongs::Rows
{
    std::unique_ptr<dao::Recordset> recordset;
    bool computed = false;
    int path = -1;
    int file = -1;
    int title = -1;
    int artist = -1;

    [[nodiscard]] QString text(qint64 row, int field) const
    {
        return recordset->valueAt(row, field).toString();
    }
};

DisplayedSongs::DisplayedSongs(dao::Database &database, const QString &recordSource)
    : m_rows(std::make_unique<Rows>())
{
    Rows &rows = *m_rows;
    rows.recordset = database.OpenRecordset(computedSource(recordSource), dao::RecordsetType::Snapshot);
    rows.computed = rows.recordset->fieldIndex(u"SongPath"_s) >= 0;
    const auto field = [&rows](const QString &computed, const QString &stored) {
        return rows.recordset->fieldIndex(rows.computed ? computed : stored);
    };
    rows.path = field(u"SongPath"_s, u"PathName"_s);
    rows.file = field(u"SongFile"_s, u"FileName"_s);
    rows.title = field(u"SongTitle"_s, u"SongName"_s);
    rows.artist = field(u"SongArtist"_s, u"Artist"_s);
}

DisplayedSongs::~DisplayedSongs() = default;

qint64 DisplayedSongs::count() const
{
    return m_rows->recordset->RecordCount();
}

DisplayedSong DisplayedSongs::song(qint64 row) const
{
    DisplayedSong song{m_rows->text(row, m_rows->path), m_rows->text(row, m_rows->file),
                       m_rows->text(row, m_rows->title), m_rows->text(row, m_rows->artist)};
    if (!m_rows->computed)
        song.path += song.fileName;
    return song;
}

} // namespace quaverly
