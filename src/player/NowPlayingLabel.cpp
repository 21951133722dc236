// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/NowPlayingLabel.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int SmallestPixels = 11;

/** Without the first "&" of each pair. */
QString readable(QString caption)
{
    return caption.replace(u"&&"_s, u"&"_s);
}

} // namespace

QFont NowPlayingLabel::fitting(const QString &caption) const
{
    QFont sized = font();
    const QSize room = contentsRect().size();
    sized.setPixelSize(std::max(SmallestPixels, room.height() * 7 / 10));
    const int wide = QFontMetrics(sized).horizontalAdvance(caption);
    if (wide > room.width() && wide > 0)
        sized.setPixelSize(std::max(SmallestPixels, sized.pixelSize() * room.width() / wide));
    return sized;
}

void NowPlayingLabel::paintEvent(QPaintEvent * /*event*/)
{
    const QString caption = readable(text());
    QPainter painter(this);
    painter.setFont(fitting(caption));
    const QRect area = contentsRect();
    const QString shown = painter.fontMetrics().elidedText(caption, Qt::ElideRight, area.width());
    style()->drawItemText(&painter, area, Qt::AlignCenter | Qt::TextSingleLine, palette(), isEnabled(), shown,
                          foregroundRole());
}

} // namespace quaverly
