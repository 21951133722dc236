// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace quaverly {

/**
 * Lets nothing happen when an empty clipboard is pasted into a text of several lines, by keys or by the
 * middle button: some releases of Qt 6 crash there. Works on all screens for as long as it lives; made after
 * the application.
 */
class EmptyPaste final : public QObject
{
    Q_OBJECT

public:
    EmptyPaste();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace quaverly
