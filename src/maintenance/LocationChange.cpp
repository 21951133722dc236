// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/LocationChange.h"

#include "catalogue/Catalogue.h"
#include "desktop/FileHelpers.h"
#include "desktop/PreviewQuestion.h"
#include "maintenance/BulkChange.h"
#include "maintenance/TextPreview.h"
#include "platform/text/Text.h"
#include "songlist/DisplayedSet.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Files that are looked for before the user is asked. */
constexpr int FilesTried = 20;

const TextField SongFolders{.table = u"tblContacts"_s, .field = u"PathName"_s, .key = u"RecordID"_s};
const TextField PlayListFiles{.table = u"tblPlayListDetail"_s, .field = u"FileName"_s, .key = {}};

bool isComplete(const PathChange &change)
{
    return isGreaterThanBlank(change.original) && isGreaterThanBlank(change.replacement);
}

/** Nothing where there were no files to look for. */
QString presenceText(const Presence &presence)
{
    if (presence.asked == 0)
        return {};
    return u"Of the first %1 of these files, %2 were found in the new place."_s.arg(presence.asked)
        .arg(presence.found);
}

QString filePathQuestion(const PathChange &change, qint64 songs, qint64 tracks, const QString &presence)
{
    const QString part = u'"' + change.original + u"\" is: "_s;
    return u"Number of music file names that contain "_s + part + QString::number(songs) +
           u".\nNumber of songs in your play lists that contain "_s + part + QString::number(tracks) +
           u".\n"_s + (presence.isEmpty() ? presence : presence + u'\n') +
           u"Are you sure you want to replace this part of the file name with \""_s + change.replacement +
           u"\" for every one of these file names?"_s;
}

QString playListQuestion(const PathChange &change, qint64 tracks, const QString &presence)
{
    return u"The number of records that contain  "_s + change.original + u"  is: "_s +
           QString::number(tracks) + u".  "_s + (presence.isEmpty() ? presence : presence + u"  "_s) +
           u"Are you sure you want to replace this part of the FileName with  "_s + change.replacement +
           u"  for every one of these records in all your PlayLists?"_s;
}

} // namespace

dao::Database &LocationChange::database() const
{
    return *m_parts.services.catalogue.CatalogueDb;
}

bool LocationChange::changeFilePaths(const PathChange &typed)
{
    Desktop &desktop = m_parts.services.desktop;
    if (!isComplete(typed)) {
        desktop.MessageBox(u"Both the original and the new file path or string must be specified."_s,
                           u"String not specified"_s, Icon::Exclamation);
        return false;
    }
    const PathChange change = inOneForm(typed, PathKind::Folders);
    std::vector changes{partReplaced(SongFolders, change.original, change.replacement),
                        partReplaced(PlayListFiles, change.original, change.replacement)};
    const qint64 songs = countRows(database(), changes[0]);
    const qint64 tracks = countRows(database(), changes[1]);
    if (songs == 0 && tracks == 0) {
        desktop.MessageBox(u"The characters you specified were not found in any file names."_s,
                           u"Not found"_s);
        return false;
    }
    const Presence presence = presenceBehind(changes);
    qint64 replacements = songs + tracks;
    if (!mayLeadNowhere(change, presence) ||
        !confirmed(filePathQuestion(change, songs, tracks, presenceText(presence)), change, changes,
                   replacements) ||
        !make(changes))
        return false;
    desktop.MessageBox(u"Update completed. Total number of replacements made: "_s +
                           QString::number(replacements),
                       u"Finished"_s);
    return true;
}

bool LocationChange::changePlayListPaths(const PathChange &typed)
{
    Desktop &desktop = m_parts.services.desktop;
    if (!isComplete(typed)) {
        desktop.MessageBox(u"Both the original text and the new replacement text must be specified."_s,
                           u"Text not specified"_s, Icon::Exclamation);
        return false;
    }
    const PathChange change = inOneForm(typed, PathKind::Files);
    std::vector changes{partReplaced(PlayListFiles, change.original, change.replacement)};
    qint64 tracks = countRows(database(), changes[0]);
    if (tracks == 0) {
        desktop.MessageBox(u"The text you specified was not found in the FileName in any PlayList."_s,
                           u"Not found"_s);
        return false;
    }
    const QString presence = presenceText(presenceBehind(changes));
    if (!confirmed(playListQuestion(change, tracks, presence), change, changes, tracks) || !make(changes))
        return false;
    desktop.MessageBox(u"Update completed.  Records changed: "_s + QString::number(tracks), u"Finished"_s);
    return true;
}

Presence LocationChange::presenceBehind(const std::vector<TextChange> &changes)
{
    const Hourglass hourglass(m_parts.services.desktop);
    QStringList files;
    for (const TextChange &change : changes) {
        if (files.isEmpty())
            files = firstFiles(change);
    }
    return presenceOf(files);
}

QStringList LocationChange::firstFiles(const TextChange &change)
{
    const bool isTrack = change.place.table == PlayListFiles.table;
    const QString path = isTrack ? u"'' As PathName"_s : u"PathName"_s;
    const auto rows =
        database().OpenRecordset(u"Select Top %1 "_s.arg(FilesTried) + path + u", FileName From "_s +
                                     change.place.table + u" Where FileName > '' And "_s + change.condition,
                                 dao::RecordsetType::Snapshot);
    QStringList files;
    for (; !rows->atEOF(); rows->MoveNext()) {
        const QString file = rows->text(u"FileName"_s);
        files.append(isTrack ? change.changed(file) : change.changed(rows->text(u"PathName"_s)) + file);
    }
    return files;
}

bool LocationChange::mayLeadNowhere(const PathChange &change, const Presence &presence)
{
    if (!isWholePath(change.replacement) || presence.found > 0 ||
        presenceOf({EnsureBackslash(change.replacement)}).found > 0)
        return true;
    return m_parts.services.desktop.MessageBox(u"There is no such folder: "_s + change.replacement +
                                                   u"\n\nDo you want to go on all the same?"_s,
                                               u"Folder not found"_s, Icon::Exclamation, Buttons::YesNo,
                                               Answer::No) == Answer::Yes;
}

bool LocationChange::confirmed(const QString &question, const PathChange &change,
                               std::vector<TextChange> &changes, qint64 &rows)
{
    std::unique_ptr<TextPreview> preview;
    if (!isConfirmed(m_parts.services.desktop, {question, u"Confirmation"_s}, [&]() -> Preview & {
            preview = std::make_unique<TextPreview>(
                SongPreview::Ground{database(), m_parts.set.Data1()},
                u"Replace \"%1\" by \"%2\" in the places of files.  No file is touched."_s.arg(
                    change.original, change.replacement),
                changes);
            return *preview;
        }))
        return false;
    if (preview) {
        changes = preview->chosen();
        rows = preview->ticked();
    }
    return true;
}

bool LocationChange::make(const std::vector<TextChange> &changes)
{
    return BulkChange(m_parts).run({
        .caption = u"Changing File Names"_s,
        .command = u"Change Music File Locations"_s,
        .change =
            [&](const dao::GoesOn &goesOn) {
                return std::ranges::all_of(changes, [&](const TextChange &change) {
                    return changeTexts(database(), change, goesOn);
                });
            },
        .showResult = [this] { m_parts.set.Data1().Refresh(); },
        .changesRows = std::ranges::any_of(
            changes, [this](const TextChange &change) { return changesRows(database(), change); }),
    });
}

} // namespace quaverly
