// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/PaperEdit.h"

namespace quaverly {

/** A report, with a thin rule where a page ends. */
class ReportBox final : public PaperEdit
{
    Q_OBJECT

public:
    explicit ReportBox(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void drawRules(const QTextBlock &block, QPainter &painter, double top) const;
};

} // namespace quaverly
