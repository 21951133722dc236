// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/KeySender.h"

#include "desktop/VirtualKeys.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>

#include <algorithm>
#include <iterator>

namespace quaverly {

namespace {

/** Keys that no screen takes until then are lost. */
constexpr int LongestWaitMs = 1000;

struct KeyPair
{
    quint16 virtualKey;
    Qt::Key key;
};
constexpr KeyPair KeyPairs[] = {
    {8, Qt::Key_Backspace},    {9, Qt::Key_Tab},     {13, Qt::Key_Return},   {16, Qt::Key_Shift},
    {17, Qt::Key_Control},     {18, Qt::Key_Alt},    {19, Qt::Key_Pause},    {20, Qt::Key_CapsLock},
    {27, Qt::Key_Escape},      {33, Qt::Key_PageUp}, {34, Qt::Key_PageDown}, {35, Qt::Key_End},
    {36, Qt::Key_Home},        {37, Qt::Key_Left},   {38, Qt::Key_Up},       {39, Qt::Key_Right},
    {40, Qt::Key_Down},        {41, Qt::Key_Select}, {42, Qt::Key_Print},    {44, Qt::Key_Print},
    {45, Qt::Key_Insert},      {46, Qt::Key_Delete}, {47, Qt::Key_Help},     {144, Qt::Key_NumLock},
    {145, Qt::Key_ScrollLock},
};

/** The character of a key and whether Shift gives it: the layout turned round. */
QString textOf(quint16 virtualKey, bool shift)
{
    const KeyboardLayout layout;
    for (char16_t c = u' '; c < 127; ++c) {
        const quint16 key = layout.keyOf(c);
        if ((key & 0xFF) == virtualKey && ((key & KeyboardLayout::Shift) != 0) == shift)
            return QString(QChar(c));
    }
    return virtualKey == keycode::Enter ? QStringLiteral("\r") : QString();
}

int qtKey(quint16 virtualKey)
{
    if (virtualKey >= keycode::F1 && virtualKey <= keycode::F16)
        return Qt::Key_F1 + virtualKey - keycode::F1;
    const auto *const found =
        std::ranges::find_if(KeyPairs, [&](const KeyPair &pair) { return pair.virtualKey == virtualKey; });
    if (found != std::end(KeyPairs))
        return found->key;
    const QString text = textOf(virtualKey, false);
    return text.isEmpty() ? 0 : text.at(0).toUpper().unicode();
}

Qt::KeyboardModifier modifierOf(quint16 virtualKey)
{
    switch (virtualKey) {
    case keycode::Shift:
        return Qt::ShiftModifier;
    case keycode::Control:
        return Qt::ControlModifier;
    case keycode::Alt:
        return Qt::AltModifier;
    default:
        return Qt::NoModifier;
    }
}

void post(const QtKeyStroke &stroke);

void deliver(const QtKeyStroke &stroke)
{
    QObject *target = QGuiApplication::focusObject();
    if (target == nullptr) {
        // A box was closed just now, and the screen below it is yet to be told that it has the keys again.
        const auto again = [stroke, deadline = QDeadlineTimer(LongestWaitMs)] {
            if (!deadline.hasExpired())
                post(stroke);
        };
        QObject::connect(qGuiApp, &QGuiApplication::focusObjectChanged, qGuiApp, again,
                         Qt::SingleShotConnection);
        return;
    }
    QKeyEvent event(stroke.type, stroke.key, stroke.modifiers, stroke.text);
    QCoreApplication::sendEvent(target, &event);
}

void post(const QtKeyStroke &stroke)
{
    QMetaObject::invokeMethod(
        qApp, [stroke] { deliver(stroke); }, Qt::QueuedConnection);
}

} // namespace

std::vector<QtKeyStroke> qtKeyStrokes(const std::vector<KeyboardEvent> &events)
{
    std::vector<QtKeyStroke> strokes;
    Qt::KeyboardModifiers held;
    for (const KeyboardEvent &event : events) {
        const bool up = (event.flags & KeyboardEvent::Up) != 0;
        const QEvent::Type type = up ? QEvent::KeyRelease : QEvent::KeyPress;
        if ((event.flags & KeyboardEvent::Unicode) != 0) {
            const QString text{QChar(event.scanCode)};
            strokes.push_back({type, text.at(0).toUpper().unicode(), held, text});
            continue;
        }
        held.setFlag(modifierOf(event.virtualKey), !up);
        const bool types = !held.testFlag(Qt::ControlModifier) && !held.testFlag(Qt::AltModifier);
        strokes.push_back({type, qtKey(event.virtualKey), held,
                           types ? textOf(event.virtualKey, held.testFlag(Qt::ShiftModifier)) : QString()});
    }
    return strokes;
}

// One posted call a stroke: a stroke that opens a dialog leaves the rest to the dialog.
void SendKeysInput(const QString &keys)
{
    for (const QtKeyStroke &stroke : qtKeyStrokes(keyEvents(keys, KeyboardLayout())))
        post(stroke);
}

} // namespace quaverly
