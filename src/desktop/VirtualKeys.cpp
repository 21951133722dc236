// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/VirtualKeys.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

struct KeyName
{
    QLatin1StringView name;
    NamedKey key;
};

constexpr KeyName Names[] = {
    {"BACKSPACE"_L1, {8, false}},   {"BS"_L1, {8, false}},        {"BKSP"_L1, {8, false}},
    {"BREAK"_L1, {19, true}},       {"CAPSLOCK"_L1, {20, false}}, {"DELETE"_L1, {46, true}},
    {"DEL"_L1, {46, true}},         {"DOWN"_L1, {40, true}},      {"END"_L1, {35, true}},
    {"ENTER"_L1, {13, false}},      {"ESC"_L1, {27, false}},      {"HELP"_L1, {47, false}},
    {"HOME"_L1, {36, true}},        {"INS"_L1, {45, true}},       {"INSERT"_L1, {45, true}},
    {"LEFT"_L1, {37, true}},        {"NUMLOCK"_L1, {144, true}},  {"PGDN"_L1, {34, true}},
    {"PGUP"_L1, {33, true}},        {"PAUSE"_L1, {19, false}},    {"PRINT"_L1, {42, true}},
    {"PRTSC"_L1, {44, true}},       {"PRTSCN"_L1, {44, true}},    {"PRINTSCRN"_L1, {44, true}},
    {"PRINTSCREEN"_L1, {44, true}}, {"RIGHT"_L1, {39, true}},     {"SCROLLLOCK"_L1, {145, false}},
    {"SELECT"_L1, {41, false}},     {"TAB"_L1, {9, false}},       {"UP"_L1, {38, true}},
};

/** Keys beside letters and digits: the characters without and with Shift, virtual key, scan code. */
struct SignKey
{
    char16_t plain;
    char16_t shifted;
    quint16 virtualKey;
    quint16 scanCode;
};
constexpr SignKey SignKeys[] = {
    {u'1', u'!', '1', 0x02},  {u'2', u'@', '2', 0x03},  {u'3', u'#', '3', 0x04}, {u'4', u'$', '4', 0x05},
    {u'5', u'%', '5', 0x06},  {u'6', u'^', '6', 0x07},  {u'7', u'&', '7', 0x08}, {u'8', u'*', '8', 0x09},
    {u'9', u'(', '9', 0x0A},  {u'0', u')', '0', 0x0B},  {u'-', u'_', 189, 0x0C}, {u'=', u'+', 187, 0x0D},
    {u'[', u'{', 219, 0x1A},  {u']', u'}', 221, 0x1B},  {u';', u':', 186, 0x27}, {u'\'', u'"', 222, 0x28},
    {u'`', u'~', 192, 0x29},  {u'\\', u'|', 220, 0x2B}, {u',', u'<', 188, 0x33}, {u'.', u'>', 190, 0x34},
    {u'/', u'?', 191, 0x35},  {u' ', u' ', 32, 0x39},   {u'\b', u'\b', 8, 0x0E}, {u'\t', u'\t', 9, 0x0F},
    {u'\r', u'\r', 13, 0x1C}, {0x1B, 0x1B, 27, 0x01},
};

/** Scan codes of the letters from A on. */
constexpr quint16 LetterScanCodes[] = {0x1E, 0x30, 0x2E, 0x20, 0x12, 0x21, 0x22, 0x23, 0x17,
                                       0x24, 0x25, 0x26, 0x32, 0x31, 0x18, 0x19, 0x10, 0x13,
                                       0x1F, 0x14, 0x16, 0x2F, 0x11, 0x2D, 0x15, 0x2C};

struct CodePair
{
    quint16 virtualKey;
    quint16 scanCode;
};
/** Keys without a character; F1 to F10 run from 0x3B. */
constexpr CodePair OtherKeys[] = {
    {16, 0x2A}, {17, 0x1D}, {18, 0x38},  {20, 0x3A},  {33, 0x49},  {34, 0x51},
    {35, 0x4F}, {36, 0x47}, {37, 0x4B},  {38, 0x48},  {39, 0x4D},  {40, 0x50},
    {45, 0x52}, {46, 0x53}, {122, 0x57}, {123, 0x58}, {144, 0x45}, {145, 0x46},
};

} // namespace

std::optional<NamedKey> namedKey(QStringView name)
{
    const auto *const found = std::ranges::find_if(
        Names, [&](const KeyName &key) { return name.compare(key.name, Qt::CaseInsensitive) == 0; });
    if (found != std::end(Names))
        return found->key;
    if (!name.startsWith(u'F', Qt::CaseInsensitive))
        return std::nullopt;
    bool isNumber = false;
    const int number = name.sliced(1).toInt(&isNumber);
    if (!isNumber || number < 1 || number > 16)
        return std::nullopt;
    return NamedKey{static_cast<quint16>(keycode::F1 + number - 1), false};
}

quint16 KeyboardLayout::keyOf(char16_t character) const
{
    if (character >= u'a' && character <= u'z')
        return static_cast<quint16>(character - u'a' + u'A');
    if (character >= u'A' && character <= u'Z')
        return static_cast<quint16>(character | Shift);
    for (const SignKey &key : SignKeys) {
        if (key.plain == character)
            return key.virtualKey;
        if (key.shifted == character)
            return key.virtualKey | Shift;
    }
    return NoKey;
}

quint16 KeyboardLayout::scanCodeOf(quint16 virtualKey) const
{
    if (virtualKey >= u'A' && virtualKey <= u'Z')
        return LetterScanCodes[virtualKey - u'A'];
    if (virtualKey >= keycode::F1 && virtualKey < keycode::F1 + 10)
        return static_cast<quint16>(0x3B + virtualKey - keycode::F1);
    for (const SignKey &key : SignKeys) {
        if (key.virtualKey == virtualKey)
            return key.scanCode;
    }
    const auto *const found =
        std::ranges::find_if(OtherKeys, [&](const CodePair &pair) { return pair.virtualKey == virtualKey; });
    return found == std::end(OtherKeys) ? quint16(0) : found->scanCode;
}

} // namespace quaverly
