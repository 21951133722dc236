// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/SongPreview.h"

#include "platform/store/History.h"
#include "songlist/DataControl.h"
#include "songlist/ListTexts.h"

#include <QLocale>
#include <QSet>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QStringList textsOf(dao::Database &database, qint64 song, const QStringList &fields)
{
    return dao::History(database)
        .presentTexts(QString::fromUtf16(SongTable), song, fields)
        .value_or(QStringList());
}

} // namespace

SongPreview::SongPreview(const Ground &ground, const QString &sentence, std::vector<PlannedChange> rows,
                         std::size_t obstructed)
    : m_ground(ground)
{
    setPlan(sentence, std::move(rows), obstructed);
}

void SongPreview::setPlan(const QString &sentence, std::vector<PlannedChange> rows, std::size_t obstructed)
{
    m_rows = std::move(rows);
    setRows(sentence, m_rows.size(), obstructed);
}

ChangedRowTexts SongPreview::row(int row) const
{
    const PlannedChange &change = plan(row);
    return {change.record.isEmpty() ? songAndArtist(m_ground.database, change.song) : change.record,
            change.field, change.before, change.after};
}

bool SongPreview::showSong(int row)
{
    return plan(row).song != 0 && m_ground.displayed.findRecord(plan(row).song);
}

std::vector<qint64> SongPreview::tickedSongs() const
{
    std::vector<qint64> songs;
    songs.reserve(static_cast<std::size_t>(ticked()));
    for (int row = obstructed(); row < count(); ++row) {
        if (isTicked(row))
            songs.push_back(plan(row).song);
    }
    return songs;
}

DeletionPreview::DeletionPreview(const Ground &ground) : SongPreview(ground)
{
    std::vector<PlannedChange> plans = plansOfDisplayed(ground);
    const QString songs = countedSongs(static_cast<qint64>(plans.size()));
    setPlan(u"Delete from the database: %1.  No music file is touched."_s.arg(songs), std::move(plans));
}

ChangedRowTexts DeletionPreview::row(int row) const
{
    ChangedRowTexts texts = SongPreview::row(row);
    texts.field = u"Song"_s;
    texts.before = fileOfSong(ground().database, plan(row).song);
    texts.after = isTicked(row) ? u"Deleted"_s : u"Stays"_s;
    return texts;
}

std::vector<PlannedChange> plansOfDisplayed(const SongPreview::Ground &ground)
{
    dao::Recordset &songs = ground.displayed.Recordset();
    const qint64 count = songs.RecordCount();
    QSet<qint64> seen;
    seen.reserve(count);
    std::vector<PlannedChange> plans;
    plans.reserve(static_cast<std::size_t>(count));
    for (qint64 position = 0; position < count; ++position) {
        const qint64 song = songs.bookmarkAt(position).key;
        const qsizetype before = seen.size();
        seen.insert(song);
        if (seen.size() > before)
            plans.push_back({.song = song});
    }
    return plans;
}

QString songAndArtist(dao::Database &database, qint64 song)
{
    const QStringList texts = textsOf(database, song, {u"SongName"_s, u"Artist"_s});
    if (texts.isEmpty())
        return u"song number %1"_s.arg(song);
    return texts[1].isEmpty() ? texts[0] : texts[0] + u", by "_s + texts[1];
}

QString fileOfSong(dao::Database &database, qint64 song)
{
    return textsOf(database, song, {u"PathName"_s, u"FileName"_s}).join(QString());
}

QString countedSongs(qint64 songs)
{
    return QLocale().toString(songs) + (songs == 1 ? u" song"_s : u" songs"_s);
}

} // namespace quaverly
