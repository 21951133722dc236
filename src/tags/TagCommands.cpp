// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagCommands.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "songlist/DisplayedSet.h"
#include "tags/frmTags.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

const auto Title = u"Edit Tags"_s;
constexpr qsizetype MostNamed = 10;

TaggedSong taggedSong(const dao::Recordset &row)
{
    TaggedSong song{
        row.value(u"RecordID"_s).toLongLong(), row.text(u"PathName"_s) + row.text(u"FileName"_s), {}, {}};
    for (const QString &field : tagRecordFields())
        song.record[field] = row.text(field);
    return song;
}

} // namespace

void TagCommands::mnuTags_Click()
{
    static_cast<void>(guarded(m_parts.services.desktop, Title, [this] {
        std::vector<TaggedSong> songs = chosenSongs();
        if (songs.empty()) {
            m_parts.services.desktop.MessageBox(u"There is no song to edit the tags of."_s, Title);
            return;
        }
        show(std::move(songs), rowSink(m_parts.services), m_parts.nameList);
    }));
}

void TagCommands::editTags(const TaggedSong &song, const RecordSink &sink, QWidget *owner)
{
    show({song}, sink, owner);
}

std::vector<TaggedSong> TagCommands::chosenSongs() const
{
    std::vector<TaggedSong> songs;
    DataControl &data = m_parts.set.Data1();
    if (!data.hasRows())
        return songs;
    dao::Database &database = *m_parts.services.catalogue.CatalogueDb;
    QSet<qint64> marked;
    const auto marks = database.OpenRecordset(u"Select RecordID from tblContacts Where Selected = 'x'"_s,
                                              dao::RecordsetType::Snapshot);
    for (; !marks->atEOF(); marks->MoveNext())
        marked.insert(marks->value(u"RecordID"_s).toLongLong());
    QList<qint64> keys;
    dao::Recordset &rows = data.Recordset();
    for (qint64 row = 0; !marked.isEmpty() && row < rows.RecordCount(); ++row) {
        if (const qint64 key = rows.bookmarkAt(row).key; marked.remove(key))
            keys += key;
    }
    if (keys.isEmpty())
        keys += data.currentText(u"RecordID"_s).toLongLong();
    for (const qint64 key : keys) {
        const auto row = database.OpenRecordset(u"Select * from tblContacts Where RecordID=%1"_s.arg(key),
                                                dao::RecordsetType::Snapshot);
        if (!row->isEmpty())
            songs.push_back(taggedSong(*row));
    }
    return songs;
}

void TagCommands::readFiles(std::vector<TaggedSong> &songs) const
{
    Desktop &desktop = m_parts.services.desktop;
    QStringList failures;
    // The songs of an album share its cover.
    QSet<QByteArray> pictures;
    {
        const Hourglass hourglass(desktop);
        const auto wait = desktop.ShowWorkingForm(u"Reading tags"_s, u"Please wait..."_s, true);
        wait->offerCancel();
        const auto all = static_cast<qint64>(songs.size());
        qint64 done = 0;
        std::erase_if(songs, [&](TaggedSong &song) {
            if (desktop.inputWaiting())
                desktop.letEventsRun();
            wait->setBar(static_cast<int>(++done * FullBarTwips / all));
            if (wait->isClosed())
                return true;
            try {
                song.file = shell::readFileTags(song.path);
                for (shell::TagPicture &picture : song.file.pictures)
                    picture.bytes = *pictures.insert(picture.bytes);
                return false;
            } catch (const dao::DaoError &error) {
                failures += error.description;
                return true;
            }
        });
        if (wait->isClosed())
            songs.clear();
    }
    if (failures.isEmpty())
        return;
    QString text = failures.mid(0, MostNamed).join(u'\n');
    if (failures.size() > MostNamed)
        text += u"\n... and %1 more"_s.arg(failures.size() - MostNamed);
    desktop.MessageBox(u"Files whose tags can't be read: %1\n\n"_s.arg(failures.size()) + text, Title,
                       Icon::Exclamation);
}

void TagCommands::show(std::vector<TaggedSong> songs, const RecordSink &sink, QWidget *owner)
{
    readFiles(songs);
    if (songs.empty())
        return;
    const auto written = [this] {
        DataControl &data = m_parts.set.Data1();
        const KeepRow keep(data);
        data.Refresh();
    };
    (new frmTags({m_parts.services, sink, written}, TagPage(std::move(songs)), owner))->showModally();
}

} // namespace quaverly
