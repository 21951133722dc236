// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

namespace quaverly {

/** A view of a text or of its bytes without the outer blanks; line ends and tabs are none. */
template <typename View> [[nodiscard]] View withoutOuterBlanks(View text)
{
    while (!text.isEmpty() && text.front() == u' ')
        text = text.sliced(1);
    while (!text.isEmpty() && text.back() == u' ')
        text.chop(1);
    return text;
}

[[nodiscard]] inline QString trimBlanks(const QString &text)
{
    return withoutOuterBlanks(QStringView(text)).toString();
}

} // namespace quaverly
