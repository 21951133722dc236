// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/LinesPerPage.h"

#include "platform/text/Text.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace quaverly {

double linesOf(const QString &text)
{
    return IsNumeric(text) ? Val(QString(text).remove(u',')) : 0;
}

QString refusalOfLinesPerPage(const QString &answer)
{
    if (!IsNumeric(answer))
        return u"Value must be numeric."_s;
    const double value = linesOf(answer);
    if (std::floor(value) > MostLinesPerPage)
        return u"Value can not be greater than 32,000."_s;
    if (value < 0)
        return u"Value can not be negative."_s;
    return {};
}

} // namespace quaverly
