// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/KeyString.h"

#include <QEvent>

namespace quaverly {

/** A key event as Qt delivers it. */
struct QtKeyStroke
{
    QEvent::Type type = QEvent::KeyPress;
    int key = 0;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    /** What it types. */
    QString text;

    bool operator==(const QtKeyStroke &) const = default;
};

/** The strokes that keyboard events amount to. */
[[nodiscard]] std::vector<QtKeyStroke> qtKeyStrokes(const std::vector<KeyboardEvent> &events);

/**
 * Types a key string (see keyEvents) after the current handler has returned, each stroke into the
 * control that has the focus when it arrives.
 */
void SendKeysInput(const QString &keys);

} // namespace quaverly
