// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Dao.h"

#include <QString>

#include <functional>
#include <vector>

namespace quaverly {

/** One text field of a table. */
struct TextField
{
    QString table;
    /** As it stands in statements, blanks included; a table may stand in front of it. */
    QString field;
    /** Names a row; empty for a table without a key of its own. */
    QString key;

    /** The bare name. */
    [[nodiscard]] QString name() const;
};

/** What becomes of the texts of one field. */
struct TextChange
{
    TextField place;
    /** The rows that are changed, as a statement's condition. */
    QString condition;
    /** The new text, as statements write it. */
    QString expression;
    /** The same for one text. */
    std::function<QString(const QString &)> changed;
    /** False when no text gets longer by it. */
    bool mayGrow = true;
    /** Keys of rows that stay as they are all the same, ascending. */
    std::vector<qint64> leftOut{};
};

/**
 * Puts @p replacement in place of @p original wherever it stands in the field, in any case. A row that only
 * matches by wildcards is counted and stays as it was.
 */
[[nodiscard]] TextChange partReplaced(const TextField &place, const QString &original,
                                      const QString &replacement);
/** Puts @p text in place of all that stands in the field. */
[[nodiscard]] TextChange allReplaced(const TextField &place, const QString &condition, const QString &text);

/** "field like "*text*" ": the text's own wildcards count, its double quotes are doubled. */
[[nodiscard]] QString likeTest(const QString &field, const QString &text);

/** First field, NumRecs, of a statement that counts. @throws dao::DaoError */
[[nodiscard]] qint64 numRecs(dao::Database &database, const QString &sql);

/** Rows that the change is about. @throws dao::DaoError */
[[nodiscard]] qint64 countRows(dao::Database &database, const TextChange &change);

/** False when each of these rows would stay as it is, to the letter. @throws dao::DaoError */
[[nodiscard]] bool changesRows(dao::Database &database, const TextChange &change);

/** Keys of the rows whose text would outgrow the field, ascending. @throws dao::DaoError */
[[nodiscard]] std::vector<qint64> rowsWithoutRoom(dao::Database &database, const TextChange &change);

/**
 * Changes the rows, within the caller's transaction. False when @p goesOn gave it up, with some of them
 * changed. @throws dao::DaoError, naming the song, when a text outgrows the field, or two songs would have
 * the same file in the end.
 */
[[nodiscard]] bool changeTexts(dao::Database &database, const TextChange &change, const dao::GoesOn &goesOn);

} // namespace quaverly
