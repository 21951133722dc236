// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/History.h"

#include <QString>

namespace quaverly {

/** A logged table: what one row is called, and several; which fields name a row. */
struct TableWords
{
    QLatin1StringView table;
    QLatin1StringView one;
    QLatin1StringView many;
    QLatin1StringView name;
    QLatin1StringView more;
};

[[nodiscard]] const TableWords &wordsOf(const QString &table);
[[nodiscard]] QString counted(qint64 rows, const TableWords &words);

/** What people call the records that a change is about. */
class RecordNames final
{
public:
    /** @p history outlives this object. */
    explicit RecordNames(const dao::History &history) : m_history(history) {}

    /** "Song, by Artist" and the like of a row, as it is now; "song number 7" where it is gone. */
    [[nodiscard]] QString record(const QString &table, qint64 key) const;
    /** The same for what an entry of a change is about: of a whole row as it was. */
    [[nodiscard]] QString recordOf(const dao::Change &change, qint64 place,
                                   const dao::ChangedValue &value) const;
    /** "song", "play list", "note" and so on. */
    [[nodiscard]] QString kindOf(const dao::Change &change, qint64 place,
                                 const dao::ChangedValue &value) const;
    /** Some fields of the row that an entry is about, as it was or is. */
    [[nodiscard]] QStringList texts(const dao::Change &change, qint64 place, const dao::ChangedValue &value,
                                    const QStringList &fields) const;

private:
    [[nodiscard]] QString named(const QString &table, const QStringList &texts) const;

    const dao::History &m_history;
};

} // namespace quaverly
