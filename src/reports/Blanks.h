// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

namespace quaverly {

/** The text without its outer blanks; line ends and tabs are none. */
[[nodiscard]] inline QStringView withoutOuterBlanks(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

[[nodiscard]] inline QString trimBlanks(const QString &text)
{
    return withoutOuterBlanks(text).toString();
}

} // namespace quaverly
