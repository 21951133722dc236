// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace quaverly {

/** A caption of one line, as large as its room lets it be. A single "&" of its text is taken for an access
 * key. */
class NowPlayingLabel final : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QFont fitting(const QString &caption) const;
};

} // namespace quaverly
