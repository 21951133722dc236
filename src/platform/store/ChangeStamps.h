// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace dao {

/** Counts the changes of fields, so that a recordset knows whether its order still holds. */
class ChangeStamps final
{
public:
    [[nodiscard]] quint64 now() const { return m_now; }
    void touched(const QString &table, const QStringList &fields);
    void everythingTouched() { m_everything = ++m_now; }
    /** @p fields in lower case. */
    [[nodiscard]] bool unchangedSince(quint64 stamp, const QString &table, const QStringList &fields) const;

private:
    quint64 m_now = 1;
    quint64 m_everything = 0;
    /** By "table.field" in lower case. */
    QHash<QString, quint64> m_touched;
};

} // namespace dao
