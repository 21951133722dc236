// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QComboBox;

namespace quaverly {

/**
 * Drops a combo box's list down when the keyboard brings it the focus; a click does so by itself. The
 * tab key leads on out of the list. Goes with the box.
 */
class DropDownOnFocus final : public QObject
{
    Q_OBJECT

public:
    explicit DropDownOnFocus(QComboBox &box);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void SetDropDown();

    QComboBox &m_box;
};

} // namespace quaverly
