// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/Planner.h"

#include "platform/store/DaoError.h"
#include "platform/store/FunctionTable.h"
#include "platform/store/Parser.h"
#include "platform/store/Sqlite.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao {

using ast::Expr;
using ast::ExprKind;

namespace {

/** Stored queries that name each other in a ring would never end. */
constexpr int DeepestQueries = 20;

bool sameName(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

FieldType fieldTypeOf(ValueType type)
{
    switch (type) {
    case ValueType::Number:
        return FieldType::Double;
    case ValueType::Boolean:
        return FieldType::Long;
    case ValueType::Date:
        return FieldType::Date;
    case ValueType::Text:
    case ValueType::Unknown:
        break;
    }
    return FieldType::Text;
}

bool aggregates(const Expr *expr)
{
    if (expr == nullptr)
        return false;
    if (expr->kind == ExprKind::Call) {
        const FunctionRule *rule = functionRule(expr->text);
        if (rule != nullptr && rule->aggregate)
            return true;
    }
    return std::ranges::any_of(expr->args, [](const ast::ExprPtr &arg) { return aggregates(arg.get()); });
}

/** One query further in, for the length of a scope. */
class Deeper final
{
public:
    explicit Deeper(int &depth) : m_depth(depth)
    {
        if (m_depth >= DeepestQueries)
            throw DaoError(TooComplex, u"Query is too complex: stored queries name each other too deeply."_s);
        ++m_depth;
    }
    ~Deeper() { --m_depth; }
    Deeper(const Deeper &) = delete;
    Deeper &operator=(const Deeper &) = delete;

private:
    int &m_depth;
};

/** An output as ORDER BY takes it: a bare number would name a column there, and a made text has no collation.
 */
QByteArray sortable(const Output &output)
{
    if (!output.column.field.isEmpty() || output.column.type == FieldType::Date)
        return output.sql;
    return output.column.type == FieldType::Text ? output.sql + " COLLATE DAO" : "(0 + " + output.sql + ")";
}

} // namespace

void Planner::collect(const Expr *expr, Mentions &mentions)
{
    if (expr == nullptr)
        return;
    if (expr->kind == ExprKind::Name)
        mentions.names.insert(expr->text.toLower());
    for (const auto &arg : expr->args)
        collect(arg.get(), mentions);
    // A name in a nested statement may mean a source out here.
    if (expr->select)
        mentions.names.unite(mentionsOf(*expr->select).names);
}

void Planner::collect(const ast::From *from, Mentions &mentions)
{
    if (from == nullptr)
        return;
    collect(from->on.get(), mentions);
    collect(from->left.get(), mentions);
    collect(from->right.get(), mentions);
}

Planner::Mentions Planner::mentionsOf(const ast::Select &select)
{
    Mentions mentions;
    for (const auto &item : select.items) {
        mentions.star = mentions.star || item.expr == nullptr;
        collect(item.expr.get(), mentions);
    }
    collect(select.from.get(), mentions);
    collect(select.where.get(), mentions);
    collect(select.having.get(), mentions);
    for (const auto &expr : select.groupBy)
        collect(expr.get(), mentions);
    for (const auto &item : select.orderBy)
        collect(item.expr.get(), mentions);
    return mentions;
}

ExprEmitter::SelectWriter Planner::subselectWriter()
{
    return [this](const ast::Select &inner, const Scope *outer) {
        const SelectPlan plan = select(inner, outer);
        QByteArray columns;
        for (const Output &output : plan.outputs)
            columns += (columns.isEmpty() ? "" : ", ") + output.sql;
        return plan.sql(columns, {}, plan.top >= 0);
    };
}

SelectPlan Planner::select(const ast::Select &select, const Scope *outer)
{
    const Deeper deeper(m_depth);
    SelectPlan plan;
    plan.scope.outer = outer;
    plan.from = from(*select.from, plan, mentionsOf(select));
    ExprEmitter emitter(plan.scope, m_names, subselectWriter());
    outputs(select, plan, emitter);
    if (select.where) {
        plan.where = emitter.emit(*select.where).sql;
        const bool oneTable = plan.scope.sources.size() == 1 && plan.from.startsWith('"');
        plan.scansTable = oneTable && leavesIndexesUnused(*select.where);
    }
    for (const auto &expr : select.groupBy)
        plan.groupBy += (plan.groupBy.isEmpty() ? "" : ", ") + emitter.emitCollated(*expr);
    if (select.having)
        plan.having = emitter.emit(*select.having).sql;
    plan.distinct = select.distinct;
    plan.top = select.top.value_or(-1);
    takeBase(plan, select);
    order(select, plan, emitter);
    plan.fieldsUsed = emitter.fieldsUsed();
    return plan;
}

SelectPlan Planner::sources(const ast::From &from)
{
    SelectPlan plan;
    Mentions everything;
    everything.star = true;
    plan.from = this->from(from, plan, everything);
    return plan;
}

// The rows are those of the first table that has keys; a statement that folds rows together has none.
void Planner::takeBase(SelectPlan &plan, const ast::Select &select)
{
    plan.grouped =
        !select.groupBy.empty() || select.having != nullptr ||
        std::ranges::any_of(select.items, [](const auto &item) { return aggregates(item.expr.get()); });
    if (plan.grouped || plan.distinct)
        return;
    const auto keyed =
        std::ranges::find_if(plan.scope.sources, [](const Source &s) { return !s.key.isEmpty(); });
    if (keyed == plan.scope.sources.end())
        return;
    plan.baseTable = keyed->baseTable;
    plan.key = keyed->key;
    const bool oneTable = plan.scope.sources.size() == 1 && keyed->sql.startsWith('"');
    plan.collapsed = select.distinctRow && !oneTable;
}

QByteArray Planner::from(const ast::From &from, SelectPlan &plan, const Mentions &mentions)
{
    using Kind = ast::From::Kind;
    if (from.kind == Kind::Named || from.kind == Kind::Subselect) {
        plan.scope.sources.push_back(from.kind == Kind::Named
                                         ? namedSource(from, mentions)
                                         : querySource(*from.select, from.alias, mentions));
        return plan.scope.sources.back().sql;
    }
    const QByteArray left = this->from(*from.left, plan, mentions);
    const QByteArray right = this->from(*from.right, plan, mentions);
    if (from.kind == Kind::Cross)
        return left + " CROSS JOIN " + right;
    ExprEmitter emitter(plan.scope, m_names, subselectWriter());
    const QByteArray word = from.kind == Kind::Left ? " LEFT JOIN " : " INNER JOIN ";
    const QByteArray on = emitter.emit(*from.on).sql;
    // A joined pair on the right keeps its own brackets.
    const bool nested = from.right->kind != Kind::Named && from.right->kind != Kind::Subselect;
    return left + word + (nested ? "(" + right + ")" : right) + " ON " + on;
}

Source Planner::namedSource(const ast::From &from, const Mentions &mentions)
{
    const QString alias = from.alias.isEmpty() ? from.name : from.alias;
    if (const TableInfo *table = m_names.table(from.name)) {
        Source source;
        source.alias = alias;
        source.sql = quotedName(table->name) + " AS " + quotedName(alias);
        source.columns = table->columns;
        source.baseTable = table->name;
        source.key = quotedName(alias) + '.' + quotedName(table->keyColumn);
        return source;
    }
    if (const auto text = m_names.query(from.name)) {
        const ast::Statement stored = parseStatement(*text);
        if (stored.kind == ast::Statement::Kind::Select)
            return querySource(*stored.select, alias, mentions);
    }
    throw DaoError(UnknownTable,
                   u"The database engine cannot find the input table or query '%1'.  Make sure it "
                   "exists and that its name is spelled correctly."_s.arg(from.name));
}

Source Planner::querySource(const ast::Select &select, const QString &alias, const Mentions &mentions)
{
    SelectPlan plan;
    if (joinIsUnused(select, mentions)) {
        Mentions everything;
        everything.star = true;
        plan.from = from(*select.from->left, plan, everything);
        starOutputs(ast::SelectItem{}, plan);
        plan.baseTable = plan.scope.sources.front().baseTable;
        plan.key = plan.scope.sources.front().key;
    } else {
        plan = this->select(select, nullptr);
    }
    Source source;
    source.alias = alias;
    source.sql = "(" + plan.asSource() + ") AS " + quotedName(alias);
    for (const Output &output : plan.outputs)
        source.columns.append(output.column);
    source.baseTable = plan.baseTable;
    if (plan.isKeyed())
        source.key = quotedName(alias) + '.' + quotedName(KeyName);
    // A stored query's order holds for a statement over it that asks for none; SQLite drops it in a source.
    for (const auto &item : select.orderBy) {
        if (item.expr->kind == ExprKind::Name && source.column(item.expr->text) != nullptr)
            source.order.append({source.column(item.expr->text)->name, item.descending});
    }
    return source;
}

// A stored outer join that nobody asks for would only repeat rows: the left table is read alone.
bool Planner::joinIsUnused(const ast::Select &stored, const Mentions &mentions) const
{
    using Kind = ast::From::Kind;
    const ast::From &join = *stored.from;
    const bool plain = join.kind == Kind::Left && join.left->kind == Kind::Named &&
                       join.right->kind == Kind::Named && !stored.where && stored.groupBy.empty() &&
                       !stored.distinct && !stored.top;
    if (!plain || mentions.star || stored.items.empty() || stored.items[0].expr != nullptr ||
        !sameName(stored.items[0].starOf, join.left->name) || m_names.table(join.left->name) == nullptr)
        return false;
    return std::none_of(stored.items.begin() + 1, stored.items.end(), [&](const ast::SelectItem &item) {
        return item.expr == nullptr || mentions.names.contains(item.expr->text.toLower());
    });
}

void Planner::starOutputs(const ast::SelectItem &item, SelectPlan &plan)
{
    bool found = false;
    for (const Source &source : plan.scope.sources) {
        if (!item.starOf.isEmpty() && !sameName(item.starOf, source.alias))
            continue;
        found = true;
        for (Column column : source.columns) {
            Output output{column, quotedName(source.alias) + '.' + quotedName(column.name)};
            // The second field of a name bears its table's in front, and is reached by that.
            const bool taken = std::ranges::any_of(
                plan.outputs, [&](const Output &o) { return sameName(o.column.name, column.name); });
            if (taken)
                output.column.name = source.alias + u'.' + column.name;
            plan.outputs.append(output);
        }
    }
    if (!found)
        throw DaoError(UnknownTable,
                       u"The database engine cannot find the input table or query '%1'."_s.arg(item.starOf));
}

void Planner::outputs(const ast::Select &select, SelectPlan &plan, ExprEmitter &emitter)
{
    for (const auto &item : select.items) {
        if (item.expr == nullptr) {
            starOutputs(item, plan);
            continue;
        }
        const Emitted emitted = emitter.emit(*item.expr);
        Output output;
        output.sql = emitted.sql;
        // A stored text brings its collation along; of made ones DISTINCT would keep "a" and "A".
        if (select.distinct && fieldTypeOf(emitted.type) == FieldType::Text && !emitted.isColumn)
            output.sql = "(" + emitted.sql + " COLLATE DAO)";
        output.column.type = fieldTypeOf(emitted.type);
        if (item.expr->kind == ExprKind::Name) {
            if (const auto found = plan.scope.resolve(item.expr->qualifier, item.expr->text, m_names);
                found && found->column != nullptr)
                output.column = *found->column;
            if (output.column.name.isEmpty())
                output.column.name = item.expr->text;
        }
        if (!item.alias.isEmpty())
            output.column.name = item.alias;
        else if (output.column.name.isEmpty())
            output.column.name = u"Expr%1"_s.arg(1000 + plan.outputs.size());
        plan.outputs.append(output);
    }
}

QByteArray Planner::orderExpression(const ast::OrderItem &item, const SelectPlan &plan, ExprEmitter &emitter)
{
    const Expr &expr = *item.expr;
    if (expr.kind == ExprKind::Number) {
        const int place = expr.text.toInt();
        if (place < 1 || place > plan.outputs.size())
            throw DaoError(SyntaxError,
                           u"ORDER BY names column %1, which the query doesn't have."_s.arg(expr.text));
        return sortable(plan.outputs[place - 1]);
    }
    if (expr.kind == ExprKind::Name && expr.qualifier.isEmpty()) {
        for (const Output &output : plan.outputs) {
            // A field under its own name is looked up like any other: it may be an index's.
            if (sameName(output.column.name, expr.text) && !sameName(output.column.field, expr.text))
                return sortable(output);
        }
    }
    return emitter.emitCollated(expr);
}

void Planner::order(const ast::Select &select, SelectPlan &plan, ExprEmitter &emitter)
{
    bool descending = false;
    for (const auto &item : select.orderBy) {
        descending = item.descending;
        plan.orderBy += (plan.orderBy.isEmpty() ? "" : ", ") + orderExpression(item, plan, emitter) +
                        (descending ? " DESC" : "");
    }
    if (select.orderBy.empty() && plan.scope.sources.size() == 1 && !plan.grouped) {
        const Source &only = plan.scope.sources.front();
        for (const auto &[name, down] : only.order) {
            descending = down;
            plan.orderBy += (plan.orderBy.isEmpty() ? "" : ", ") + quotedName(only.alias) + '.' +
                            quotedName(name) + (down ? " DESC" : "");
        }
    }
    // The key last makes the order total, in the direction that lets an index be walked.
    if (plan.isKeyed())
        plan.orderBy += (plan.orderBy.isEmpty() ? "" : ", ") + plan.key + (descending ? " DESC" : "");
}

} // namespace dao
