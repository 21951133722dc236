// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/DeleteDisplayed.h"

#include "catalogue/Catalogue.h"
#include "desktop/PreviewQuestion.h"
#include "maintenance/BulkChange.h"
#include "platform/store/RowKeys.h"
#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"
#include "songlist/SongPreview.h"

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

/** "1 record", "7 song records". */
QString counted(qint64 records, const QString &kind = {})
{
    return QString::number(records) + u' ' + kind + (records == 1 ? u"record"_s : u"records"_s);
}

} // namespace

void DeleteDisplayed::run()
{
    DataControl &list = m_parts.set.Data1();
    if (!list.hasRows())
        return;
    bringUpToDate();
    if (!list.hasRows())
        return;
    const auto songs = confirmedSongs();
    if (!songs)
        return;
    const QString recordSource = list.RecordSource();
    BulkChange::Work work = deletionOf(*songs, *m_parts.services.catalogue.CatalogueDb);
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
    const auto now = m_parts.services.catalogue.CatalogueDb->OpenRecordset(list.RecordSource(),
                                                                           dao::RecordsetType::Dynaset);
    if (dao::keysOf(*now) == dao::keysOf(list.Recordset()))
        return;
    const KeepRow row(list);
    list.Refresh();
}

std::optional<std::vector<qint64>> DeleteDisplayed::confirmedSongs()
{
    DataControl &list = m_parts.set.Data1();
    const qint64 records = list.Recordset().RecordCount();
    std::unique_ptr<DeletionPreview> preview;
    const Question question{u"This will DELETE the "_s + counted(records) +
                                u" currently displayed on the Grid.  This will not delete any of the actual "
                                "music files, just their entry in this database.\n\n"
                                "Are you SURE you want to delete the "_s +
                                counted(records, u"song "_s) + u" currently displayed on the Grid?"_s,
                            u"Delete Confirmation"_s, Icon::Information};
    if (!isConfirmed(m_parts.services.desktop, question, [&]() -> Preview & {
            preview = std::make_unique<DeletionPreview>(
                SongPreview::Ground{*m_parts.services.catalogue.CatalogueDb, list});
            return *preview;
        }))
        return std::nullopt;
    std::vector<qint64> songs = preview ? preview->tickedSongs() : dao::keysOf(list.Recordset());
    if (!isConfirmedAgain(preview ? preview->ticked() : records))
        return std::nullopt;
    return songs;
}

bool DeleteDisplayed::isConfirmedAgain(qint64 records)
{
    return m_parts.services.desktop.MessageBox(
               u"About to DELETE "_s + counted(records) +
                   u".  Please confirm one more time:\n\n"
                   "Are you SURE you want to DELETE every record that is currently displayed?"_s,
               u"Are you REALLY sure?"_s, Icon::Information, Buttons::YesNo, Answer::No) == Answer::Yes;
}

void DeleteDisplayed::showWhatIsLeft(const QString &recordSource)
{
    if (mentions(recordSource, "where selected ="_L1))
        m_parts.set.endSelection();
    m_parts.set.Data1().Refresh();
    m_parts.set.displayedDeleted();
    m_parts.mainScreen.set_txtName({});
}

} // namespace quaverly
