// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/KeyString.h"

#include "platform/text/Text.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** More repeats than anyone waits for. */
constexpr double MostRepeats = 32767;

struct Modifier
{
    char16_t sign;
    quint16 virtualKey;
    quint8 mask;
};
constexpr quint8 ShiftHeld = 1;
constexpr Modifier Modifiers[] = {
    {u'+', keycode::Shift, ShiftHeld}, {u'^', keycode::Control, 2}, {u'%', keycode::Alt, 4}};

bool isLetter(char16_t c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

/** Reads a key string from front to back. */
class KeyStringReader final
{
public:
    KeyStringReader(const QString &keys, const KeyboardLayout &layout) : m_keys(keys), m_layout(layout) {}

    std::vector<KeyboardEvent> read()
    {
        while (m_position < m_keys.size())
            item();
        return std::move(m_events);
    }

private:
    void item();
    void modifier(const Modifier &modifier);
    void group();
    void brace();
    void plain(char16_t character);
    void press(quint16 virtualKey, bool extended, quint16 needs);

    void down(quint16 key, bool extended = false)
    {
        m_events.push_back({key, 0, extended ? KeyboardEvent::Extended : 0});
    }
    void up(quint16 key) { m_events.push_back({key, 0, KeyboardEvent::Up}); }

    const QString &m_keys;
    const KeyboardLayout &m_layout;
    /** Of the character to be read next. */
    qsizetype m_position = 0;
    quint8 m_held = 0;
    std::vector<KeyboardEvent> m_events;
};

void KeyStringReader::item()
{
    if (m_position >= m_keys.size())
        return;
    const char16_t character = m_keys.at(m_position++).unicode();
    for (const Modifier &known : Modifiers) {
        if (known.sign == character) {
            modifier(known);
            return;
        }
    }
    if (character == u'(')
        group();
    else if (character == u'{')
        brace();
    else
        plain(character);
}

void KeyStringReader::modifier(const Modifier &modifier)
{
    m_held |= modifier.mask;
    down(modifier.virtualKey);
    item();
    m_held &= static_cast<quint8>(~modifier.mask);
    up(modifier.virtualKey);
}

// An empty or unclosed group sends nothing, and reading goes on behind its bracket.
void KeyStringReader::group()
{
    const qsizetype end = m_keys.indexOf(u')', m_position);
    if (end <= m_position)
        return;
    while (m_position < end)
        plain(m_keys.at(m_position++).unicode());
    ++m_position;
}

// Searched from one character further on, so that a closing brace can be named too.
void KeyStringReader::brace()
{
    const qsizetype end = m_keys.indexOf(u'}', m_position + 1);
    if (end < 0)
        return;
    const QString content = m_keys.sliced(m_position, end - m_position);
    m_position = end + 1;
    const qsizetype blank = content.indexOf(u' ');
    const QString name = blank < 0 ? content : content.first(blank);
    const int count = blank < 0 ? 1 : static_cast<int>(qBound(0.0, Val(content.sliced(blank)), MostRepeats));
    if (name.isEmpty())
        return;
    const std::optional<NamedKey> named = namedKey(name);
    for (int i = 0; i < count; ++i) {
        if (named)
            press(named->virtualKey, named->extended, 0);
        else
            plain(name.at(0).unicode());
    }
}

void KeyStringReader::plain(char16_t character)
{
    const quint16 key = character < 256 ? m_layout.keyOf(character) : KeyboardLayout::NoKey;
    if (key == KeyboardLayout::NoKey) {
        m_events.push_back({0, character, KeyboardEvent::Unicode});
        m_events.push_back({0, character, KeyboardEvent::Unicode | KeyboardEvent::Up});
        return;
    }
    if (character == u'~') {
        press(keycode::Enter, false, 0);
        return;
    }
    auto needs = static_cast<quint16>(key & 0xFF00);
    if (isLetter(character) && m_layout.capsLock())
        needs ^= KeyboardLayout::Shift;
    press(key & 0xFF, false, needs);
}

void KeyStringReader::press(quint16 virtualKey, bool extended, quint16 needs)
{
    constexpr quint16 Both = KeyboardLayout::Control | KeyboardLayout::Alt;
    const bool shift = (needs & KeyboardLayout::Shift) != 0 && (m_held & ShiftHeld) == 0;
    const bool controlAndAlt = (needs & Both) == Both;
    if (shift)
        down(keycode::Shift);
    if (controlAndAlt) {
        down(keycode::Control);
        down(keycode::Alt);
    }
    down(virtualKey, extended);
    m_events.push_back({virtualKey, m_layout.scanCodeOf(virtualKey), KeyboardEvent::Up});
    if (controlAndAlt) {
        up(keycode::Control);
        up(keycode::Alt);
    }
    if (shift)
        up(keycode::Shift);
}

} // namespace

std::vector<KeyboardEvent> keyEvents(const QString &keys, const KeyboardLayout &layout)
{
    return KeyStringReader(keys, layout).read();
}

QString literalKeys(const QString &text)
{
    QString keys;
    for (const QChar c : text) {
        if (u"+^%(){}"_s.contains(c))
            keys += u'{' + c + u'}';
        else if (c != u'~')
            keys += c;
    }
    return keys;
}

} // namespace quaverly
