// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/BulkChange.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"
#include "maintenance/ScreenAtRest.h"
#include "maintenance/TextReplacement.h"
#include "platform/store/RowKeys.h"
#include "songlist/DisplayedSet.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Songs deleted between two looks at the wait window: about a fifth of a second. */
constexpr qsizetype Portion = 3000;

} // namespace

bool BulkChange::run(const Work &work)
{
    const End end = begin(work);
    if (end == End::Stopped)
        m_parts.desktop.MessageBox(u"The command was stopped.  Nothing was changed."_s, work.caption);
    return end == End::Done;
}

BulkChange::End BulkChange::begin(const Work &work)
{
    const ScreenAtRest atRest(m_parts.mainScreen, m_parts.busy);
    if (work.changesRows && !m_parts.beforeBulk(work.command))
        return End::NotBegun;
    const Hourglass hourglass(m_parts.desktop);
    const auto wait = m_parts.desktop.ShowWorkingForm(work.caption, u"Please wait..."_s, true);
    wait->offerCancel();
    m_parts.desktop.letEventsRun();
    try {
        if (!change(work, *wait)) {
            showWhatIsStored();
            return End::Stopped;
        }
    } catch (const dao::DaoError &error) {
        showWhatIsStored();
        throw dao::DaoError(error.number, error.description + u"\n\nNothing was changed."_s);
    }
    work.showResult();
    return End::Done;
}

bool BulkChange::change(const Work &work, WorkingWindow &wait)
{
    dao::Transaction transaction(m_parts.catalogue.CatalogueDb->workspace());
    const bool isDone = work.change([&](qint64 done, qint64 all) {
        wait.setBar(static_cast<int>(done * FullBarTwips / std::max<qint64>(all, 1)));
        m_parts.desktop.letEventsRun();
        return !wait.isClosed();
    });
    if (isDone)
        transaction.commit();
    return isDone;
}

// The grid may have painted rows while they were changed.
void BulkChange::showWhatIsStored()
{
    try {
        const KeepRow row(m_parts.set.Data1());
        m_parts.set.Data1().Refresh();
    } catch (const dao::DaoError &) {
        // What ended the change is the one thing to tell.
    }
}

QString waysBack()
{
    return u"To bring the songs back, choose Restore From Backup in the File menu."_s;
}

bool deleteSongs(dao::Database &database, dao::Recordset &songs, const dao::GoesOn &goesOn)
{
    const dao::RowKeys keys(database, songs);
    const QString chosen = u" From tblContacts Where RecordID In (Select RowKey From tmpRowKeys)"_s;
    const qint64 there = numRecs(database, u"Select count(*) as NumRecs"_s + chosen);
    // The store empties a table at once, but takes single rows out of each of its indexes.
    if (there == numRecs(database, u"Select count(*) as NumRecs From tblContacts"_s)) {
        database.Execute(u"Delete * From tblContacts"_s);
        return true;
    }
    qint64 done = 0;
    for (const auto &[low, high] : keys.portions(Portion)) {
        database.Execute(u"Delete * From tblContacts Where RecordID In (Select RowKey From tmpRowKeys Where "
                         "RowKey Between %1 And %2)"_s.arg(low)
                             .arg(high));
        done += Portion;
        if (!goesOn(std::min<qint64>(done, keys.count()), keys.count()))
            return false;
    }
    return true;
}

} // namespace quaverly
