// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/CatalogueCheck.h"

#include "catalogue/Catalogue.h"
#include "catalogue/MusicFolders.h"
#include "pictures/PictureFiles.h"
#include "platform/shell/MusicKinds.h"
#include "update/Aside.h"
#include "update/KnownFiles.h"

#include <QHash>
#include <QMap>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr std::chrono::milliseconds Patience(20);

std::vector<qint64> keysOf(const std::vector<KnownFile> &files)
{
    std::vector<qint64> keys;
    keys.reserve(files.size());
    for (const KnownFile &file : files)
        keys.push_back(file.recordId);
    return keys;
}

} // namespace

QString foldedName(const QString &name)
{
    QString folded;
    for (const QChar c : name.normalized(QString::NormalizationForm_KD).toCaseFolded()) {
        if (c.isLetterOrNumber())
            folded += c;
        else if (c.isSpace() && !folded.isEmpty() && folded.back() != u' ')
            folded += u' ';
    }
    folded = folded.trimmed();
    if (folded.startsWith("the "_L1))
        folded.remove(0, 4);
    folded.remove(u' ');
    // Of signs alone every name would be the same.
    return folded.isEmpty() ? name : folded;
}

CatalogueCheck::CatalogueCheck(const UpdateParts &parts, UpdateGoesOn goesOn)
    : m_parts(parts), m_database(*parts.services.catalogue.CatalogueDb), m_goesOn(std::move(goesOn))
{}

std::optional<std::vector<CheckFinding>> CatalogueCheck::run()
{
    if (!checkFiles())
        return {};
    checkTexts();
    if (!m_goesOn(u"Looking at the songs..."_s, 0, 0))
        return {};
    checkSpellings(u"Artist"_s, u"Artists in two spellings"_s);
    checkSpellings(u"Genre"_s, u"Genres in two spellings"_s);
    if (!m_goesOn(u"Looking at the pictures..."_s, 0, 0))
        return {};
    checkPictures();
    checkTracks();
    return std::move(m_findings);
}

void CatalogueCheck::add(CheckFinding finding)
{
    std::ranges::sort(finding.songs);
    finding.songs.erase(std::unique(finding.songs.begin(), finding.songs.end()), finding.songs.end());
    if (finding.count == 0)
        finding.count = std::ssize(finding.songs);
    m_findings.push_back(std::move(finding));
}

std::vector<qint64> CatalogueCheck::keys(const QString &condition)
{
    std::vector<qint64> keys;
    const auto rows = m_database.OpenRecordset(u"Select RecordID From tblContacts Where "_s + condition,
                                               dao::RecordsetType::Snapshot);
    const qint64 count = rows->RecordCount();
    for (qint64 row = 0; row < count; ++row)
        keys.push_back(rows->bookmarkAt(row).key);
    return keys;
}

bool CatalogueCheck::checkFiles()
{
    const QString what = u"Looking at the files..."_s;
    MusicFolders remembered(m_parts.services.catalogue);
    const QStringList folders = remembered.all() + remembered.foldersOfSongs();
    Aside<shell::TreeContent> walk([folders](const std::stop_token &stop) {
        const auto isMusic = [](QByteArrayView name) {
            return shell::musicKindByTail(QString::fromUtf8(name)) != nullptr;
        };
        return shell::walkTree(folders, isMusic, stop);
    });
    KnownFiles reading(m_database);
    while (reading.readMore()) {
        if (!m_goesOn(what, 0, 0))
            return false;
    }
    const std::vector<KnownFile> known = reading.take();
    while (!walk.isDone(Patience)) {
        if (!m_goesOn(what, 0, 0))
            return false;
    }
    const auto seen = std::make_shared<shell::TreeContent>(walk.take());
    Aside<DiskDifference> compare([seen, known, folders](const std::stop_token &) {
        return compareWithDisk(std::move(*seen), known, folders);
    });
    while (!compare.isDone(Patience)) {
        if (!m_goesOn(what, 0, 0))
            return false;
    }
    addFileFindings(compare.take(), known);
    checkSameFiles(known);
    return true;
}

void CatalogueCheck::addFileFindings(const DiskDifference &difference, const std::vector<KnownFile> &known)
{
    add({u"File missing, though its volume is there"_s,
         u"Update From Disk finds files that were moved; songs that are really gone can be deleted there."_s,
         CheckRepair::UpdateFromDisk, keysOf(difference.gone)});
    CheckFinding away{u"File on a volume that is away"_s, u"Connect the volume, or tell the new place."_s};
    for (const AwayFolder &folder : difference.away)
        std::ranges::copy(keysOf(folder.songs), std::back_inserter(away.songs));
    add(std::move(away));
    CheckFinding moved{u"File moved or renamed"_s, u"Update From Disk lets the songs follow."_s,
                       CheckRepair::UpdateFromDisk};
    for (const FilePair &pair : difference.moved)
        moved.songs.push_back(pair.known.recordId);
    add(std::move(moved));
    CheckFinding empty{u"Empty file, or one that can't be reached"_s,
                       u"Look at the file with another program."_s, CheckRepair::None,
                       keysOf(difference.unreachable)};
    for (const KnownFile &file : known) {
        if (file.stamp && file.stamp->size == 0)
            empty.songs.push_back(file.recordId);
    }
    for (const FilePair &pair : difference.changed) {
        if (pair.now.stamp.size == 0)
            empty.songs.push_back(pair.known.recordId);
    }
    add(std::move(empty));
}

void CatalogueCheck::checkSameFiles(const std::vector<KnownFile> &known)
{
    CheckFinding twice{u"One file in two records"_s, u"Delete one of the two records."_s};
    QHash<QByteArray, qint64> byPath;
    QMap<std::pair<qint64, qint64>, qint64> byInode;
    const auto note = [&](auto &seen, const auto &key, qint64 song) {
        const auto found = seen.constFind(key);
        if (found == seen.constEnd()) {
            seen.insert(key, song);
            return;
        }
        twice.songs.push_back(*found);
        twice.songs.push_back(song);
    };
    for (const KnownFile &file : known) {
        note(byPath, file.path(), file.recordId);
        if (file.stamp && file.stamp->inode != 0)
            note(byInode, std::pair(file.stamp->device, file.stamp->inode), file.recordId);
    }
    add(std::move(twice));
}

void CatalogueCheck::checkTexts()
{
    add({u"No song name or no artist"_s, u"Show them and fill in what is missing."_s, CheckRepair::None,
         keys(u"SongName Is Null Or Trim(SongName) = '' Or Artist Is Null Or Trim(Artist) = ''"_s)});
}

void CatalogueCheck::checkSpellings(const QString &field, const QString &what)
{
    QHash<QString, QHash<QString, std::vector<qint64>>> byFolded;
    const auto rows = m_database.OpenRecordset(u"Select RecordID, "_s + field + u" From tblContacts"_s,
                                               dao::RecordsetType::Dynaset);
    QHash<QString, QString> foldedOf;
    rows->forEachRow({0, 1}, [&](qint64, std::span<const QByteArrayView> texts) {
        const QString text = QString::fromUtf8(texts[1]).trimmed();
        if (text.isEmpty())
            return;
        QString &folded = foldedOf[text];
        if (folded.isEmpty())
            folded = foldedName(text);
        byFolded[folded][text].push_back(texts[0].toLongLong());
    });
    CheckFinding finding{what, u"Show them and choose one spelling, by Search and Replace for many."_s};
    for (const auto &spellings : std::as_const(byFolded)) {
        if (spellings.size() < 2)
            continue;
        for (const std::vector<qint64> &songs : spellings)
            finding.songs.insert(finding.songs.end(), songs.begin(), songs.end());
    }
    add(std::move(finding));
}

void CatalogueCheck::checkPictures()
{
    CheckFinding missing{u"Picture missing"_s,
                         u"Put the picture back into the folder of pictures, or take the link away."_s};
    const PictureFiles pictures(m_parts.services.catalogue);
    for (int slot = 1; slot <= PictureCount; ++slot) {
        const QString field = pictureField(slot);
        const auto rows = m_database.OpenRecordset(
            u"Select RecordID, %1 From tblContacts Where %1 > ''"_s.arg(field), dao::RecordsetType::Snapshot);
        for (; !rows->atEOF(); rows->MoveNext()) {
            if (!pictures.exists(rows->text(field)))
                missing.songs.push_back(rows->value(u"RecordID"_s).toLongLong());
        }
    }
    add(std::move(missing));
}

void CatalogueCheck::checkTracks()
{
    const auto rows = m_database.OpenRecordset(u"Select Count(*) As Tracks From tblPlayListDetail Where "
                                               "ContactRecordID > 0 And ContactRecordID Not In (Select "
                                               "RecordID From tblContacts)"_s,
                                               dao::RecordsetType::Snapshot);
    CheckFinding tracks{u"Track of a play list whose song was deleted"_s,
                        u"They can be removed from the play lists."_s, CheckRepair::RemoveTracks};
    tracks.count = rows->value(u"Tracks"_s).toLongLong();
    add(std::move(tracks));
}

} // namespace quaverly
