// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "lists/PlayListStore.h"

namespace quaverly {

class Desktop;

/** Adding, renaming and deleting whole lists, with what the user is asked and told about it. Every operation
 * may throw dao::DaoError. */
class PlayListHeaders final
{
public:
    /** Both outlive it. */
    PlayListHeaders(Desktop &desktop, PlayListStore &lists);

    /** A name as it is kept: double quotes made single, trailing blanks cut. */
    [[nodiscard]] static QString keptName(const QString &typed);

    /** False when the user was told that it can't be: there is no name, or it is taken. */
    [[nodiscard]] bool add(const QString &name, const QString &notes);
    void tellAdded(const QString &name);
    /** @p shownName is the name chosen in cmbHeader: only another one has to be free. */
    [[nodiscard]] bool edit(const PlayListHeader &header, const QString &shownName);
    /** With all its tracks, when the user answers @p question with Yes. */
    [[nodiscard]] bool deleteList(qint64 listId, const QString &question);

private:
    [[nodiscard]] bool isFree(const QString &name);

    Desktop &m_desktop;
    PlayListStore &m_lists;
};

} // namespace quaverly
