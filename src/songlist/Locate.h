// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "songlist/DisplayedSet.h"

namespace quaverly {

/** Finds the first song that begins with what is typed, on the field of the current sort. */
class Locate final
{
public:
    /** What the screen has to do after a key. */
    enum class Next { Nothing, FocusGrid, ClearBox };

    Locate(Catalogue &catalogue, DisplayedSet &set, Desktop &desktop)
        : m_catalogue(catalogue), m_set(set), m_desktop(desktop)
    {}

    /** A key of the box went up; @p key is a Qt::Key, @p text what the box holds now. */
    Next txtLocate_KeyUp(int key, const QString &text);
    /** Criterion of the last search. */
    [[nodiscard]] const QString &LocateClause() const { return m_locateClause; }

private:
    void search(const QString &text);

    Catalogue &m_catalogue;
    DisplayedSet &m_set;
    Desktop &m_desktop;
    QString m_locateClause;
};

} // namespace quaverly
