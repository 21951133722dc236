// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Preview.h"
#include "platform/store/History.h"

#include <QString>

#include <optional>

namespace quaverly {

/** Puts what the journal holds into words that people understand. */
class ChangeTexts final
{
public:
    /** @p database outlives this object. */
    explicit ChangeTexts(dao::Database &database) : m_history(database) {}

    /** What the command said of its change and how many rows it changed, else what the rows tell; never
     * empty. */
    [[nodiscard]] QString sentence(const dao::Change &change) const;
    /** One entry of the change. */
    [[nodiscard]] ChangedRowTexts row(const dao::Change &change, qint64 place) const;
    /** "Song, by Artist" and the like of a row, as it is now; "number 7" where it is gone. */
    [[nodiscard]] QString record(const QString &table, qint64 key) const;
    /** Key of the first song that the change is about; 0 without one. */
    [[nodiscard]] qint64 song(const dao::Change &change) const;

private:
    /** The entry that says most of a change. */
    struct Subject
    {
        dao::ChangedValue value;
        qint64 place = 0;
        /** The change is about this record alone. */
        bool alone = false;
        bool filesMoved = false;
        bool pictureMoved = false;
    };
    [[nodiscard]] std::optional<Subject> subjectOf(const dao::Change &change) const;
    [[nodiscard]] QString countedRows(const dao::Change &change, const Subject &subject) const;
    [[nodiscard]] QString composed(const dao::Change &change, const Subject &subject) const;
    [[nodiscard]] QString recordOf(const dao::Change &change, qint64 place,
                                   const dao::ChangedValue &value) const;

    dao::History m_history;
};

} // namespace quaverly
