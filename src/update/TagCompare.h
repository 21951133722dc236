// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/FileFacts.h"
#include "update/UpdateList.h"

#include <QDateTime>

#include <functional>

namespace quaverly {

/** What is known of a song whose file was read again. */
struct KnownTags
{
    qint64 recordId = 0;
    /** The row's text of a field; empty for a Null. */
    std::function<QString(const QString &field)> textOf;
    /** When the row was written last; the local time marked Qt::UTC. */
    QDateTime updated;
    /** What the file held before; nothing when nobody knows. */
    std::optional<FileFact> fact;
};

/**
 * The fields in which the file differs from the song, one row each. A field that only the user has changed is
 * left out; one that both changed stands there without a tick.
 */
[[nodiscard]] std::vector<UpdateRow> compareTags(const KnownTags &known, const SongOnDisk &read);

/** A song without a title is called by its file: when that is renamed it is still the same. */
void keepNameOf(SongOnDisk &read, const QString &formerFileName);

} // namespace quaverly
