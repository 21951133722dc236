// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/BulkChange.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"
#include "maintenance/ScreenAtRest.h"
#include "platform/store/RowKeys.h"
#include "songlist/DisplayedSet.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Songs deleted between two looks at the wait window: about a fifth of a second. */
constexpr qsizetype Portion = 3000;

/** The store empties a table at once, but takes single rows out of each of its indexes. */
bool areAllSongs(const std::vector<qint64> &songs, dao::Database &database)
{
    const dao::RowKeys keys(database, songs);
    // A snapshot would be read through a connection that doesn't know the keys.
    const auto others = database.OpenRecordset(
        u"Select Top 1 RecordID From tblContacts Where RecordID Not In (Select RowKey From tmpRowKeys)"_s,
        dao::RecordsetType::Dynaset);
    return others->isEmpty();
}

bool deleteByKey(const std::vector<qint64> &songs, dao::Database &database, const dao::GoesOn &goesOn)
{
    const dao::RowKeys keys(database, songs);
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

} // namespace

bool BulkChange::run(const Work &work)
{
    const End end = begin(work);
    if (end == End::Stopped)
        m_parts.services.desktop.MessageBox(u"The command was stopped.  Nothing was changed."_s,
                                            work.caption);
    return end == End::Done;
}

BulkChange::End BulkChange::begin(const Work &work)
{
    const ScreenAtRest atRest(m_parts.mainScreen, m_parts.busy);
    if (work.changesRows && !m_parts.beforeBulk(work.command))
        return End::NotBegun;
    const Hourglass hourglass(m_parts.services.desktop);
    const auto wait = m_parts.services.desktop.ShowWorkingForm(work.caption, u"Please wait..."_s, true);
    wait->offerCancel();
    m_parts.services.desktop.letEventsRun();
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
    m_parts.services.catalogue.CatalogueDb->describeChange(work.sentence.isEmpty() ? work.command
                                                                                   : work.sentence);
    std::optional<dao::Transaction> transaction;
    if (!work.isOneStatement)
        transaction.emplace(m_parts.services.catalogue.CatalogueDb->workspace());
    const bool isDone = work.change([&](qint64 done, qint64 all) {
        wait.setBar(static_cast<int>(done * FullBarTwips / std::max<qint64>(all, 1)));
        m_parts.services.desktop.letEventsRun();
        return !wait.isClosed();
    });
    if (isDone && transaction)
        transaction->commit();
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

BulkChange::Work deletionOf(const std::vector<qint64> &songs, dao::Database &database)
{
    if (areAllSongs(songs, database))
        return {.change =
                    [&database](const dao::GoesOn & /*goesOn*/) {
                        database.Execute(u"Delete * From tblContacts"_s);
                        return true;
                    },
                .isOneStatement = true};
    return {.change = [songs, &database](const dao::GoesOn &goesOn) {
        return deleteByKey(songs, database, goesOn);
    }};
}

} // namespace quaverly
