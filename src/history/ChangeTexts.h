// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Preview.h"
#include "history/RecordNames.h"

#include <QString>

namespace quaverly {

/** Puts what the journal holds into words that people understand. */
class ChangeTexts final
{
public:
    /** @p database outlives this object. */
    explicit ChangeTexts(dao::Database &database) : m_history(database) {}
    ChangeTexts(const ChangeTexts &) = delete;
    ChangeTexts &operator=(const ChangeTexts &) = delete;

    /** As it was noted, else as ChangeSentence has it; never empty. */
    [[nodiscard]] QString sentence(const dao::Change &change) const;
    /** One entry of the change. */
    [[nodiscard]] ChangedRowTexts row(const dao::Change &change, qint64 place) const;
    /** "Song, by Artist" and the like of a row, as it is now; "number 7" where it is gone. */
    [[nodiscard]] QString record(const QString &table, qint64 key) const;
    /** Key of the first song that the change is about; 0 without one. */
    [[nodiscard]] qint64 song(const dao::Change &change) const;

private:
    dao::History m_history;
    RecordNames m_names{m_history};
};

} // namespace quaverly
