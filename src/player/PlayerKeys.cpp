// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayerKeys.h"

#include "player/MediaBar.h"
#include "player/SongListView.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QShortcut>

namespace quaverly {

namespace {

constexpr double SeekSeconds = 5;
constexpr double FarSeekSeconds = 60;

/** As if the list had the focus. */
void pressIn(SongListView *songs, Qt::Key key)
{
    if (songs == nullptr)
        return;
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(songs, &press);
}

} // namespace

PlayerKeys::PlayerKeys(QWidget &window, MediaBar &bar, SongListView *songs)
{
    const auto on = [&](const QKeySequence &keys, auto act) {
        auto *shortcut = new QShortcut(keys, &window);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    on(Qt::Key_Space, [&bar] { bar.pressMediaKey(Qt::Key_MediaTogglePlayPause); });
    on(Qt::Key_Left, [&bar] { bar.seekBy(-SeekSeconds); });
    on(Qt::Key_Right, [&bar] { bar.seekBy(SeekSeconds); });
    on(Qt::CTRL | Qt::Key_Left, [&bar] { bar.seekBy(-FarSeekSeconds); });
    on(Qt::CTRL | Qt::Key_Right, [&bar] { bar.seekBy(FarSeekSeconds); });
    on(Qt::CTRL | Qt::Key_Up, [&bar] { bar.pressMediaKey(Qt::Key_VolumeUp); });
    on(Qt::CTRL | Qt::Key_Down, [&bar] { bar.pressMediaKey(Qt::Key_VolumeDown); });
    on(Qt::Key_Up, [songs] { pressIn(songs, Qt::Key_Up); });
    on(Qt::Key_Down, [songs] { pressIn(songs, Qt::Key_Down); });
    for (QComboBox *box : window.findChildren<QComboBox *>())
        box->installEventFilter(this);
}

bool PlayerKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *press = static_cast<QKeyEvent *>(event);
        const bool arrow = press->key() == Qt::Key_Up || press->key() == Qt::Key_Down;
        if (arrow && (press->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
            event->accept();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quaverly
