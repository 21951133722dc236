// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/RecordsetImpl.h"

#include "platform/text/Text.h"

using namespace Qt::StringLiterals;

namespace dao {

using Place = RecordsetImpl::Place;

Recordset::Recordset(std::unique_ptr<RecordsetImpl> impl) : m_impl(std::move(impl))
{
    if (m_impl->type != RecordsetType::Table)
        m_impl->ensureRows();
}

Recordset::~Recordset() = default;

RecordsetType Recordset::Type() const
{
    return m_impl->type;
}

const QList<Field> &Recordset::Fields() const
{
    return m_impl->rows.fields();
}

int Recordset::fieldIndex(const QString &name) const
{
    return m_impl->rows.fieldIndex(name);
}

qint64 Recordset::RecordCount() const
{
    return m_impl->count();
}

bool Recordset::atBOF() const
{
    return m_impl->isAt(Place::Before);
}

bool Recordset::atEOF() const
{
    return m_impl->isAt(Place::Behind);
}

void Recordset::MoveFirst()
{
    m_impl->goTo(0);
}

void Recordset::MoveLast()
{
    m_impl->goTo(std::max<qint64>(0, m_impl->count() - 1));
}

void Recordset::MoveNext()
{
    if (atEOF())
        throw DaoError(NoCurrentRecord, u"No current record."_s);
    const qint64 at = m_impl->position();
    // Behind a deleted row, its place already holds the next one.
    const bool stay = m_impl->deletedCurrent;
    m_impl->goTo(m_impl->place == Place::Before ? 0 : stay ? at : at + 1);
}

void Recordset::MovePrevious()
{
    if (atBOF())
        throw DaoError(NoCurrentRecord, u"No current record."_s);
    const qint64 at = m_impl->position();
    m_impl->goTo(m_impl->place == Place::Behind ? m_impl->count() - 1 : at - 1);
}

void Recordset::Move(qint64 rows)
{
    m_impl->goTo(m_impl->position() + rows);
}

qint64 Recordset::AbsolutePosition() const
{
    m_impl->ensureRows();
    return m_impl->place == Place::Row && m_impl->count() > 0 ? m_impl->position() : -1;
}

void Recordset::setAbsolutePosition(qint64 position)
{
    if (position < 0 || position >= m_impl->count())
        throw DaoError(NoCurrentRecord, u"No current record."_s);
    m_impl->goTo(position);
}

Bookmark Recordset::bookmark() const
{
    return {m_impl->currentKey()};
}

void Recordset::setBookmark(Bookmark mark)
{
    const qint64 position = positionOf(mark);
    if (position < 0)
        throw DaoError(NoCurrentRecord, u"No current record."_s);
    m_impl->goTo(position);
}

Bookmark Recordset::LastModified() const
{
    return m_impl->lastModified;
}

qint64 Recordset::positionOf(Bookmark mark)
{
    m_impl->ensureRows();
    if (m_impl->rows.isKeyed())
        return m_impl->rows.positionOf(mark.key);
    return mark.key >= 0 && mark.key < m_impl->rows.count() ? mark.key : -1;
}

Bookmark Recordset::bookmarkAt(qint64 position)
{
    if (position < 0 || position >= m_impl->count())
        throw DaoError(NoCurrentRecord, u"No current record."_s);
    return {m_impl->rows.isKeyed() ? m_impl->rows.keyAt(position) : position};
}

void Recordset::FindFirst(const QString &criteria)
{
    m_impl->find(criteria, 1, true);
}

void Recordset::FindLast(const QString &criteria)
{
    m_impl->find(criteria, -1, true);
}

void Recordset::FindNext(const QString &criteria)
{
    m_impl->find(criteria, 1, false);
}

void Recordset::FindPrevious(const QString &criteria)
{
    m_impl->find(criteria, -1, false);
}

bool Recordset::NoMatch() const
{
    return m_impl->noMatch;
}

void Recordset::setIndex(const QString &name)
{
    m_impl->setIndex(name);
}

QString Recordset::Index() const
{
    return m_impl->index;
}

void Recordset::Seek(const QString &comparison, const QVariantList &keys)
{
    m_impl->seek(comparison, keys);
}

QVariant Recordset::value(const QString &field) const
{
    return m_impl->value(field);
}

QString Recordset::text(const QString &field) const
{
    return quaverly::NullToEmpty(value(field));
}

QVariant Recordset::valueAt(qint64 position, int field) const
{
    if (position < 0 || position >= m_impl->count() || field < 0 || field >= Fields().size())
        throw DaoError(NoCurrentRecord, u"No current record."_s);
    return m_impl->rows.value(position, field);
}

void Recordset::Edit()
{
    m_impl->edit();
}

void Recordset::AddNew()
{
    m_impl->addNew();
}

void Recordset::setValue(const QString &field, const QVariant &value)
{
    m_impl->setValue(field, value);
}

void Recordset::Update()
{
    m_impl->update();
}

void Recordset::CancelUpdate()
{
    m_impl->cancelUpdate();
}

bool Recordset::editing() const
{
    return m_impl->mode != RecordsetImpl::Mode::None;
}

void Recordset::Delete()
{
    m_impl->remove();
}

void Recordset::Requery()
{
    m_impl->loadRows();
}

void Recordset::Close()
{
    m_impl->closed = true;
    m_impl->rows.release();
}

} // namespace dao
