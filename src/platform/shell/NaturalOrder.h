// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/Shell.h"

#include <memory>

struct UCollator;

namespace shell {

/**
 * The order of names in a folder: letters without regard to case, numbers by value ("2" before "10"),
 * the same in every locale. Names that differ only in case still have an order.
 */
class NaturalOrder final
{
public:
    NaturalOrder();
    ~NaturalOrder();
    Q_DISABLE_COPY_MOVE(NaturalOrder)

    void sort(std::vector<Entry> &entries) const;

private:
    [[nodiscard]] bool isLess(const QString &left, const QString &right) const;

    struct Close
    {
        void operator()(UCollator *collator) const;
    };
    std::unique_ptr<UCollator, Close> m_collator;
};

} // namespace shell
