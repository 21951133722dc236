// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/SelectPlan.h"

#include "platform/store/DaoError.h"
#include "platform/store/ExprEmitter.h"
#include "platform/store/Parser.h"
#include "platform/store/Planner.h"
#include "platform/store/Sqlite.h"

using namespace Qt::StringLiterals;

namespace dao {

bool SelectPlan::showsWholeTable() const
{
    const bool plain = where.isEmpty() && groupBy.isEmpty() && having.isEmpty() && !distinct && !collapsed;
    // The SQL of a stored query or a nested one begins with a bracket.
    return isKeyed() && plain && top < 0 && scope.sources.size() == 1 && from.startsWith('"');
}

bool SelectPlan::isBaseField(const Output &output) const
{
    return isKeyed() && !output.column.field.isEmpty() &&
           output.column.table.compare(baseTable, Qt::CaseInsensitive) == 0;
}

QByteArray SelectPlan::readColumns(const QList<int> &held) const
{
    QByteArray list = key;
    for (const int output : held)
        list += (list.isEmpty() ? "" : ", ") + outputs[output].sql;
    return list;
}

QList<int> SelectPlan::computedOutputs() const
{
    QList<int> computed;
    for (int i = 0; i < outputs.size(); ++i) {
        if (!isBaseField(outputs[i]))
            computed.append(i);
    }
    return computed;
}

QByteArray SelectPlan::sql(const QByteArray &columns, const QByteArray &extraWhere, bool ordered,
                           bool restricted) const
{
    QByteArray made = (distinct ? "SELECT DISTINCT " : "SELECT ") + columns + " FROM " + from;
    if (scansTable && restricted && extraWhere.isEmpty())
        made += " NOT INDEXED";
    const QByteArray kept = restricted ? where : QByteArray();
    if (!kept.isEmpty() || !extraWhere.isEmpty())
        made += " WHERE " + kept + (kept.isEmpty() || extraWhere.isEmpty() ? "" : " AND ") + extraWhere;
    if (!groupBy.isEmpty())
        made += " GROUP BY " + groupBy;
    else if (collapsed)
        made += " GROUP BY " + key;
    if (!having.isEmpty())
        made += " HAVING " + having;
    if (ordered && !orderBy.isEmpty())
        made += " ORDER BY " + orderBy;
    if (top >= 0)
        made += " LIMIT " + QByteArray::number(top);
    return made;
}

QByteArray SelectPlan::asSource() const
{
    QByteArray columns;
    for (const Output &output : outputs)
        columns += (columns.isEmpty() ? "" : ", ") + output.sql + " AS " + quotedName(output.column.name);
    if (isKeyed())
        columns += ", " + key + " AS " + quotedName(KeyName);
    return sql(columns, {}, top >= 0);
}

SelectPlan planSelect(const ast::Select &select, const NameCatalogue &names)
{
    return Planner(names).select(select, nullptr);
}

Criteria planCriteria(const QString &criteria, const SelectPlan &plan, const NameCatalogue &names)
{
    const ast::ExprPtr parsed = parseCriteria(criteria);
    Planner planner(names);
    ExprEmitter emitter(plan.scope, names, planner.subselectWriter());
    emitter.setFirstLookup([&plan](const QString &qualifier, const QString &name) -> std::optional<Resolved> {
        for (const Output &output : plan.outputs) {
            if (qualifier.isEmpty() && output.column.name.compare(name, Qt::CaseInsensitive) == 0)
                return Resolved{output.sql, valueType(output.column.type), &output.column};
        }
        return std::nullopt;
    });
    Criteria made;
    made.sql = "(" + emitter.emit(*parsed).sql + ")";
    made.fieldsUsed = emitter.fieldsUsed();
    return made;
}

} // namespace dao
