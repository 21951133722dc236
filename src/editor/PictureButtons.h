// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <functional>

class QPoint;
class QPushButton;
class QWidget;

namespace quaverly {

/** The editor's buttons of the song's pictures, each with its slot's number, from 1 on. */
class PictureButtons final : public QObject
{
    Q_OBJECT

public:
    /** Without @p showPicture the buttons are disabled. */
    PictureButtons(QWidget &screen, const std::function<void(int slot)> &showPicture);

    /** 0 for any other control. */
    [[nodiscard]] static int slotOf(const QWidget &control);
};

} // namespace quaverly
