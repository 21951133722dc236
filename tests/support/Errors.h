// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/DaoError.h"
#include "support/QtPrinters.h"

namespace quaverly::test {

/** The number that @p run throws, 0 when it throws nothing. */
template <typename Run> int errorOf(const Run &run)
{
    try {
        run();
    } catch (const dao::DaoError &error) {
        EXPECT_FALSE(error.description.isEmpty());
        return error.number;
    }
    return 0;
}

} // namespace quaverly::test
