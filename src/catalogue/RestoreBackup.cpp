// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/RestoreBackup.h"

#include "catalogue/Compaction.h"
#include "desktop/Desktop.h"
#include "platform/shell/Columns.h"
#include "platform/text/Text.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

const auto Title = u"Restore From Backup"_s;

QString countOf(const Backup &backup)
{
    return backup.songs < 0 ? u"cannot be read"_s : groupedNumber(backup.songs);
}

} // namespace

RestoreBackup::RestoreBackup(Desktop &desktop, Backups &backups) : m_desktop(desktop), m_backups(backups)
{}

QString RestoreBackup::explanation(bool hasCopies)
{
    return hasCopies
               ? u"A copy of the database is kept before each command that changes many songs at once.  "
                 "Choose the one that the database is to go back to.  The present database is kept as "
                 "a copy as well."_s
               : u"There are no copies of this database yet.  One is kept before each command that "
                 "changes many songs at once."_s;
}

QStringList RestoreBackup::columns(const Backup &backup)
{
    return {shortDate(backup.made), backup.command, countOf(backup), shell::sizeText(backup.bytes)};
}

std::vector<Backup> RestoreBackup::copies() const
{
    const Hourglass hourglass(m_desktop);
    return m_backups.list();
}

bool RestoreBackup::mayRestore(const Backup &backup)
{
    try {
        if (!m_backups.check(backup))
            return false;
    } catch (const dao::DaoError &error) {
        m_desktop.MessageBox(u"This copy cannot be restored.  Choose another one.\n\n"_s + error.description,
                             Title, Icon::Exclamation);
        return false;
    }
    return m_desktop.MessageBox(u"The database will be as it was on "_s + shortDate(backup.made) +
                                    u", with "_s + countOf(backup) +
                                    (backup.songs == 1 ? u" song"_s : u" songs"_s) +
                                    u".  What was changed since then is not in it.\n\nProceed?"_s,
                                Title, Icon::Question, Buttons::YesNo, Answer::No) == Answer::Yes;
}

} // namespace quaverly
