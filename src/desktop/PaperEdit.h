// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextEdit>

namespace quaverly {

/** A formatted text as its paper looks: black on white whatever the palette, since it has colours of its own.
 */
class PaperEdit : public QTextEdit
{
    Q_OBJECT

public:
    explicit PaperEdit(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void showAsPaper();
};

} // namespace quaverly
