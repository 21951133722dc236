// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ModalScreen.h"

#include "desktop/Guard.h"

#include <QScopedValueRollback>

namespace quaverly {

void ModalScreen::showModally()
{
    setAttribute(Qt::WA_DeleteOnClose);
    open();
}

void ModalScreen::reject()
{
    if (!m_working)
        QDialog::reject();
}

void ModalScreen::done(int result)
{
    QDialog::done(result);
    // Closed right behind a box of its own, it leaves some window managers with no active window.
    if (parentWidget() != nullptr)
        parentWidget()->window()->activateWindow();
}

void ModalScreen::work(Desktop &desktop, const std::function<bool()> &command)
{
    if (m_working)
        return;
    bool done = false;
    {
        const QScopedValueRollback working(m_working, true);
        guarded(desktop, windowTitle(), [&] { done = command(); });
    }
    if (done)
        accept();
}

} // namespace quaverly
