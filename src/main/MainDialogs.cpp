// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/MainDialogs.h"

#include "catalogue/CatalogueCommands.h"
#include "catalogue/frmDatabaseLocation.h"
#include "catalogue/frmFontForm.h"
#include "catalogue/frmMusicKinds.h"
#include "catalogue/frmPassword.h"
#include "catalogue/frmRestoreBackup.h"
#include "desktop/About.h"
#include "desktop/Desktop.h"
#include "main/HelpSite.h"
#include "main/Session.h"
#include "pictures/PictureHousekeeping.h"
#include "songlist/CriteriaForm.h"

#include <QDateTime>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

void MainDialogs::SelectionCriteria_Click()
{
    auto form = std::make_unique<CriteriaForm>(m_session.displayedSet(), m_mainScreen, m_session.settings(),
                                               m_session.catalogue(), m_session.desktop(),
                                               m_session.options(), &m_owner);
    form->setAttribute(Qt::WA_DeleteOnClose);
    form.release()->open();
}

void MainDialogs::mnuFileFont_Click()
{
    (new frmFontForm(m_session.desktop(), m_session.options(), m_session.optionsStore(), &m_owner))
        ->showModally();
}

void MainDialogs::DataBaseLocation_Click()
{
    const DatabaseLocation location(m_session.desktop(), m_session.catalogue(), m_session.optionsStore(),
                                    m_session.lastFolder());
    (new frmDatabaseLocation(m_session.desktop(), location, m_session.options().TabletActive, &m_owner))
        ->showModally();
}

void MainDialogs::mnuPassword_Click()
{
    const PasswordChange change(m_session.desktop(), m_session.catalogue());
    (new frmPassword(m_session.desktop(), change, m_session.options().TabletActive, &m_owner))->showModally();
}

void MainDialogs::mnuOptionMusicKinds_Click()
{
    (new frmMusicKinds(m_session.desktop(), m_session.optionsStore(), m_session.options().TabletActive,
                       &m_owner))
        ->showModally();
}

void MainDialogs::mnuRestoreBackup_Click()
{
    auto form = std::make_unique<frmRestoreBackup>(
        m_session.desktop(), RestoreBackup(m_session.desktop(), m_catalogueCommands.backups()),
        m_session.options().TabletActive, &m_owner);
    // What follows unloads the main screen: it waits until the other one is gone.
    QObject::connect(
        form.get(), &frmRestoreBackup::restoreWanted, &m_owner,
        [&commands = m_catalogueCommands](const Backup &backup) { commands.restoreBackup(backup); },
        Qt::QueuedConnection);
    form.release()->showModally();
}

bool MainDialogs::restoreBefore(const QDateTime &made)
{
    RestoreBackup restore(m_session.desktop(), m_catalogueCommands.backups());
    const std::vector<Backup> copies = restore.copies();
    const auto copy = std::ranges::find_if(copies, [&](const Backup &each) { return each.made <= made; });
    if (copy == copies.end()) {
        m_session.desktop().MessageBox(
            u"There is no copy of the database from before this change any more."_s, u"Restore From Backup"_s,
            Icon::Exclamation);
        return false;
    }
    if (!restore.mayRestore(*copy))
        return false;
    QMetaObject::invokeMethod(
        &m_owner, [&commands = m_catalogueCommands, backup = *copy] { commands.restoreBackup(backup); },
        Qt::QueuedConnection);
    return true;
}

void MainDialogs::OphanedPictures_Click()
{
    PictureHousekeeping(m_session.desktop(), m_session.catalogue()).OphanedPictures_Click();
}

void MainDialogs::EmptyDeletedPicturesFolder_Click()
{
    PictureHousekeeping(m_session.desktop(), m_session.catalogue()).EmptyDeletedPicturesFolder_Click();
}

void MainDialogs::AboutBox_Click()
{
    auto *about = new About([&help = m_helpSite] { help.HelpGotoWebsite_Click(); }, &m_owner);
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->open();
}

} // namespace quaverly
