// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/DataControl.h"

#include "platform/store/ReadProbe.h"
#include "platform/text/Text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Statements are joined from pieces, so that one may come with more blanks than another. */
QString sameStatement(const QString &sql)
{
    return sql.simplified();
}

} // namespace

void DataControl::openWhenAsked(const QString &sql)
{
    m_recordset.reset();
    m_recordSource = sql;
    m_openedSource = sql;
    m_openWhenAsked = true;
}

bool DataControl::hasRows() const
{
    if (m_openWhenAsked)
        return !m_catalogue.ContactsTable->atEOF();
    return m_recordset && !m_recordset->isEmpty();
}

void DataControl::finishTyping()
{
    for (DataListener *listener : std::vector(m_listeners))
        listener->finishTyping();
}

void DataControl::Refresh(dao::ReadRows *read)
{
    try {
        finishTyping();
    } catch (...) {
        m_recordSource = m_openedSource;
        throw;
    }
    m_openWhenAsked = false;
    if (m_recordset && m_openedOnce == sameStatement(m_recordSource)) {
        m_openedSource = m_recordSource;
        if (hasRows())
            m_recordset->MoveFirst();
        notifyRowChanged();
        return;
    }
    try {
        dao::Database &database = *m_catalogue.CatalogueDb;
        m_recordset = read != nullptr ? database.OpenRecordset(m_recordSource, std::move(*read))
                                      : database.OpenRecordset(m_recordSource, dao::RecordsetType::Dynaset);
    } catch (...) {
        m_recordSource = m_openedSource;
        throw;
    }
    m_openedSource = m_recordSource;
    if (m_onceDepth > 0)
        m_openedOnce = sameStatement(m_recordSource);
    notifySetRebuilt();
}

dao::Recordset &DataControl::Recordset()
{
    if (m_openWhenAsked)
        Refresh();
    if (!m_recordset)
        throw dao::DaoError(dao::ObjectInvalid, u"No songs are displayed yet."_s);
    return *m_recordset;
}

QString DataControl::currentText(const QString &field) const
{
    if (!m_recordset || m_recordset->isEmpty() || m_recordset->atEOF() || m_recordset->atBOF())
        return {};
    return NullToEmpty(m_recordset->value(field));
}

bool DataControl::findRecord(qint64 recordId)
{
    if (!hasRows())
        return false;
    Recordset().FindFirst(u"RecordID = "_s + QString::number(recordId));
    if (m_recordset->NoMatch())
        return false;
    notifyRowChanged();
    return true;
}

void DataControl::notifySetRebuilt()
{
    for (DataListener *listener : std::vector(m_listeners))
        listener->setRebuilt();
}

void DataControl::notifyRowChanged()
{
    for (DataListener *listener : std::vector(m_listeners))
        listener->rowChanged();
}

void DataControl::Close()
{
    m_recordset.reset();
    m_openWhenAsked = false;
    m_recordSource.clear();
    m_openedSource.clear();
    m_openedOnce.reset();
    notifySetRebuilt();
}

void DataControl::addListener(DataListener &listener)
{
    m_listeners.push_back(&listener);
}

void DataControl::removeListener(DataListener &listener)
{
    std::erase(m_listeners, &listener);
}

RefreshOnce::RefreshOnce(DataControl &data) : m_data(data)
{
    if (m_data.m_onceDepth++ == 0)
        m_data.m_openedOnce.reset();
}

RefreshOnce::~RefreshOnce()
{
    if (--m_data.m_onceDepth == 0)
        m_data.m_openedOnce.reset();
}

KeepRow::KeepRow(DataControl &data) : m_data(data)
{
    if (data.hasRows() && !data.Recordset().atBOF() && !data.Recordset().atEOF())
        m_mark = data.Recordset().bookmark();
}

KeepRow::~KeepRow()
{
    try {
        if (m_mark && m_data.hasRows()) {
            m_data.Recordset().setBookmark(*m_mark);
            m_data.notifyRowChanged();
        }
    } catch (const dao::DaoError &) {
        // The row is gone, or no longer displayed: the list stays where it is.
    }
}

} // namespace quaverly
