// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/RepairWords.h"

#include "catalogue/Compaction.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** The tables that hold what a user entered, in his words. */
constexpr std::pair<const char *, const char *> Contents[] = {
    {"tblContacts", "Songs"},
    {"tblCategoryDesc", "Categories"},
    {"tblCategoryID", "Songs in categories"},
    {"tblPlayListHeader", "Play lists"},
    {"tblPlayListDetail", "Songs in play lists"},
    {"tblSettings", "Filters, notes and options"},
};

/** Rows that there were; nothing when it can't be told. */
std::optional<qint64> before(const dao::RepairedTable &table)
{
    return table.saved == table.rowsAtMost ? table.rowsAtMost : table.rowsBefore;
}

std::optional<qint64> lostOf(const dao::RepairedTable &table)
{
    const auto rows = before(table);
    return rows ? std::optional(std::max<qint64>(*rows - table.saved, 0)) : std::nullopt;
}

QString lineOf(const dao::RepairedTable &table, const QString &name)
{
    QString line = name + u": "_s + groupedNumber(table.saved) + u" saved"_s;
    if (const auto lost = lostOf(table))
        line = name + u": "_s + groupedNumber(table.saved) + u" of "_s + groupedNumber(*before(table)) +
               u" saved, "_s + groupedNumber(*lost) + u" lost"_s;
    else if (table.rowsAtMost)
        line = name + u": "_s + groupedNumber(table.saved) + u" saved, of "_s +
               groupedNumber(*table.rowsAtMost) + u" at most"_s;
    else
        line += u"; how many there were is not known"_s;
    if (table.cutShort > 0)
        line += u"; a text is missing or ends early in "_s + groupedNumber(table.cutShort);
    if (table.passedOver > 0)
        line += u"; passed over as unreadable: "_s + groupedNumber(table.passedOver);
    return line;
}

} // namespace

QString repairWords(const dao::RepairReport &report)
{
    QString lines;
    bool complete = true;
    for (const auto &[tableName, words] : Contents) {
        for (const dao::RepairedTable &table : report.tables) {
            if (table.table != QLatin1StringView(tableName))
                continue;
            lines += u'\n' + lineOf(table, QString::fromLatin1(words));
            complete = complete && lostOf(table) == 0 && table.cutShort == 0;
        }
    }
    const QString way = complete ? QString()
                                 : u"\n\nWhat is lost may be in an earlier copy of the database: look at "
                                   "Restore From Backup on the File menu."_s;
    return u"The database was repaired as far as it can be read.\n"_s + lines +
           u"\n\nThe damaged file is kept as:\n"_s + report.damagedFile + way;
}

} // namespace quaverly
