// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/QtDesktop.h"

namespace bench {

/** A user who says Yes to everything, so that a command runs to its end. */
class WillingDesktop final : public quaverly::QtDesktop
{
public:
    using QtDesktop::QtDesktop;
    quaverly::Answer MessageBox(const QString & /*text*/, const QString & /*title*/, quaverly::Icon /*icon*/,
                                quaverly::Buttons /*buttons*/,
                                std::optional<quaverly::Answer> /*defaultAnswer*/) override
    {
        return quaverly::Answer::Yes;
    }
};

} // namespace bench
