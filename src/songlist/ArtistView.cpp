// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SortOrders.h"
#include "desktop/Desktop.h"
#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"

using namespace Qt::StringLiterals;

// The artist button: the songs of the current row's artist, and the way back.
namespace quaverly {

void DisplayedSet::cmdShowArtistSongs_Click()
{
    m_data.finishTyping();
    if (m_view.leadsBack)
        leaveArtistView();
    else if (currentRow())
        enterArtistView();
}

void DisplayedSet::enterArtistView()
{
    const QString artist = m_data.currentText(u"Artist"_s);
    m_artistReturn = {m_data.RecordSource(), m_screen->cmbSort(), m_screen->firstColumnField(),
                      m_data.Recordset().value(u"RecordID"_s).toLongLong(), m_screen->gridRow()};
    m_screen->clearGridMarkArmed();
    const Hourglass hourglass(m_desktop);
    compose([&] {
        m_texts.ListWhere = artistWhere(artist);
        m_texts.ListOrder = u" Order By SongName "_s;
        m_texts.ListFilterText.clear();
        m_texts.ListCategoryClause.clear();
        m_texts.ListSource = QString::fromUtf16(SongTable);
        m_texts.ListSelectionClause.clear();
        m_data.setRecordSource(composeList(m_texts));
        // Both sorts below open the statement; the first one also puts the artist into column 1.
        m_screen->cmdSortArtist_Click();
        m_screen->set_cmbSort(DefaultSortLabel);
    });
    setView({.kind = ListKind::Artist});
}

void DisplayedSet::leaveArtistView()
{
    const Hourglass hourglass(m_desktop);
    setView({.kind = ListKind::Returning});
    // ListWhere and ListSource stay those of the artist: a command that composes anew brings him back.
    open(m_artistReturn.source);
    if (m_artistReturn.firstColumn == "SongName"_L1)
        m_screen->cmdSortSong_Click();
    m_screen->set_cmbSort(m_artistReturn.sort);
    m_data.findRecord(m_artistReturn.recordId);
    m_screen->scrollGrid(0, m_screen->gridRow() - m_artistReturn.row);
    setView({.kind = ListKind::Unnamed});
}

} // namespace quaverly
