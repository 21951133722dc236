// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/MenuWiring.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>

namespace quaverly {

void MenuWiring::guarded(std::initializer_list<Entry> entries) const
{
    for (const auto &[from, command] : entries)
        connectTo(from, [&handle = m_handle, run = command] { handle(run); });
}

void MenuWiring::own(std::initializer_list<Entry> entries) const
{
    for (const auto &[from, command] : entries)
        connectTo(from, command);
}

void MenuWiring::lead(std::initializer_list<std::pair<QAbstractButton *, QAction *>> buttons) const
{
    for (const auto &[button, entry] : buttons)
        QObject::connect(button, &QAbstractButton::clicked, entry, &QAction::trigger);
}

void MenuWiring::connectTo(QObject *from, const std::function<void()> &command) const
{
    if (auto *entry = qobject_cast<QAction *>(from))
        QObject::connect(entry, &QAction::triggered, &m_screen, [command] { command(); });
    else if (auto *button = qobject_cast<QAbstractButton *>(from))
        QObject::connect(button, &QAbstractButton::clicked, &m_screen, [command] { command(); });
    else if (auto *box = qobject_cast<QComboBox *>(from))
        QObject::connect(box, &QComboBox::activated, &m_screen, [command] { command(); });
}

} // namespace quaverly
