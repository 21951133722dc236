// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/BackColor.h"

#include <cmath>

namespace quaverly {

namespace {

double luminance(const QColor &color)
{
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

QColor textColorOn(const QColor &back)
{
    const double light = luminance(back) + 0.05;
    return 1.05 / light > light / 0.05 ? Qt::white : Qt::black;
}

} // namespace quaverly
