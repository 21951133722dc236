// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace quaverly {

inline constexpr char16_t SongTable[] = u"tblContacts";
inline constexpr char16_t CategoryView[] = u"qryContacts";

/**
 * The texts that the displayed set is composed of. Each carries its own blanks, since they are
 * joined without any between them.
 */
struct ListTexts
{
    /** The song table, or the category view while a category is in force. */
    QString ListSource = QString::fromUtf16(SongTable);
    /** All restrictions but the marks: empty, " Where ...", or the " INNER JOIN ..." of invalid files. */
    QString ListWhere;
    /** Clause of the two mark modes, put behind ListWhere. */
    QString ListSelectionClause;
    /** Only alive while a filter is being applied. */
    QString ListFilterText;
    /** " CategoryNumber = n " while a category is in force. */
    QString ListCategoryClause;
    /** The ORDER BY tail of the chosen sort. */
    QString ListOrder;
    /** The statement that was composed last for a single look-up. */
    QString ScratchSql;
};

/** A text between double quotes, those inside doubled. */
[[nodiscard]] QString quoted(const QString &text);

/** ListSource, ListWhere and ListOrder as one statement. */
[[nodiscard]] QString composeList(const ListTexts &texts);
/** The same with the mark clause. */
[[nodiscard]] QString composeWithSelection(const ListTexts &texts);

/** " CategoryNumber = n ". */
[[nodiscard]] QString categoryClause(qint64 number);
/** The number in such a clause, which the catalogue keeps as a text; 0 in any other text. */
[[nodiscard]] qint64 categoryOf(const QString &clause);
/** " Where Artist = ..." with the artist's double quotes doubled. */
[[nodiscard]] QString artistWhere(const QString &artist);

/** Criteria of a filter, and the order text that goes with them. */
struct FilterTexts
{
    /** " (criteria) ". */
    QString filter;
    /** The criteria's own tail, or nothing. */
    std::optional<QString> order;
};
/** What stands before the first "order by", inside a quoted value too: criteria know no quoting. */
[[nodiscard]] QString conditionOf(const QString &criteria);
/** Cuts at the first "order by", inside a quoted value too: criteria know no quoting. */
[[nodiscard]] FilterTexts splitCriteria(const QString &criteria);
[[nodiscard]] QString filterWhere(const ListTexts &texts);
/** The statement that shows what meets the criteria; its texts go into @p texts. */
[[nodiscard]] QString composeFilter(ListTexts &texts, const QString &criteria);

using FieldTest = std::function<bool(const QString &field)>;

/** " (field Like ... OR field Like ...)" over all fields that Find looks at, where there is such a field. */
[[nodiscard]] QString findClause(const QString &answer, const FieldTest &isThere = {});

[[nodiscard]] QString invalidFilesWhere(const QString &categoryClause);
[[nodiscard]] QString playListWhere(qint64 listId);
/** A play list's songs, in the order of @p currentSource. */
[[nodiscard]] QString playListSource(const QString &playListWhere, const QString &currentSource);

/** @p source with @p listOrder in place of its own tail. */
[[nodiscard]] QString withOrder(const QString &source, const QString &listOrder);

/** The mark clause of Hide Selected. */
[[nodiscard]] QString hideClause(const QString &listWhere);
/** The mark clause as it must read behind @p listWhere; an empty one stays empty. */
[[nodiscard]] QString clauseForCount(const QString &selectionClause, const QString &listWhere);
/** Sums the file sizes over what @p source displays. */
[[nodiscard]] QString sumStatement(const QString &source);

} // namespace quaverly
