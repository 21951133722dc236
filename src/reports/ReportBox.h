// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextEdit>

namespace quaverly {

/** A report as its paper looks, black on white whatever the palette, with a thin rule where a page ends. */
class ReportBox final : public QTextEdit
{
    Q_OBJECT

public:
    explicit ReportBox(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void showAsPaper();
    void drawRules(const QTextBlock &block, QPainter &painter, double top) const;
};

} // namespace quaverly
