// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/DeleteDisplayed.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"
#include "maintenance/BulkChange.h"
#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

bool mentions(const QString &recordSource, QLatin1StringView what)
{
    return recordSource.contains(what, Qt::CaseInsensitive);
}

/** The table's rows under no restriction. */
bool isWholeTable(const DisplayedSet &set, const QString &recordSource)
{
    return !set.isDuplicateView() && !mentions(recordSource, "qryContacts"_L1) &&
           !mentions(recordSource, "where"_L1) && !mentions(recordSource, "join"_L1);
}

/** Each key once, ascending. */
std::vector<qint64> keysOf(dao::Recordset &songs)
{
    std::vector<qint64> keys;
    const qint64 count = songs.RecordCount();
    keys.reserve(static_cast<std::size_t>(count));
    for (qint64 song = 0; song < count; ++song)
        keys.push_back(songs.bookmarkAt(song).key);
    std::ranges::sort(keys);
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    return keys;
}

std::vector<qint64> keysOf(dao::Database &database, const QString &sql)
{
    return keysOf(*database.OpenRecordset(sql, dao::RecordsetType::Dynaset));
}

} // namespace

void DeleteDisplayed::run()
{
    DataControl &list = m_parts.set.Data1();
    if (!list.hasRows())
        return;
    bringUpToDate();
    const qint64 records = list.hasRows() ? list.Recordset().RecordCount() : 0;
    if (records == 0 || !isConfirmed(records))
        return;
    const QString recordSource = list.RecordSource();
    BulkChange::Work work = deletionOf(list.Recordset(), *m_parts.services.catalogue.CatalogueDb);
    work.caption = u"Deleting Displayed Records"_s;
    work.command = u"Delete All Displayed Records"_s;
    work.showResult = [&] { showWhatIsLeft(recordSource); };
    if (BulkChange(m_parts).run(work))
        m_parts.services.desktop.MessageBox(u"Records Deleted.\n\n"_s + waysBack(), u"Delete Records"_s);
}

// A song whose mark was taken away in the list of marked ones still stands there: what is announced has to be
// what the list would show now.
void DeleteDisplayed::bringUpToDate()
{
    DataControl &list = m_parts.set.Data1();
    if (isWholeTable(m_parts.set, list.RecordSource()))
        return;
    const Hourglass hourglass(m_parts.services.desktop);
    if (keysOf(*m_parts.services.catalogue.CatalogueDb, list.RecordSource()) == keysOf(list.Recordset()))
        return;
    const KeepRow row(list);
    list.Refresh();
}

bool DeleteDisplayed::isConfirmed(qint64 records)
{
    const QString n = QString::number(records);
    const QString word = records == 1 ? u"record"_s : u"records"_s;
    const auto confirms = [this](const QString &text, const QString &title) {
        return m_parts.services.desktop.MessageBox(text, title, Icon::Information, Buttons::YesNo,
                                                   Answer::No) == Answer::Yes;
    };
    return confirms(u"This will DELETE the "_s + n + u' ' + word +
                        u" currently displayed on the Grid.  This will not delete any of the actual music "
                        "files, just their entry in this database.\n\n"
                        "Are you SURE you want to delete the "_s +
                        n + u" song "_s + word + u" currently displayed on the Grid?"_s,
                    u"Delete Confirmation"_s) &&
           confirms(u"About to DELETE "_s + n + u' ' + word +
                        u".  Please confirm one more time:\n\n"
                        "Are you SURE you want to DELETE every record that is currently displayed?"_s,
                    u"Are you REALLY sure?"_s);
}

void DeleteDisplayed::showWhatIsLeft(const QString &recordSource)
{
    MainScreen &screen = m_parts.mainScreen;
    if (mentions(recordSource, "where selected ="_L1))
        m_parts.set.endSelection();
    screen.setEnabled(MainControl::cmdAdd, true);
    m_parts.set.Data1().Refresh();
    screen.set_txtName({});
    screen.set_cmdShowArtistSongs({});
    screen.set_lblFilterMsg({});
}

} // namespace quaverly
