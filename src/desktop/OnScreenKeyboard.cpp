// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/OnScreenKeyboard.h"

#include <QProcess>
#include <QStandardPaths>

#include <csignal>

using namespace Qt::StringLiterals;

namespace quaverly {

OnScreenKeyboard::OnScreenKeyboard()
    : m_programs{u"onboard"_s,
                 u"squeekboard"_s,
                 u"maliit-keyboard"_s,
                 u"wvkbd-mobintl"_s,
                 u"florence"_s,
                 u"kvkbd"_s,
                 u"matchbox-keyboard"_s,
                 u"svkbd-mobile-intl"_s,
                 u"svkbd-mobile-plain"_s,
                 u"xvkbd"_s}
{}

bool OnScreenKeyboard::isRunning() const
{
    return m_process > 0 && ::kill(static_cast<pid_t>(m_process), 0) == 0;
}

bool OnScreenKeyboard::show()
{
    if (isRunning())
        return true;
    for (const QString &program : m_programs) {
        const QString path = QStandardPaths::findExecutable(program);
        if (!path.isEmpty() && QProcess::startDetached(path, {}, {}, &m_process))
            return true;
    }
    return false;
}

} // namespace quaverly
