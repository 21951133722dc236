// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "history/RecordNames.h"

#include <optional>
#include <vector>

namespace quaverly {

/**
 * Says in a sentence what a change did: what its command said of it and how many songs it was about, else
 * what its first and last entries tell.
 */
class ChangeSentence final
{
public:
    /** @p history and @p change outlive this object. */
    ChangeSentence(const dao::History &history, const dao::Change &change);

    /** Never empty. */
    [[nodiscard]] QString text() const;
    /** Key of the first song that the change is about; 0 without one. */
    [[nodiscard]] qint64 song() const;

private:
    struct Entry
    {
        qint64 place = 0;
        dao::ChangedValue value;
    };
    void look(qint64 from, qint64 to);
    void chooseSubject();
    /** Different rows of the subject's kind; of its table when not every entry was looked at. */
    [[nodiscard]] qint64 count() const;
    [[nodiscard]] bool isAlone() const;
    [[nodiscard]] QString record() const;
    /** The record when there is one, else how many. */
    [[nodiscard]] QString whatOf(const TableWords &words) const;
    [[nodiscard]] QString ofSongs() const;
    [[nodiscard]] QString ofLists() const;
    [[nodiscard]] QString ofMembers() const;
    [[nodiscard]] QString ofPictures() const;
    [[nodiscard]] bool isReordering() const;
    [[nodiscard]] bool has(dao::ChangedValue::Kind kind) const;
    [[nodiscard]] QString verb() const;

    const dao::History &m_history;
    const dao::Change &m_change;
    RecordNames m_names;
    std::vector<Entry> m_entries;
    /** The entry that says most. */
    const Entry *m_subject = nullptr;
    bool m_lookedAtAll = false;
};

} // namespace quaverly
