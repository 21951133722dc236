// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/DropDownOnFocus.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QFocusEvent>

namespace quaverly {

namespace {

bool isByKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason;
}

} // namespace

DropDownOnFocus::DropDownOnFocus(QComboBox &box) : QObject(&box), m_box(box)
{
    m_box.installEventFilter(this);
    m_box.view()->installEventFilter(this);
}

bool DropDownOnFocus::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_box && event->type() == QEvent::FocusIn &&
        isByKeyboard(static_cast<QFocusEvent *>(event)->reason()))
        QMetaObject::invokeMethod(this, &DropDownOnFocus::SetDropDown, Qt::QueuedConnection);
    if (watched != &m_box && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            m_box.hidePopup();
            QCoreApplication::postEvent(&m_box, key->clone());
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void DropDownOnFocus::SetDropDown()
{
    if (m_box.count() > 0 && m_box.hasFocus() && !m_box.view()->isVisible())
        m_box.showPopup();
}

} // namespace quaverly
