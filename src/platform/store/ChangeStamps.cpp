// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/ChangeStamps.h"

#include <algorithm>

namespace dao {

void ChangeStamps::touched(const QString &table, const QStringList &fields)
{
    ++m_now;
    for (const QString &field : fields)
        m_touched.insert(table.toLower() + u'.' + field.toLower(), m_now);
}

bool ChangeStamps::unchangedSince(quint64 stamp, const QString &table, const QStringList &fields) const
{
    return m_everything <= stamp && std::ranges::all_of(fields, [&](const QString &field) {
               return m_touched.value(table.toLower() + u'.' + field) <= stamp;
           });
}

} // namespace dao
