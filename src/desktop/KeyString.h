// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/VirtualKeys.h"

#include <QString>

#include <vector>

namespace quaverly {

/** One keyboard event of a key string; codes are the virtual keys and set 1 scan codes of a PC keyboard. */
struct KeyboardEvent
{
    /** 0 for a character that no key of the layout gives: its code is then in `scanCode`. */
    quint16 virtualKey = 0;
    quint16 scanCode = 0;
    quint32 flags = 0;

    static constexpr quint32 Extended = 1;
    static constexpr quint32 Up = 2;
    static constexpr quint32 Unicode = 4;

    bool operator==(const KeyboardEvent &) const = default;
};

/**
 * The events of a key string: plain characters, `~` for Enter, `+ ^ %` for Shift, Control and Alt over
 * the next item, `( )` around several characters, and `{NAME count}` for keys by name.
 */
[[nodiscard]] std::vector<KeyboardEvent> keyEvents(const QString &keys, const KeyboardLayout &layout);

/** A key string that types @p text as it stands; a tilde always means Enter, so it is left out. */
[[nodiscard]] QString literalKeys(const QString &text);

} // namespace quaverly
