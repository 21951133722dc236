// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/UpdateFinder.h"

#include "catalogue/Catalogue.h"
#include "catalogue/KindsTaken.h"
#include "desktop/Desktop.h"
#include "platform/shell/MusicKinds.h"
#include "update/Aside.h"
#include "update/KnownFiles.h"
#include "update/MovedFiles.h"
#include "update/TagCompare.h"

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr std::chrono::milliseconds Patience(20);

bool isMusic(QByteArrayView name)
{
    return shell::musicKindByTail(QString::fromUtf8(name)) != nullptr;
}

QString awayQuestion(const AwayFolder &away)
{
    return u"None of the %1 songs in this folder was found:\n%2\n\nIf it is on a volume that is away, choose "
           u"No: "
           "its songs are left as they are.\n\nAre the files really gone?"_s.arg(std::ssize(away.songs))
               .arg(away.folder);
}

} // namespace

UpdateFinder::UpdateFinder(const UpdateParts &parts, UpdateGoesOn goesOn)
    : m_parts(parts), m_database(*parts.services.catalogue.CatalogueDb), m_goesOn(std::move(goesOn)),
      m_facts(m_database)
{}

std::optional<UpdateList> UpdateFinder::find(const QStringList &folders)
{
    auto difference = lookAtDisk(folders);
    if (!difference)
        return {};
    askAboutAway(*difference);
    m_list.unchanged = difference->unchanged;
    for (const FilePair &pair : difference->moved)
        listMoved(pair.known, pair.now, {}, true);
    if (!readChanged(difference->changed) || !followMoved(*difference))
        return {};
    listRest(*difference);
    std::ranges::stable_sort(m_list.rows, {}, &UpdateRow::kind);
    keepFacts();
    return std::move(m_list);
}

std::optional<DiskDifference> UpdateFinder::lookAtDisk(const QStringList &folders)
{
    const QString what = u"Looking at the folders..."_s;
    Aside<shell::TreeContent> walk(
        [folders](const std::stop_token &stop) { return shell::walkTree(folders, isMusic, stop); });
    KnownFiles known(m_database);
    while (known.readMore()) {
        if (!m_goesOn(what, 0, 0))
            return {};
    }
    while (!walk.isDone(Patience)) {
        if (!m_goesOn(what, 0, 0))
            return {};
    }
    const auto seen = std::make_shared<shell::TreeContent>(walk.take());
    const auto files = std::make_shared<std::vector<KnownFile>>(known.take());
    Aside<DiskDifference> compare([seen, files, folders](const std::stop_token &) {
        return compareWithDisk(std::move(*seen), std::move(*files), folders);
    });
    while (!compare.isDone(Patience)) {
        if (!m_goesOn(what, 0, 0))
            return {};
    }
    return compare.take();
}

void UpdateFinder::askAboutAway(DiskDifference &difference)
{
    for (AwayFolder &away : difference.away) {
        const bool areGone =
            m_parts.services.desktop.MessageBox(awayQuestion(away), u"Update From Disk"_s, Icon::Question,
                                                Buttons::YesNo, Answer::No) == Answer::Yes;
        if (areGone)
            std::ranges::move(away.songs, std::back_inserter(difference.gone));
        else
            m_list.away.emplace_back(away.folder, std::ssize(away.songs));
    }
}

bool UpdateFinder::readChanged(const std::vector<FilePair> &changed)
{
    QHash<QByteArray, const FilePair *> byPath;
    std::vector<DiskFile> files;
    for (const FilePair &pair : changed) {
        byPath.insert(pair.now.path(), &pair);
        files.push_back(pair.now);
    }
    return readInPortions(
        std::move(files), m_goesOn, u"Reading the files that have changed..."_s,
        [&](SongOnDisk &read) { takeChanged(byPath.value(read.file.path())->known, read); });
}

void UpdateFinder::takeChanged(const KnownFile &known, SongOnDisk &read)
{
    const auto tags = knownTags(known.recordId);
    // Gone since the walk, the file or the song: the next update tells.
    if (!read.stamp || !tags)
        return;
    if (!read.failure.isEmpty()) {
        UpdateRow row = rowOf(UpdateKind::Unreadable, known);
        row.remark = read.failure;
        m_list.rows.push_back(row);
        return;
    }
    if (const QString former = QString::fromUtf8(known.name); tags->textOf(u"SongName"_s) == former)
        keepNameOf(read, former);
    const std::vector<UpdateRow> rows = compareTags(*tags, read);
    if (rows.empty()) {
        m_settled.push_back({known.recordId, *read.stamp, read.sound, tagsOf(read.song)});
        return;
    }
    m_list.rows.insert(m_list.rows.end(), rows.begin(), rows.end());
    m_list.read.insert(known.recordId, read);
}

bool UpdateFinder::followMoved(DiskDifference &difference)
{
    std::vector<LostSong> lost;
    for (const KnownFile &known : difference.gone) {
        if (auto tags = knownTags(known.recordId))
            lost.push_back({known, std::move(*tags)});
    }
    std::vector<DiskFile> candidates;
    std::ranges::copy_if(difference.added, std::back_inserter(candidates),
                         [&](const DiskFile &file) { return mayHoldOneOf(lost, file); });
    std::vector<SongOnDisk> read;
    const auto take = [&](SongOnDisk &song) { read.push_back(std::move(song)); };
    if (!readInPortions(std::move(candidates), m_goesOn, u"Looking for files that were moved..."_s, take))
        return false;
    QSet<qint64> found;
    QSet<QByteArray> taken;
    for (const FoundSong &match : findMovedFiles(lost, read)) {
        const KnownFile &known = lost[match.lost].known;
        SongOnDisk &song = read[match.file];
        found.insert(known.recordId);
        taken.insert(song.file.path());
        listMoved(known, song.file, match.doubt, match.doubt.isEmpty());
        takeChanged(known, song);
    }
    std::erase_if(difference.gone, [&](const KnownFile &each) { return found.contains(each.recordId); });
    std::erase_if(difference.added, [&](const DiskFile &each) { return taken.contains(each.path()); });
    return true;
}

UpdateRow UpdateFinder::rowOf(UpdateKind kind, const KnownFile &known)
{
    UpdateRow row{.kind = kind, .recordId = known.recordId, .canBeTicked = kind != UpdateKind::Unreadable};
    row.file = {known.folder, known.name, known.stamp.value_or(shell::FileStamp())};
    if (const auto tags = knownTags(known.recordId)) {
        row.song = tags->textOf(u"SongName"_s);
        row.artist = tags->textOf(u"Artist"_s);
        // As the catalogue writes it.
        row.before = tags->textOf(u"PathName"_s) + tags->textOf(u"FileName"_s);
    }
    return row;
}

void UpdateFinder::listMoved(const KnownFile &known, const DiskFile &now, const QString &remark,
                             bool isTicked)
{
    UpdateRow row = rowOf(UpdateKind::Moved, known);
    row.after = QString::fromUtf8(now.path());
    row.remark = remark;
    row.isTicked = isTicked;
    row.file = now;
    m_list.rows.push_back(row);
}

void UpdateFinder::listRest(const DiskDifference &difference)
{
    const QStringList leftOut = kindsLeftOut(m_parts.services.optionsStore);
    for (const DiskFile &file : difference.added) {
        const QString name = QString::fromUtf8(file.name);
        if (!leftOut.contains(shell::musicEnding(name).sliced(1)))
            m_list.rows.push_back({.kind = UpdateKind::New,
                                   .song = name,
                                   .after = QString::fromUtf8(file.path()),
                                   .isTicked = true,
                                   .file = file});
    }
    for (const KnownFile &known : difference.gone)
        m_list.rows.push_back(rowOf(UpdateKind::Gone, known));
    for (const KnownFile &known : difference.unreachable) {
        m_list.rows.push_back(rowOf(UpdateKind::Unreadable, known));
        m_list.rows.back().remark = u"The file can't be reached"_s;
    }
    const auto add = [&](const QString &path, const QString &why) {
        m_list.rows.push_back(
            {.kind = UpdateKind::Unreadable, .before = path, .remark = why, .canBeTicked = false});
    };
    for (const QString &folder : difference.unreadableFolders)
        add(folder, u"The folder can't be read"_s);
    for (const QString &path : difference.refused)
        add(path, u"The name is not valid here"_s);
}

std::optional<KnownTags> UpdateFinder::knownTags(qint64 recordId)
{
    if (!m_songs) {
        m_songs = m_database.OpenRecordset(u"tblContacts"_s, dao::RecordsetType::Table);
        m_songs->setIndex(u"PrimaryKey"_s);
    }
    m_songs->Seek(u"="_s, {recordId});
    if (m_songs->NoMatch())
        return {};
    QHash<QString, QString> texts;
    for (const auto field : fieldsFromFile())
        texts.insert(field, m_songs->text(field));
    for (const QString &field : {u"PathName"_s, u"FileName"_s, u"FileSize"_s})
        texts.insert(field, m_songs->text(field));
    return KnownTags{recordId, [texts](const QString &field) { return texts.value(field); },
                     m_songs->value(u"DateUpdated"_s).toDateTime(), m_facts.of(recordId)};
}

/** What is known of files is no part of what the user made: it is kept even when he carries out nothing. */
void UpdateFinder::keepFacts()
{
    if (m_settled.empty() || !m_database.Updatable())
        return;
    dao::Transaction transaction(m_database.workspace());
    for (const FileFact &fact : m_settled)
        m_facts.put(fact);
    transaction.commit();
}

} // namespace quaverly
