// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/BackupLimit.h"

#include "catalogue/Backups.h"
#include "catalogue/Options.h"
#include "desktop/Desktop.h"
#include "platform/shell/Columns.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr qint64 Megabyte = 1024 * 1024;
constexpr qint64 MostMegabytes = 1024LL * 1024 * 1024;
constexpr qint64 CopiesByRule = 10;
constexpr qint64 ShareOfFreeSpace = 10;

QString question(const Backups::Room &room)
{
    return u"The copies of this database may take up to "_s + shell::sizeText(room.limit) +
           u" together.  There "_s +
           (room.copies == 1 ? u"is 1 copy"_s : u"are %1 copies"_s.arg(room.copies)) + u", with "_s +
           shell::sizeText(room.bytesTaken) +
           u".  When a new copy needs the room, the oldest ones go; the last one always stays.\n\n"
           "Type how many megabytes they may take, or 0 for ten times the size of the database, but a tenth "
           "of the disk's free space at most."_s;
}

} // namespace

qint64 BackupLimit::chosenMegabytes() const
{
    const qint64 number = option(m_options, keys::BackupLimit).toLongLong();
    return number > 0 && number <= MostMegabytes ? number : 0;
}

qint64 BackupLimit::bytes(qint64 catalogueSize, std::optional<qint64> freeSpace) const
{
    if (const qint64 chosen = chosenMegabytes(); chosen > 0)
        return chosen * Megabyte;
    const qint64 copies = CopiesByRule * catalogueSize;
    return freeSpace ? std::min(copies, *freeSpace / ShareOfFreeSpace) : copies;
}

void askForBackupLimit(Desktop &desktop, OptionsStore &options, const Backups &backups)
{
    const auto title = u"Room for Backups"_s;
    const QString present = QString::number(BackupLimit(options).chosenMegabytes());
    const QString answer = desktop.InputPrompt(question(backups.room()), title, present).trimmed();
    if (answer.isEmpty() || answer == present)
        return;
    bool isNumber = false;
    const qint64 megabytes = answer.toLongLong(&isNumber);
    if (!isNumber || megabytes < 0 || megabytes > MostMegabytes) {
        desktop.MessageBox(u"Type a whole number of megabytes.  The limit stays as it was."_s, title,
                           Icon::Exclamation);
        return;
    }
    saveOption(options, keys::BackupLimit, QString::number(megabytes));
}

} // namespace quaverly
