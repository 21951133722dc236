// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/NaturalOrder.h"

#include <unicode/ucol.h>

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

QByteArray NaturalOrder::key(const QString &name) const
{
    QByteArray tieBreak = name.toUtf8();
    if (!m_collator)
        return tieBreak;
    const auto *units = reinterpret_cast<const UChar *>(name.utf16());
    const auto length = static_cast<int32_t>(name.size());
    QByteArray key(4 * name.size() + 16, Qt::Uninitialized);
    const auto fill = [&] {
        return ucol_getSortKey(m_collator.get(), units, length, reinterpret_cast<uint8_t *>(key.data()),
                               static_cast<int32_t>(key.size()));
    };
    int32_t needed = fill();
    if (needed > key.size()) {
        key.resize(needed);
        needed = fill();
    }
    key.truncate(needed);
    return key + tieBreak;
}

} // namespace shell
