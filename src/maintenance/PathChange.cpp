// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/PathChange.h"

#include "desktop/FileHelpers.h"
#include "maintenance/FileTests.h"
#include "platform/store/Dao.h"
#include "platform/text/Text.h"

#include <QDeadlineTimer>
#include <QDir>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int PatienceMs = 2000;
constexpr qsizetype MostPlaces = 200;

/** Catalogues travel: a path may have been stored on another platform. */
bool isSeparator(QChar c)
{
    return c == u'/' || c == u'\\';
}

QString withoutSeparatorsAtEnd(QString text)
{
    while (!text.isEmpty() && isSeparator(text.back()))
        text.chop(1);
    return text;
}

/** A folder of the catalogue with the folders in it. */
struct Folder
{
    std::map<QString, Folder> folders;
    bool hasSongs = false;
};

Folder foldersOf(dao::Database &database)
{
    Folder root;
    const auto rows =
        database.OpenRecordset(u"Select Distinct PathName From tblContacts"_s, dao::RecordsetType::Snapshot);
    for (; !rows->atEOF(); rows->MoveNext()) {
        const QString path = NullToEmpty(rows->value(u"PathName"_s));
        if (!isWholePath(path))
            continue;
        Folder *folder = &root;
        for (const QStringView part : QStringView(path).split(u'/', Qt::SkipEmptyParts))
            folder = &folder->folders[part.toString()];
        folder->hasSongs = true;
    }
    return root;
}

/** Goes down to the first folder that holds songs or more than one folder. */
const Folder &narrowed(const Folder &from, QString &path)
{
    const Folder *folder = &from;
    while (folder->folders.size() == 1 && !folder->hasSongs) {
        path += folder->folders.begin()->first + u'/';
        folder = &folder->folders.begin()->second;
    }
    return *folder;
}

} // namespace

bool isWholePath(const QString &text)
{
    return text.startsWith(u'/');
}

PathChange inOneForm(const PathChange &typed, PathKind kind)
{
    PathChange change = typed;
    if (change.original.isEmpty())
        return change;
    if (isWholePath(change.original)) {
        const bool isFolder = kind == PathKind::Folders || isSeparator(change.original.back());
        change.original = QDir::cleanPath(change.original);
        if (isFolder)
            change.original = EnsureBackslash(change.original);
        change.replacement.prepend(u'/');
    }
    if (isWholePath(change.replacement))
        change.replacement = QDir::cleanPath(change.replacement);
    change.replacement = withoutSeparatorsAtEnd(change.replacement);
    if (isSeparator(change.original.back()))
        change.replacement += u'/';
    return change;
}

QStringList musicPlaces(dao::Database &database)
{
    const Folder root = foldersOf(database);
    QString top = u"/"_s;
    const Folder &common = narrowed(root, top);
    QStringList places;
    if (top.size() > 1 || common.hasSongs)
        places.append(top);
    for (const auto &[name, folder] : common.folders) {
        QString path = top + name + u'/';
        static_cast<void>(narrowed(folder, path));
        if (places.size() < MostPlaces)
            places.append(path);
    }
    return places;
}

Presence presenceOf(const QStringList &paths)
{
    FileTests tests(
        [](const QString &path) { return path.endsWith(u'/') ? FolderExists(path) : FileExists(path); });
    tests.ask(paths);
    Presence presence;
    const QDeadlineTimer deadline(PatienceMs);
    while (presence.asked < paths.size() && !deadline.hasExpired()) {
        for (const bool isThere : tests.answers(std::chrono::milliseconds(deadline.remainingTime()))) {
            ++presence.asked;
            presence.found += isThere ? 1 : 0;
        }
    }
    return presence;
}

} // namespace quaverly
