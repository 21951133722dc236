// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace quaverly {

/** Virtual keys of a PC keyboard that have no character. */
namespace keycode {
inline constexpr quint16 Backspace = 8;
inline constexpr quint16 Tab = 9;
inline constexpr quint16 Enter = 13;
inline constexpr quint16 Shift = 16;
inline constexpr quint16 Control = 17;
inline constexpr quint16 Alt = 18;
inline constexpr quint16 Escape = 27;
inline constexpr quint16 F1 = 112;
inline constexpr quint16 F16 = 127;
} // namespace keycode

/** Which keys give which characters. */
class KeyboardLayout
{
public:
    static constexpr quint16 NoKey = 0xFFFF;
    static constexpr quint16 Shift = 0x100;
    static constexpr quint16 Control = 0x200;
    static constexpr quint16 Alt = 0x400;

    virtual ~KeyboardLayout() = default;
    /** Virtual key in the low byte, what must be held in the high one; NoKey without such a key. */
    [[nodiscard]] virtual quint16 keyOf(char16_t character) const;
    /** 0 for a key without one. */
    [[nodiscard]] virtual quint16 scanCodeOf(quint16 virtualKey) const;
    [[nodiscard]] virtual bool capsLock() const { return false; }
};

struct NamedKey
{
    quint16 virtualKey = 0;
    bool extended = false;
};

/** The key of a name such as "PGDN" or "F5", in any case. */
[[nodiscard]] std::optional<NamedKey> namedKey(QStringView name);

} // namespace quaverly
