// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/DaoError.h"
#include "platform/store/Parser.h"
#include "platform/store/Planner.h"
#include "platform/store/Sqlite.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** Writes UPDATE, INSERT and DELETE over the one table that they change. */
class ActionPlanner
{
public:
    explicit ActionPlanner(const NameCatalogue &names) : m_names(names), m_planner(names) {}

    QByteArray write(const ast::Statement &statement)
    {
        switch (statement.kind) {
        case ast::Statement::Kind::Delete:
            return deletion(statement);
        case ast::Statement::Kind::Update:
            return update(statement);
        case ast::Statement::Kind::Insert:
            return insertion(statement);
        case ast::Statement::Kind::Select:
            break;
        }
        throw DaoError(InvalidOperation, u"Cannot execute a select query."_s);
    }

private:
    static bool isPlain(const SelectPlan &plan)
    {
        return plan.scope.sources.size() == 1 && plan.from.startsWith('"');
    }

    [[nodiscard]] QByteArray condition(const ast::ExprPtr &where, const SelectPlan &plan)
    {
        if (!where)
            return {};
        ExprEmitter emitter(plan.scope, m_names, m_planner.subselectWriter());
        return " WHERE " + emitter.emit(*where).sql;
    }

    QByteArray deletion(const ast::Statement &statement)
    {
        const SelectPlan plan = m_planner.sources(*statement.target);
        const Source &target = targetOf(statement, plan);
        const QByteArray where = condition(statement.where, plan);
        if (isPlain(plan))
            return "DELETE FROM " + plan.from + where;
        return "DELETE FROM " + quotedName(target.baseTable) + " WHERE " + quotedName(keyColumn(target)) +
               " IN (SELECT " + target.key + " FROM " + plan.from + where + ")";
    }

    const Source &targetOf(const ast::Statement &statement, const SelectPlan &plan) const
    {
        const auto found = std::ranges::find_if(plan.scope.sources, [&](const Source &source) {
            const bool named = statement.deleteFrom.isEmpty() ||
                               source.alias.compare(statement.deleteFrom, Qt::CaseInsensitive) == 0;
            return named && !source.key.isEmpty();
        });
        if (found == plan.scope.sources.end())
            throw DaoError(InvalidOperation,
                           u"Specify the table containing the records you want to delete."_s);
        return *found;
    }

    [[nodiscard]] QString keyColumn(const Source &source) const
    {
        return m_names.table(source.baseTable)->keyColumn;
    }

    static const Column &columnOf(const Source &source, const QString &field)
    {
        const Column *column = source.column(field);
        if (column == nullptr)
            throw DaoError(UnknownField,
                           u"Too few parameters.  Expected 1.  There is no field named '%1'."_s.arg(field));
        return *column;
    }

    QByteArray update(const ast::Statement &statement)
    {
        const SelectPlan plan = m_planner.sources(*statement.target);
        if (!isPlain(plan))
            throw DaoError(InvalidOperation, u"Operation must use an updateable query."_s);
        ExprEmitter emitter(plan.scope, m_names, m_planner.subselectWriter());
        QByteArray assignments;
        for (const auto &assignment : statement.assignments) {
            const Column &column = columnOf(plan.scope.sources.front(), assignment.field);
            assignments += (assignments.isEmpty() ? "" : ", ") + quotedName(column.name) + " = " +
                           emitter.emit(*assignment.value).sql;
        }
        return "UPDATE " + plan.from + " SET " + assignments + condition(statement.where, plan);
    }

    QByteArray insertion(const ast::Statement &statement)
    {
        const SelectPlan plan = m_planner.sources(*statement.target);
        if (!isPlain(plan))
            throw DaoError(InvalidOperation, u"Operation must use an updateable query."_s);
        QByteArray fields;
        QByteArray values;
        const Scope nothing;
        ExprEmitter emitter(nothing, m_names, m_planner.subselectWriter());
        for (const auto &assignment : statement.assignments) {
            const Column &column = columnOf(plan.scope.sources.front(), assignment.field);
            fields += (fields.isEmpty() ? "" : ", ") + quotedName(column.name);
            if (assignment.value)
                values += (values.isEmpty() ? "" : ", ") + emitter.emit(*assignment.value).sql;
        }
        const QByteArray head =
            "INSERT INTO " + quotedName(plan.scope.sources.front().baseTable) + " (" + fields + ") ";
        if (statement.select == nullptr)
            return head + "VALUES (" + values + ")";
        if (m_planner.select(*statement.select, nullptr).outputs.size() !=
            static_cast<qsizetype>(statement.assignments.size()))
            throw DaoError(SyntaxError, u"Number of query values and destination fields are not the same."_s);
        return head + m_planner.subselectWriter()(*statement.select, nullptr);
    }

    const NameCatalogue &m_names;
    Planner m_planner;
};

} // namespace

QByteArray planAction(const QString &sql, const NameCatalogue &names)
{
    const auto stored = names.query(sql.trimmed());
    return ActionPlanner(names).write(parseStatement(stored.value_or(sql)));
}

} // namespace dao
