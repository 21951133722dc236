// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Preview.h"

using namespace Qt::StringLiterals;

namespace quaverly {

void Preview::setRows(const QString &sentence, std::size_t count, std::size_t obstructed)
{
    m_sentence = sentence;
    m_ticked.assign(count, false);
    m_obstructed = static_cast<int>(obstructed);
    m_tickedCount = 0;
    tickAll(true);
}

void Preview::tick(int row, bool on)
{
    if (row < m_obstructed || isTicked(row) == on)
        return;
    m_ticked[static_cast<std::size_t>(row)] = on;
    m_tickedCount += on ? 1 : -1;
}

void Preview::tickAll(bool on)
{
    for (int row = m_obstructed; row < count(); ++row)
        tick(row, on);
}

QStringList Preview::headings() const
{
    return {u"Record"_s, u"Field"_s, u"Before"_s, u"After"_s};
}

} // namespace quaverly
