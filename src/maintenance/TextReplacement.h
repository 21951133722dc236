// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

namespace dao {
class Database;
}

namespace quaverly {

class DataControl;

/** One text field of a table. */
struct TextField
{
    QString table;
    /** As it stands in statements, blanks included; a table may stand in front of it. */
    QString field;

    /** The bare name. */
    [[nodiscard]] QString name() const;
};

/** "field like "*text*" ": the text's own wildcards count, its double quotes are doubled. */
[[nodiscard]] QString likeTest(const QString &field, const QString &text);

/** First field, NumRecs, of a statement that counts. @throws dao::DaoError */
[[nodiscard]] qint64 numRecs(dao::Database &database, const QString &sql);

/** Rows whose field is like the text. @throws dao::DaoError */
[[nodiscard]] qint64 countLike(dao::Database &database, const TextField &place, const QString &text);

/**
 * Puts @p replacement in place of @p original wherever it stands in the field, in any case, and returns how
 * many rows are like it. A row that only matches by wildcards is counted and stays as it was.
 * @throws dao::DaoError at the first row that the store refuses; the rows in front of it are changed then.
 */
qint64 replaceInAllRows(dao::Database &database, const TextField &place, const QString &original,
                        const QString &replacement);

/** @throws dao::DaoError 3163 when the text is longer than the field. */
void assertFits(dao::Database &database, const TextField &place, const QString &text);

/** Runs a change; where it fails half-way, the list shows what was changed before the error goes on. */
void changing(DataControl &list, const std::function<void()> &change);

} // namespace quaverly
