// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/SongWalk.h"

#include "songlist/DataControl.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

void SongWalk::next()
{
    dao::Recordset &rows = m_data.Recordset();
    if (std::exchange(m_stand, Stand::OnIt) != Stand::BehindIt) {
        rows.MoveNext();
        if (rows.atEOF())
            rows.MoveLast();
    }
    m_data.notifyRowChanged();
}

void SongWalk::previous()
{
    dao::Recordset &rows = m_data.Recordset();
    if (std::exchange(m_stand, Stand::OnIt) != Stand::BeforeIt) {
        rows.MovePrevious();
        if (rows.atBOF())
            rows.MoveFirst();
    }
    m_data.notifyRowChanged();
}

bool SongWalk::refreshAt(qint64 recordId)
{
    const qint64 place = m_data.Recordset().AbsolutePosition();
    m_data.Refresh();
    m_stand = Stand::OnIt;
    if (!m_data.hasRows())
        return false;
    if (m_data.findRecord(recordId))
        return true;
    const qint64 last = m_data.Recordset().RecordCount() - 1;
    m_data.Recordset().setAbsolutePosition(std::clamp<qint64>(place, 0, last));
    m_stand = place > last ? Stand::BeforeIt : Stand::BehindIt;
    m_data.notifyRowChanged();
    return true;
}

void SongWalk::refreshForList(qint64 recordId)
{
    m_data.Refresh();
    if (!m_data.hasRows())
        return;
    m_data.Recordset().MoveLast();
    m_data.findRecord(recordId);
    m_data.notifyRowChanged();
}

bool SongWalk::deleteCurrent()
{
    const qint64 song = currentID();
    const bool onlyRow = m_data.Recordset().RecordCount() == 1;
    const qint64 neighbour = onlyRow ? 0 : neighbourID();
    m_catalogue.CatalogueDb->Execute(u"DELETE FROM tblContacts WHERE RecordID = "_s + QString::number(song));
    m_data.Refresh();
    m_data.findRecord(neighbour);
    return m_data.hasRows();
}

qint64 SongWalk::currentID()
{
    return m_data.Recordset().value(u"RecordID"_s).toLongLong();
}

/** RecordID of the row behind, or of the one in front at the end; stays on the current row. */
qint64 SongWalk::neighbourID()
{
    dao::Recordset &rows = m_data.Recordset();
    const qint64 place = rows.AbsolutePosition();
    rows.setAbsolutePosition(place + 1 < rows.RecordCount() ? place + 1 : place - 1);
    qint64 neighbour = currentID();
    rows.setAbsolutePosition(place);
    return neighbour;
}

} // namespace quaverly
