// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

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

    /** Keys compare byte by byte as their names do. */
    [[nodiscard]] QByteArray key(const QString &name) const;

private:
    struct Close
    {
        void operator()(UCollator *collator) const;
    };
    std::unique_ptr<UCollator, Close> m_collator;
};

} // namespace shell
