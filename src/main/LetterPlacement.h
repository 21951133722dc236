// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Ui {
class NameList;
}

namespace quaverly {

/** Where the letter bar stands: beside the Locate box while there is room, else below it. */
class LetterPlacement final
{
public:
    /** @p screen outlives this object. */
    explicit LetterPlacement(Ui::NameList &screen) : m_ui(screen) {}

    /** For a screen of that many pixels in width, in the present font. */
    void place(int width);

private:
    [[nodiscard]] int neededBeside() const;

    Ui::NameList &m_ui;
};

} // namespace quaverly
