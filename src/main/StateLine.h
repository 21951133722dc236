// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QColor;
class QString;

namespace Ui {
class NameList;
}

namespace quaverly {

struct MainLook;

/** The line above the list: what it shows, what limits it, how many songs are marked, and two buttons. */
class StateLine final
{
public:
    /** @p screen outlives this object. */
    explicit StateLine(Ui::NameList &screen) : m_ui(screen) {}

    void show(const MainLook &look);

    /** Keeps the line's room while nothing stands in it, so that no row moves away under the pointer. */
    void keepRoom();
    void setTextColor(const QColor &text, const QColor &back);

private:
    void showArtistButton(const QString &caption);

    Ui::NameList &m_ui;
};

} // namespace quaverly
