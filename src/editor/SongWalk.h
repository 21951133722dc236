// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace quaverly {

class DataControl;
struct Catalogue;

/** The editor's way through the displayed set. Every operation may throw dao::DaoError. */
class SongWalk final
{
public:
    SongWalk(Catalogue &catalogue, DataControl &data) : m_catalogue(catalogue), m_data(data) {}

    /** At the last row it stays there. */
    void next();
    /** At the first row it stays there. */
    void previous();

    /** The set anew, after that record was written. When it is displayed no more, the next step leads to its
     * neighbour all the same. False when no row is left. */
    bool refreshAt(qint64 recordId);
    /** For the closing: the record, or the last row when it is displayed no more. */
    void refreshForList(qint64 recordId);

    /** Removes the current row's song from the catalogue, and goes to its neighbour. False when no row is
     * left. */
    bool deleteCurrent();

private:
    [[nodiscard]] qint64 currentID();
    [[nodiscard]] qint64 neighbourID();

    /** Where the current row stands when the one that was written is displayed no more. */
    enum class Stand { OnIt, BehindIt, BeforeIt };

    Catalogue &m_catalogue;
    DataControl &m_data;
    /** A step to that side is done already. */
    Stand m_stand = Stand::OnIt;
};

} // namespace quaverly
