// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace quaverly {

/** Starts whichever on-screen keyboard the desktop offers, once at a time. */
class OnScreenKeyboard final
{
public:
    OnScreenKeyboard();
    /** Looks for other programs; names in order of preference. */
    explicit OnScreenKeyboard(QStringList programs) : m_programs(std::move(programs)) {}

    /** True when a keyboard runs now. */
    bool show();

private:
    [[nodiscard]] bool isRunning() const;

    QStringList m_programs;
    qint64 m_process = 0;
};

} // namespace quaverly
