// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/RenamePlan.h"

#include "desktop/FileHelpers.h"
#include "maintenance/FileCollisions.h"
#include "platform/shell/FileMove.h"
#include "platform/store/RowKeys.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Characters that a record holds of a folder, and of a name; bytes of a whole path. */
constexpr qsizetype LongestField = 255;
constexpr qsizetype LongestPath = 4095;
/** Files looked at between two looks at the wait window. */
constexpr qint64 Portion = 200;

/** With its dot; nothing for a name that is all ending. */
QString endingOf(const QString &fileName)
{
    const qsizetype dot = fileName.lastIndexOf(u'.');
    return dot <= 0 ? QString() : fileName.mid(dot);
}

QString commonFolder(const QString &one, const QString &other)
{
    const qsizetype most = std::min(one.size(), other.size());
    qsizetype same = 0;
    while (same < most && one[same] == other[same])
        ++same;
    return one.left(one.left(same).lastIndexOf(u'/') + 1);
}

} // namespace

RenamePlanner::RenamePlanner(dao::Database &database, const RenamePattern &pattern, const QString &root)
    : m_database(database), m_pattern(pattern), m_root(CleanFolder(root))
{}

std::optional<std::vector<PlannedRename>> RenamePlanner::plan(const std::vector<qint64> &songs,
                                                              const dao::GoesOn &goesOn)
{
    std::vector<PlannedRename> renames = composed(songs);
    const auto all = static_cast<qint64>(renames.size());
    for (qint64 done = 0; done < all; ++done) {
        PlannedRename &rename = renames[static_cast<std::size_t>(done)];
        if (rename.problem.isEmpty())
            rename.problem = obstacle(rename);
        if (done % Portion == 0 && !goesOn(done, all))
            return std::nullopt;
    }
    findCollisions(renames);
    return renames;
}

std::vector<PlannedRename> RenamePlanner::composed(const std::vector<qint64> &songs) const
{
    const dao::RowKeys keys(m_database, songs);
    const auto rows = m_database.OpenRecordset(
        u"Select * From tblContacts Where RecordID In (Select RowKey From tmpRowKeys)"_s,
        dao::RecordsetType::Dynaset);
    const QStringList names = m_pattern.fields();
    QList<int> fields;
    for (const QString &name : QStringList{u"RecordID"_s, u"PathName"_s, u"FileName"_s} + names)
        fields.append(rows->fieldIndex(name));
    std::vector<PlannedRename> renames;
    renames.reserve(songs.size());
    rows->forEachRow(fields, [&](qint64 /*position*/, std::span<const QByteArrayView> texts) {
        PlannedRename rename{.song = texts[0].toLongLong(),
                             .from = {QString::fromUtf8(texts[1]), QString::fromUtf8(texts[2])}};
        const RenamePattern::Name name = m_pattern.nameOf(
            [&](const QString &field) {
                return QString::fromUtf8(texts[static_cast<std::size_t>(3 + names.indexOf(field))]);
            },
            endingOf(rename.from.FileName));
        const QString path = (m_pattern.namesFolders() ? m_root : rename.from.PathName) + name.path;
        rename.to = {folderOf(path), fileNameOf(path)};
        rename.problem = name.problem;
        if (rename.from.FileName.isEmpty()) {
            rename.to = {};
            rename.problem = u"The record names no file"_s;
        }
        if (!rename.problem.isEmpty() || !(rename.from == rename.to))
            renames.push_back(std::move(rename));
    });
    return renames;
}

QString RenamePlanner::obstacle(const PlannedRename &rename)
{
    const QString from = rename.from.path();
    const QString to = rename.to.path();
    if (rename.to.FileName.size() > LongestField || rename.to.PathName.size() > LongestField ||
        to.toUtf8().size() > LongestPath)
        return u"The name is too long"_s;
    if (!FileExists(from))
        return u"The file is not there"_s;
    const QFileInfo target(to);
    if ((target.exists() || target.isSymLink()) && !shell::isOwnNameInOtherCapitals(from, to))
        return u"There is a file of this name"_s;
    if (!isWritable(rename.from.PathName))
        return u"The folder of the file can't be written to"_s;
    if (!isWritable(rename.to.PathName))
        return u"The new folder can't be written to"_s;
    return {};
}

bool RenamePlanner::isWritable(const QString &folder)
{
    const auto known = m_writable.constFind(folder);
    if (known != m_writable.cend())
        return *known;
    const QFileInfo info(folder);
    const QString parent = folderOf(folder.chopped(1));
    const bool writable = info.exists() ? info.isDir() && info.isWritable() && info.isExecutable()
                                        : !parent.isEmpty() && isWritable(parent);
    m_writable.insert(folder, writable);
    return writable;
}

void RenamePlanner::findCollisions(std::vector<PlannedRename> &renames) const
{
    std::vector<PlaceOfFile> places;
    for (const PlannedRename &rename : renames) {
        if (rename.problem.isEmpty())
            places.push_back({rename.song, rename.to});
    }
    QHash<qint64, QString> taken;
    for (const PlaceOfFile &collision : collisions(m_database, places))
        taken.insert(collision.song, u"Another song has this file, or comes to it"_s);
    for (PlannedRename &rename : renames) {
        if (rename.problem.isEmpty())
            rename.problem = taken.value(rename.song);
    }
}

RenamePreview::RenamePreview(const Ground &ground, std::vector<PlannedRename> renames)
    : SongPreview(ground), m_renames(std::move(renames))
{
    const auto possible =
        std::stable_partition(m_renames.begin(), m_renames.end(),
                              [](const PlannedRename &rename) { return !rename.problem.isEmpty(); });
    const auto obstructed = static_cast<std::size_t>(possible - m_renames.begin());
    std::vector<PlannedChange> plans;
    plans.reserve(m_renames.size());
    for (const PlannedRename &rename : m_renames)
        plans.push_back({.song = rename.song});
    // Of those that go on: one that can't may lie anywhere.
    for (auto rename = possible; rename != m_renames.end(); ++rename) {
        m_common = rename == possible ? rename->from.PathName : commonFolder(m_common, rename->from.PathName);
        m_common = commonFolder(m_common, rename->to.PathName);
    }
    if (m_common == "/"_L1)
        m_common.clear();
    QString sentence =
        u"Rename the files of %1"_s.arg(countedSongs(static_cast<qint64>(m_renames.size() - obstructed)));
    if (!m_common.isEmpty())
        sentence += u" in "_s + m_common;
    if (obstructed > 0)
        sentence += u"; %1 can't be renamed"_s.arg(obstructed);
    setPlan(sentence, std::move(plans), obstructed);
}

ChangedRowTexts RenamePreview::row(int row) const
{
    ChangedRowTexts texts = SongPreview::row(row);
    const PlannedRename &planned = rename(row);
    const auto shown = [this](const SongFile &file) {
        const QString path = file.path();
        return path.startsWith(m_common) ? path.mid(m_common.size()) : path;
    };
    texts.field = planned.problem;
    texts.before = shown(planned.from);
    texts.after = shown(planned.to);
    return texts;
}

QStringList RenamePreview::headings() const
{
    return {u"Record"_s, obstructed() > 0 ? u"In the way"_s : QString(), u"File now"_s, u"File then"_s};
}

std::vector<PlannedRename> RenamePreview::chosen() const
{
    std::vector<PlannedRename> all;
    for (int row = obstructed(); row < count(); ++row) {
        if (isTicked(row))
            all.push_back(rename(row));
    }
    return all;
}

} // namespace quaverly
