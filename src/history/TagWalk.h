// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/TagNotes.h"
#include "history/FileSteps.h"
#include "platform/store/History.h"

#include <QStringList>

#include <vector>

namespace quaverly {

/** The files of a change whose tags it wrote, on their way to the version that is wanted. */
class TagWalk final
{
public:
    /** @p catalogue outlives this object. @throws dao::DaoError */
    TagWalk(Catalogue &catalogue, const dao::Change &change, WalkDirection direction);

    [[nodiscard]] bool isEmpty() const { return m_files.empty(); }
    /** A line for each file that is gone, or of neither version. @throws dao::DaoError */
    [[nodiscard]] QStringList obstacles() const;
    /** All of them, or none. @throws dao::DaoError */
    void go();
    /** Those that went return; what can't stays, whole, and may go again. */
    void giveUp();

private:
    void move(qint64 key, WalkDirection direction);

    Catalogue &m_catalogue;
    TagNotes m_notes;
    WalkDirection m_direction;
    /** In the order in which they go. */
    std::vector<qint64> m_files;
    std::size_t m_gone = 0;
};

} // namespace quaverly
