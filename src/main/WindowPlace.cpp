// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/WindowPlace.h"

#include "catalogue/Options.h"
#include "platform/options/OptionsStore.h"
#include "platform/text/Twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace quaverly {

namespace {

int pixels(const OptionsStore &store, const char16_t *key, int otherwise)
{
    bool isNumber = false;
    const int twips = option(store, key).toInt(&isNumber);
    return isNumber ? twips / TwipsPerPixel : otherwise;
}

} // namespace

void restorePlace(QWidget &window, const OptionsStore &store, bool remembered)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const QRect available = screen != nullptr ? screen->availableGeometry() : QRect(0, 0, 1180, 740);
    QRect place(QPoint(), window.size().boundedTo(available.size()));
    place.moveCenter(available.center());
    if (remembered) {
        const QRect kept(pixels(store, keys::GridScreenLeft, place.left()),
                         pixels(store, keys::GridScreenTop, place.top()),
                         pixels(store, keys::GridScreenWidth, place.width()),
                         pixels(store, keys::GridScreenHeight, place.height()));
        const QRect visible = kept.intersected(available);
        if (visible.width() > 100 && visible.height() > 100)
            place = QRect(kept.topLeft(), kept.size().boundedTo(available.size()));
    }
    window.setGeometry(place);
}

void savePlace(const QWidget &window, OptionsStore &store)
{
    const QRect place = window.geometry();
    saveOption(store, keys::GridScreenTop, QString::number(place.top() * TwipsPerPixel));
    saveOption(store, keys::GridScreenLeft, QString::number(place.left() * TwipsPerPixel));
    saveOption(store, keys::GridScreenWidth, QString::number(place.width() * TwipsPerPixel));
    saveOption(store, keys::GridScreenHeight, QString::number(place.height() * TwipsPerPixel));
}

} // namespace quaverly
