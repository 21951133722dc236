// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

#include <functional>

namespace quaverly {

/** A command's last question before it changes many rows. */
struct Question
{
    QString text;
    QString title;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::YesNo;
    Answer defaultAnswer = Answer::No;
};

/**
 * Asks, with a button that shows what would change; true when the command is to go on. @p preview is only
 * called, and what it makes only shown, when the user wants to see it.
 */
[[nodiscard]] bool isConfirmed(Desktop &desktop, const Question &question,
                               const std::function<Preview &()> &preview);

} // namespace quaverly
