// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QWidget;

namespace quaverly {

/** Makes every dialog that comes up at least as wide as its title. Works while it lives. */
class TitleRoom final : public QObject
{
public:
    TitleRoom();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static void fit(QWidget &dialog);
};

} // namespace quaverly
