// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ScreenFont.h"

#include <QApplication>
#include <QFont>

namespace quaverly {

void applyScreenFont(const QString &name)
{
    QFont font = QApplication::font();
    font.setFamily(name);
    QApplication::setFont(font);
}

} // namespace quaverly
