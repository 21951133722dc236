// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/DeleteDisplayed.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"
#include "maintenance/ScreenAtRest.h"
#include "maintenance/TextReplacement.h"
#include "songlist/DisplayedSet.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr std::size_t KeysInStatement = 1000;

const auto CategoryJoin =
    u"tblContacts INNER JOIN tblCategoryID on tblContacts.RecordID = tblCategoryID.ID  "_s;

bool mentions(const QString &recordSource, QLatin1StringView what)
{
    return recordSource.contains(what, Qt::CaseInsensitive);
}

bool isCategoryList(const QString &recordSource)
{
    return mentions(recordSource, "qryContacts"_L1);
}

/** The table's rows under no restriction. */
bool isWholeTable(const DisplayedSet &set, const QString &recordSource)
{
    return !set.isDuplicateView() && !isCategoryList(recordSource) && !mentions(recordSource, "where"_L1) &&
           !mentions(recordSource, "join"_L1);
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

QString whereTextOf(const QString &recordSource)
{
    const qsizetype where = recordSource.indexOf("where"_L1, 0, Qt::CaseInsensitive);
    if (where < 0)
        return {};
    const qsizetype order = recordSource.indexOf("order by"_L1, where, Qt::CaseInsensitive);
    return order < 0 ? recordSource.sliced(where) : recordSource.sliced(where, order - where);
}

QString deleteStatement(const QString &recordSource)
{
    const QString where = whereTextOf(recordSource);
    if (isCategoryList(recordSource))
        return u"Delete  DISTINCTROW tblContacts.* from "_s + CategoryJoin + where;
    return u"Delete * from tblContacts "_s + where;
}

dao::Database &DeleteDisplayed::database() const
{
    return *m_parts.catalogue.CatalogueDb;
}

void DeleteDisplayed::run()
{
    DataControl &list = m_parts.set.Data1();
    if (!list.hasRows())
        return;
    bringUpToDate();
    const qint64 records = list.hasRows() ? list.Recordset().RecordCount() : 0;
    if (records > 0 && isConfirmed(records) && work())
        m_parts.desktop.MessageBox(u"Records Deleted."_s, u"Delete Records"_s);
}

bool DeleteDisplayed::work()
{
    const ScreenAtRest atRest(m_parts.mainScreen, m_running);
    if (!m_parts.beforeBulk())
        return false;
    const Hourglass hourglass(m_parts.desktop);
    const auto wait =
        m_parts.desktop.ShowWorkingForm(u"Deleting Displayed Records"_s, u"Please wait..."_s, false);
    m_parts.desktop.letEventsRun();
    const QString recordSource = m_parts.set.Data1().RecordSource();
    deleteSongs();
    showWhatIsLeft(recordSource);
    return true;
}

// A song whose mark was taken away in the list of marked ones still stands there: what is announced has to be
// what the list would show now.
void DeleteDisplayed::bringUpToDate()
{
    DataControl &list = m_parts.set.Data1();
    if (isWholeTable(m_parts.set, list.RecordSource()))
        return;
    const Hourglass hourglass(m_parts.desktop);
    if (keysOf(database(), list.RecordSource()) == keysOf(list.Recordset()))
        return;
    const KeepRow row(list);
    list.Refresh();
}

bool DeleteDisplayed::isConfirmed(qint64 records)
{
    const QString n = QString::number(records);
    const QString word = records == 1 ? u"record"_s : u"records"_s;
    const auto confirms = [this](const QString &text, const QString &title) {
        return m_parts.desktop.MessageBox(text, title, Icon::Information, Buttons::YesNo, Answer::No) ==
               Answer::Yes;
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

void DeleteDisplayed::deleteSongs()
{
    const QString recordSource = m_parts.set.Data1().RecordSource();
    if (statementTakesWhatIsShown(recordSource))
        database().Execute(deleteStatement(recordSource));
    else
        deleteByKey();
}

// The where text of a joined list names no table, or one that the statement doesn't; that of a stored query
// is not there at all. Such a statement would fail, or take songs that nobody was asked about.
bool DeleteDisplayed::statementTakesWhatIsShown(const QString &recordSource)
{
    DataControl &list = m_parts.set.Data1();
    if (isWholeTable(m_parts.set, recordSource))
        return numRecs(database(), u"Select count(*) as NumRecs from tblContacts"_s) ==
               list.Recordset().RecordCount();
    const QString where = whereTextOf(recordSource);
    if (where.isEmpty())
        return false;
    const QString from = isCategoryList(recordSource) ? CategoryJoin : u"tblContacts "_s;
    try {
        return keysOf(database(), u"Select DISTINCTROW tblContacts.* from "_s + from + where) ==
               keysOf(list.Recordset());
    } catch (const dao::DaoError &) {
        return false;
    }
}

void DeleteDisplayed::deleteByKey()
{
    const std::vector<qint64> keys = keysOf(m_parts.set.Data1().Recordset());
    dao::Transaction transaction(database().workspace());
    for (std::size_t first = 0; first < keys.size(); first += KeysInStatement) {
        QStringList some;
        for (std::size_t i = first; i < std::min(keys.size(), first + KeysInStatement); ++i)
            some.append(QString::number(keys[i]));
        database().Execute(u"Delete * from tblContacts Where RecordID In ("_s + some.join(u',') + u')');
    }
    transaction.commit();
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
