// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QColor;

namespace Ui {
class NameList;
}

namespace quaverly {

/** The line above the list: what it shows, what limits it, how many songs are marked, and two buttons. */
class StateLine final
{
public:
    /** @p screen outlives this object. */
    explicit StateLine(Ui::NameList &screen) : m_ui(screen) {}

    void setCategory(const QString &caption);
    void setSelectedCount(const QString &caption);
    /** "&" doubled where it shows; a long artist is cut on the button, not in caption(). */
    void setArtistButton(const QString &caption);
    [[nodiscard]] QString artistButton() const;

    /** Keeps the line's room while nothing stands in it, so that no row moves away under the pointer. */
    void keepRoom();
    void setTextColor(const QColor &text, const QColor &back);

private:
    Ui::NameList &m_ui;
};

} // namespace quaverly
