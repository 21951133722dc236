// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Scope.h"

#include <QByteArray>
#include <QString>

namespace dao {

/** How a function of the dialect is written for SQLite. */
struct FunctionRule
{
    const char *name;
    int fewest;
    int most;
    ValueType result;
    /** The function called; a text with "%1" stands for the whole call with its arguments put in. */
    const char *sql;
    bool aggregate = false;
};

/** The rule of a function, in any case; null for one that the dialect doesn't have. */
[[nodiscard]] const FunctionRule *functionRule(const QString &name);

} // namespace dao
