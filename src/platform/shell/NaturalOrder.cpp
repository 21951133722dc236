// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/NaturalOrder.h"

#include <unicode/ucol.h>

#include <algorithm>

namespace shell {

void NaturalOrder::Close::operator()(UCollator *collator) const
{
    ucol_close(collator);
}

NaturalOrder::NaturalOrder()
{
    UErrorCode status = U_ZERO_ERROR;
    m_collator.reset(ucol_open("", &status));
    ucol_setAttribute(m_collator.get(), UCOL_NUMERIC_COLLATION, UCOL_ON, &status);
}

NaturalOrder::~NaturalOrder() = default;

bool NaturalOrder::isLess(const QString &left, const QString &right) const
{
    const auto units = [](const QString &name) { return reinterpret_cast<const UChar *>(name.utf16()); };
    const int order = m_collator
                          ? ucol_strcoll(m_collator.get(), units(left), static_cast<int32_t>(left.size()),
                                         units(right), static_cast<int32_t>(right.size()))
                          : UCOL_EQUAL;
    return order == UCOL_EQUAL ? left.toUtf8() < right.toUtf8() : order == UCOL_LESS;
}

void NaturalOrder::sort(std::vector<Entry> &entries) const
{
    std::ranges::sort(entries, [this](const Entry &a, const Entry &b) { return isLess(a.name, b.name); });
}

} // namespace shell
