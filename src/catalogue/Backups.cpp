// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Backups.h"

#include "catalogue/BackupLimit.h"
#include "catalogue/Compaction.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "platform/shell/FileCopy.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr std::size_t NewestKept = 10;

/** Bytes that the disk is to have left beside the copy. */
constexpr qint64 Margin = 4 * 1024 * 1024;

const auto DateFormat = u"yyyy-MM-dd HH.mm.ss"_s;

/** The catalogue itself, where DatabaseFile leads to it through a link. */
QFileInfo fileOf(const Catalogue &catalogue)
{
    const QFileInfo named(catalogue.DatabaseFile);
    const QString real = named.canonicalFilePath();
    return real.isEmpty() ? named : QFileInfo(real);
}

/** What a copy holds: the file, and the log of what is not yet in it. */
qint64 bytesWithLog(const QFileInfo &file)
{
    return file.size() + QFileInfo(file.filePath() + u"-wal"_s).size();
}

QString nameOf(const QFileInfo &file, const QDateTime &made, int number, const QString &command)
{
    const QString more = number > 1 ? u" (%1)"_s.arg(number) : QString();
    return file.completeBaseName() + u' ' + made.toString(DateFormat) + more + u" before "_s + command +
           u'.' + file.suffix();
}

QRegularExpression namesOf(const QFileInfo &file)
{
    return QRegularExpression(
        u"^%1 (\\d{4}-\\d\\d-\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d)(?: \\((\\d+)\\))?(?: before (.+))?\\.%2$"_s.arg(
            QRegularExpression::escape(file.completeBaseName()), QRegularExpression::escape(file.suffix())));
}

bool isNewer(const Backup &left, const Backup &right)
{
    return std::tie(left.made, left.number) > std::tie(right.made, right.number);
}

/** Grows a wait window's bar while events run; false once the user has closed the window. */
dao::GoesOn shownIn(Desktop &desktop, WorkingWindow &wait)
{
    return [&desktop, &wait](qint64 done, qint64 all) {
        if (all > 0)
            wait.setBar(static_cast<int>(done * FullBarTwips / all));
        desktop.letEventsRun();
        return !wait.isClosed();
    };
}

} // namespace

Backups::Backups(Desktop &desktop, Catalogue &catalogue, dao::DBEngine &engine, const OptionsStore &options)
    : m_desktop(desktop), m_catalogue(catalogue), m_engine(engine), m_options(options)
{}

bool Backups::beforeBulkCommand(const QString &command, const QString &spared)
{
    if (!m_catalogue.CatalogueDb->Updatable())
        return true;
    QString why = u"The window was closed before the copy was complete."_s;
    try {
        if (makeCopy(command, spared)) {
            thin(spared);
            return true;
        }
    } catch (const dao::DaoError &error) {
        why = error.description;
    }
    return m_desktop.MessageBox(u"No copy of the database could be made before this command:\n\n"_s + why +
                                    u"\n\nDo you want to go on without a copy?"_s,
                                u"Copy of the Database"_s, Icon::Exclamation, Buttons::YesNo,
                                Answer::No) == Answer::Yes;
}

bool Backups::makeCopy(const QString &command, const QString &spared)
{
    const Hourglass hourglass(m_desktop);
    makeFolder();
    makeRoom(spared);
    const auto wait =
        m_desktop.ShowWorkingForm(u"Keeping a Copy of the Database"_s, u"Please wait..."_s, true);
    m_desktop.letEventsRun();
    return m_catalogue.CatalogueDb->backupTo(freePath(command), shownIn(m_desktop, *wait));
}

void Backups::makeFolder() const
{
    const QFileInfo file = fileOf(m_catalogue);
    QDir place(folder());
    if (!place.mkpath(u"."_s))
        throw dao::DaoError(dao::PathFileAccess, u"Path/File access error: '%1'."_s.arg(folder()));
    // What a copy left that was cut off.
    for (const QString &ending : {u".part"_s, u".part-journal"_s}) {
        for (const QString &left : place.entryList({u'*' + ending}, QDir::Files)) {
            if (namesOf(file).match(left.chopped(ending.size())).hasMatch())
                place.remove(left);
        }
    }
}

void Backups::makeRoom(const QString &spared) const
{
    const QFileInfo file = fileOf(m_catalogue);
    const qint64 copy = bytesWithLog(file) + Margin;
    // A change of all records writes each page once more, into the log.
    const qint64 needed = copy + file.size();
    const auto isShort = [&] {
        const auto free = shell::freeSpace(folder());
        return free && *free < needed;
    };
    if (!isShort())
        return;
    thin(spared);
    if (isShort())
        throw dao::DaoError(dao::DiskFull,
                            u"The disk is full.  The copy needs %1 bytes in '%2' and the command "
                            "up to %3 more, where %4 are free."_s.arg(
                                groupedNumber(copy), folder(), groupedNumber(file.size()),
                                groupedNumber(shell::freeSpace(folder()).value_or(0))));
}

QString Backups::folder() const
{
    return fileOf(m_catalogue).absolutePath() + u"/Backups"_s;
}

QString Backups::freePath(const QString &command) const
{
    const QDateTime now = QDateTime::currentDateTime();
    int number = 1;
    for (const Backup &backup : copies()) {
        if (backup.made.toString(DateFormat) == now.toString(DateFormat))
            number = std::max(number, backup.number + 1);
    }
    return folder() + u'/' + nameOf(fileOf(m_catalogue), now, number, command);
}

std::vector<Backup> Backups::copies() const
{
    const QRegularExpression names = namesOf(fileOf(m_catalogue));
    std::vector<Backup> found;
    for (const QFileInfo &file : QDir(folder()).entryInfoList(QDir::Files)) {
        const QRegularExpressionMatch match = names.match(file.fileName());
        const QDateTime made = QDateTime::fromString(match.captured(1), DateFormat);
        if (made.isValid())
            found.push_back({file.filePath(), made, std::max(match.captured(2).toInt(), 1), match.captured(3),
                             -1, file.size()});
    }
    std::ranges::sort(found, isNewer);
    return found;
}

void Backups::thin(const QString &spared) const
{
    thinByDay(spared);
    const Room now = room();
    qint64 taken = now.bytesTaken;
    const std::vector<Backup> all = copies();
    for (std::size_t i = all.size(); i > 1 && taken > now.limit; --i) {
        const Backup &old = all[i - 1];
        if (old.path != spared && QFile::remove(old.path))
            taken -= old.bytes;
    }
}

Backups::Room Backups::room() const
{
    Room room;
    for (const Backup &backup : copies()) {
        ++room.copies;
        room.bytesTaken += backup.bytes;
    }
    room.limit = BackupLimit(m_options).bytes(bytesWithLog(fileOf(m_catalogue)), shell::freeSpace(folder()));
    return room;
}

void Backups::thinByDay(const QString &spared) const
{
    const std::vector<Backup> all = copies();
    QSet<QDate> days;
    for (std::size_t i = all.size(); i > NewestKept; --i) {
        const Backup &old = all[i - 1];
        if (days.contains(old.made.date()) && old.path != spared)
            QFile::remove(old.path);
        days.insert(old.made.date());
    }
}

std::vector<Backup> Backups::list() const
{
    std::vector<Backup> all = copies();
    for (Backup &backup : all) {
        try {
            backup.songs = m_engine.countRows(backup.path, u"tblContacts"_s);
        } catch (const dao::DaoError &) {
            // Listed all the same: the user sees that there is one, and that it is no good.
        }
    }
    return all;
}

bool Backups::check(const Backup &backup) const
{
    const Hourglass hourglass(m_desktop);
    const auto wait = m_desktop.ShowWorkingForm(u"Checking the Copy"_s, u"Please wait..."_s, false);
    m_desktop.letEventsRun();
    return m_engine.verify(backup.path, shownIn(m_desktop, *wait));
}

} // namespace quaverly
