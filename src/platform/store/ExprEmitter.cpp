// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/ExprEmitter.h"

#include "platform/store/DaoError.h"
#include "platform/store/FunctionTable.h"
#include "platform/store/Like.h"
#include "platform/store/Sqlite.h"
#include "platform/store/StoredDate.h"
#include "platform/text/Text.h"

#include <map>

using namespace Qt::StringLiterals;

namespace dao {

using ast::Expr;
using ast::ExprKind;

namespace {

/** An OR of more terms than a person types is held to a plan that grows as they do. */
constexpr std::size_t ManyAlternatives = 50;
/** Even so SQLite looks every constant up among those before it: more tests than these are refused. */
constexpr std::size_t MostTests = 5000;

/** Texts in one call of dao_like: SQLite allows a hundred arguments. */
constexpr std::size_t MostTexts = 90;

QByteArray withCollation(const Emitted &e)
{
    const bool maybeText = e.type == ValueType::Text || e.type == ValueType::Unknown;
    return maybeText && !e.isColumn ? e.sql + " COLLATE DAO" : e.sql;
}

QByteArray negate(const QByteArray &sql, bool negated)
{
    return negated ? "(NOT " + sql + ")" : sql;
}

/** The part of a pattern in front of its first wildcard. */
QString literalPrefix(const QString &pattern)
{
    qsizetype length = 0;
    while (length < pattern.size() && !u"*?#["_s.contains(pattern[length]))
        ++length;
    // A vowel that Thai and Lao write ahead of its consonant is sorted behind it.
    while (length > 0 &&
           u"\u0E40\u0E41\u0E42\u0E43\u0E44\u0EC0\u0EC1\u0EC2\u0EC3\u0EC4"_s.contains(pattern[length - 1]))
        --length;
    return pattern.left(length);
}

} // namespace

bool leavesIndexesUnused(const Expr &condition)
{
    const auto does = [](const auto &arg) { return leavesIndexesUnused(*arg); };
    switch (condition.kind) {
    case ExprKind::Like:
        return condition.negated || (condition.args[1]->kind == ExprKind::Text &&
                                     literalPrefix(condition.args[1]->text).isEmpty());
    case ExprKind::AndOr:
        // One such term of an OR is enough to ask for every row.
        return condition.text == "OR"_L1 ? std::any_of(condition.args.begin(), condition.args.end(), does)
                                         : std::all_of(condition.args.begin(), condition.args.end(), does);
    default:
        return false;
    }
}

Emitted ExprEmitter::emit(const Expr &expr)
{
    switch (expr.kind) {
    case ExprKind::Text:
        return {quotedText(expr.text), ValueType::Text};
    case ExprKind::Number:
        return {expr.text.toLatin1(), ValueType::Number};
    case ExprKind::Date:
        return literalDate(expr);
    case ExprKind::Null:
        return {"NULL"};
    case ExprKind::Boolean:
        return {expr.text.compare("TRUE"_L1, Qt::CaseInsensitive) == 0 ? "-1" : "0", ValueType::Number};
    case ExprKind::Name:
        return name(expr);
    case ExprKind::Star:
        return {"*"};
    case ExprKind::Negate:
        return {"(- " + emit(*expr.args[0]).sql + ")", ValueType::Number};
    case ExprKind::Not:
        return {"(NOT " + emit(*expr.args[0]).sql + ")", ValueType::Boolean};
    case ExprKind::AndOr:
        return andOr(expr);
    case ExprKind::Compare:
        return compare(expr);
    case ExprKind::Arithmetic:
        return arithmetic(expr);
    case ExprKind::Concat:
        return {"dao_concat(" + emit(*expr.args[0]).sql + ", " + emit(*expr.args[1]).sql + ")",
                ValueType::Text};
    case ExprKind::Like:
        return like(expr);
    case ExprKind::Between:
        return between(expr);
    case ExprKind::InList:
    case ExprKind::InSelect:
        return in(expr);
    case ExprKind::IsNull:
        return {"(" + emit(*expr.args[0]).sql + (expr.negated ? " IS NOT NULL)" : " IS NULL)"),
                ValueType::Boolean};
    case ExprKind::Call:
        return call(expr);
    case ExprKind::Subselect:
        return {"(" + m_writeSelect(*expr.select, &m_scope) + ")"};
    case ExprKind::Exists:
        return {"EXISTS (" + m_writeSelect(*expr.select, &m_scope) + ")", ValueType::Boolean};
    }
    throw DaoError(SyntaxError, u"Syntax error in query expression."_s);
}

QByteArray ExprEmitter::emitCollated(const Expr &expr)
{
    return withCollation(emit(expr));
}

Emitted ExprEmitter::name(const Expr &expr)
{
    std::optional<Resolved> found;
    if (m_first)
        found = m_first(expr.qualifier, expr.text);
    if (!found)
        found = m_scope.resolve(expr.qualifier, expr.text, m_names);
    if (!found) {
        const QString shown = expr.qualifier.isEmpty() ? expr.text : expr.qualifier + u'.' + expr.text;
        throw DaoError(UnknownField,
                       u"Too few parameters.  Expected 1.  There is no field named '%1'."_s.arg(shown));
    }
    if (found->column != nullptr && !found->column->field.isEmpty())
        m_fieldsUsed.append(found->column->field.toLower());
    // What an expression made compares to the letter wherever SQLite is not told otherwise.
    const bool isStored = found->column != nullptr && !found->column->field.isEmpty();
    return {found->sql, found->type, isStored && found->type == ValueType::Text};
}

Emitted ExprEmitter::literalDate(const Expr &expr) const
{
    const auto date = quaverly::parseDate(expr.text);
    if (!date)
        throw DaoError(SyntaxError, u"Syntax error in date in query expression '#%1#'."_s.arg(expr.text));
    return {quotedText(storedDate(*date)), ValueType::Date};
}

// Many equal tests of one field are one list of values: SQLite plans every term of an OR by itself.
std::vector<QByteArray> ExprEmitter::alternatives(const std::vector<const Expr *> &args)
{
    std::vector<QByteArray> terms;
    std::map<QByteArray, QByteArray> lists;
    for (const Expr *arg : args) {
        const bool isEquality =
            arg->kind == ExprKind::Compare && arg->text == "="_L1 && arg->args[0]->kind == ExprKind::Name &&
            (arg->args[1]->kind == ExprKind::Text || arg->args[1]->kind == ExprKind::Number);
        const Emitted tested = isEquality ? emit(*arg->args[0]) : Emitted();
        if (tested.isColumn || tested.type == ValueType::Number || tested.type == ValueType::Date) {
            QByteArray &list = lists[tested.sql];
            list += (list.isEmpty() ? "" : ", ") + operand(*arg->args[1], tested.type).sql;
        } else {
            terms.push_back(emit(*arg).sql);
        }
    }
    for (const auto &[field, list] : lists)
        terms.push_back("(" + field + " IN (" + list + "))");
    return terms;
}

Emitted ExprEmitter::andOr(const Expr &expr)
{
    std::vector<const Expr *> args;
    std::vector<QByteArray> terms;
    if (expr.text == "OR"_L1) {
        terms = joinLikes(expr, args);
    } else {
        for (const auto &arg : expr.args)
            args.push_back(arg.get());
    }
    if (args.size() > ManyAlternatives && expr.text == "OR"_L1) {
        const std::vector<QByteArray> lists = alternatives(args);
        terms.insert(terms.end(), lists.begin(), lists.end());
    } else {
        for (const Expr *arg : args)
            terms.push_back(emit(*arg).sql);
    }
    if (expr.text == "XOR"_L1) {
        return {"((NOT NOT " + terms[0] + ") <> (NOT NOT " + terms[1] + "))", ValueType::Boolean};
    }
    m_tests += terms.size();
    if (m_tests > MostTests)
        throw DaoError(TooComplex, u"Query is too complex."_s);
    const QByteArray sql = balanced(terms, 0, terms.size(), ' ' + expr.text.toLatin1() + ' ');
    // The sign keeps SQLite from looking for an index for each: that costs terms times terms.
    return {terms.size() > ManyAlternatives ? "(+" + sql + ")" : sql, ValueType::Boolean};
}

// Halving keeps the tree low: SQLite limits its depth, not its size.
QByteArray ExprEmitter::balanced(const std::vector<QByteArray> &terms, std::size_t from, std::size_t to,
                                 const QByteArray &word) const
{
    if (to - from == 1)
        return terms[from];
    if (to - from <= 8) {
        QByteArray sql = "(" + terms[from];
        for (std::size_t i = from + 1; i < to; ++i)
            sql += word + terms[i];
        return sql + ")";
    }
    const std::size_t middle = from + (to - from) / 2;
    return "(" + balanced(terms, from, middle, word) + word + balanced(terms, middle, to, word) + ")";
}

// A text that reads as a date is one beside a date; True is 1 beside a truth of SQLite's.
Emitted ExprEmitter::operand(const Expr &expr, ValueType other)
{
    if (other == ValueType::Date && expr.kind == ExprKind::Text) {
        if (const auto date = quaverly::parseDate(expr.text))
            return {quotedText(storedDate(*date)), ValueType::Date};
    }
    Emitted e = emit(expr);
    if (other == ValueType::Boolean && expr.kind == ExprKind::Boolean && e.sql == "-1")
        e.sql = "1";
    return e;
}

Emitted ExprEmitter::compare(const Expr &expr)
{
    Emitted left = emit(*expr.args[0]);
    const Emitted right = operand(*expr.args[1], left.type);
    if (expr.args[0]->kind == ExprKind::Text || expr.args[0]->kind == ExprKind::Boolean)
        left = operand(*expr.args[0], right.type);
    const bool numeric = left.type == ValueType::Number || right.type == ValueType::Number;
    const bool hasCollation = left.isColumn || right.isColumn || numeric;
    return {"(" + left.sql + ' ' + expr.text.toLatin1() + ' ' +
                (hasCollation ? right.sql : withCollation(right)) + ")",
            ValueType::Boolean};
}

Emitted ExprEmitter::arithmetic(const Expr &expr)
{
    const Emitted left = emit(*expr.args[0]);
    const Emitted right = emit(*expr.args[1]);
    const QByteArray op = expr.text.toUpper().toLatin1();
    const bool isSum = op == "+" || op == "-";
    if (isSum && left.type == ValueType::Date && right.type == ValueType::Date && op == "-")
        return {"dao_datediff('d', " + right.sql + ", " + left.sql + ")", ValueType::Number};
    if (isSum && left.type == ValueType::Date)
        return {"dao_dateadd('d', " + op + "(" + right.sql + "), " + left.sql + ")", ValueType::Date};
    if (op == "+" && right.type == ValueType::Date)
        return {"dao_dateadd('d', " + left.sql + ", " + right.sql + ")", ValueType::Date};
    if (op == "+" && !(left.type == ValueType::Number && right.type == ValueType::Number))
        return {"dao_add(" + left.sql + ", " + right.sql + ")"};
    if (op == "/")
        return {"(CAST(" + left.sql + " AS REAL) / " + right.sql + ")", ValueType::Number};
    if (op == "\\")
        return {"(dao_clng(" + left.sql + ") / dao_clng(" + right.sql + "))", ValueType::Number};
    if (op == "MOD")
        return {"(dao_clng(" + left.sql + ") % dao_clng(" + right.sql + "))", ValueType::Number};
    if (op == "^")
        return {"pow(" + left.sql + ", " + right.sql + ")", ValueType::Number};
    return {"(" + left.sql + ' ' + op + ' ' + right.sql + ")", ValueType::Number};
}

QByteArray ExprEmitter::likeText(const Expr &expr)
{
    const Emitted e = emit(expr);
    return e.type == ValueType::Date ? "dao_shortdate(" + e.sql + ")" : e.sql;
}

// Fields under one pattern that no index helps with are tested in one call, all terms of the OR together.
std::vector<QByteArray> ExprEmitter::joinLikes(const Expr &expr, std::vector<const Expr *> &others)
{
    std::map<QString, std::vector<const Expr *>> byPattern;
    for (const auto &arg : expr.args) {
        const bool joins = arg->kind == ExprKind::Like && !arg->negated &&
                           arg->args[1]->kind == ExprKind::Text &&
                           literalPrefix(arg->args[1]->text).isEmpty();
        if (joins)
            byPattern[arg->args[1]->text].push_back(arg.get());
        else
            others.push_back(arg.get());
    }
    std::vector<QByteArray> terms;
    for (const auto &[pattern, likes] : byPattern) {
        for (std::size_t from = 0; from < likes.size(); from += MostTexts) {
            QByteArray call = "dao_like(" + quotedText(pattern);
            for (std::size_t i = from; i < std::min(from + MostTexts, likes.size()); ++i)
                call += ", " + likeText(*likes[i]->args[0]);
            terms.push_back(call + ")");
        }
    }
    return terms;
}

Emitted ExprEmitter::like(const Expr &expr)
{
    const Emitted left = emit(*expr.args[0]);
    const Emitted pattern = emit(*expr.args[1]);
    const QByteArray test = "dao_like(" + pattern.sql + ", " + likeText(*expr.args[0]) + ")";
    const QString prefix =
        expr.args[1]->kind == ExprKind::Text ? literalPrefix(expr.args[1]->text) : QString();
    if (expr.negated || prefix.isEmpty() || !left.isColumn)
        return {negate(test, expr.negated), ValueType::Boolean};
    // What begins with the prefix lies between it and itself with the highest character behind: an
    // index finds that range, and the pattern decides within it. Folded, since ss stands before ß.
    const QByteArray range = left.sql + " BETWEEN " + quotedText(foldedText(prefix)) + " AND " +
                             quotedText(prefix + QChar(0xFFFF));
    return {"(" + range + " AND " + test + ")", ValueType::Boolean};
}

Emitted ExprEmitter::between(const Expr &expr)
{
    const Emitted tested = emit(*expr.args[0]);
    const Emitted low = operand(*expr.args[1], tested.type);
    const Emitted high = operand(*expr.args[2], tested.type);
    const QByteArray sql = "(" + withCollation(tested) + " BETWEEN " + low.sql + " AND " + high.sql + ")";
    return {negate(sql, expr.negated), ValueType::Boolean};
}

Emitted ExprEmitter::in(const Expr &expr)
{
    const Emitted tested = emit(*expr.args[0]);
    QByteArray list;
    if (expr.kind == ExprKind::InSelect) {
        list = m_writeSelect(*expr.select, &m_scope);
    } else {
        for (std::size_t i = 1; i < expr.args.size(); ++i)
            list += (i > 1 ? ", " : "") + operand(*expr.args[i], tested.type).sql;
    }
    return {"(" + withCollation(tested) + (expr.negated ? " NOT IN (" : " IN (") + list + "))",
            ValueType::Boolean};
}

Emitted ExprEmitter::call(const Expr &expr)
{
    const FunctionRule *rule = functionRule(expr.text);
    if (rule == nullptr)
        throw DaoError(UndefinedFunction, u"Undefined function '%1' in expression."_s.arg(expr.text));
    const auto count = static_cast<int>(expr.args.size());
    const bool star = count == 1 && expr.args[0]->kind == ExprKind::Star;
    if (count < rule->fewest || count > rule->most || (star && QLatin1StringView(rule->name) != "Count"_L1))
        throw DaoError(
            SyntaxError,
            u"Wrong number of arguments used with function in query expression '%1'."_s.arg(expr.text));
    if (QLatin1StringView(rule->name) == "First"_L1)
        return first(expr);
    QString written = QString::fromLatin1(rule->sql);
    ValueType type = rule->result;
    QStringList emitted;
    for (const auto &arg : expr.args) {
        const Emitted e = emit(*arg);
        emitted.append(QString::fromUtf8(rule->aggregate && !star ? withCollation(e) : e.sql));
        // IIf's first argument is its condition.
        if (type == ValueType::Unknown && (count < 3 || emitted.size() > 1))
            type = e.type;
    }
    if (QLatin1StringView(rule->name) == "Nz"_L1 && count == 1)
        emitted.append(u"''"_s);
    if (!written.contains(u'%'))
        return {(written + u'(' + emitted.join(", "_L1) + u')').toUtf8(), type};
    QByteArray sql;
    for (qsizetype i = 0; i < written.size(); ++i) {
        if (written[i] == u'%')
            sql += emitted.at(written[++i].digitValue() - 1).toUtf8();
        else
            sql += written[i].toLatin1();
    }
    return {sql, type};
}

// The first row is the one with the lowest key of the first table.
Emitted ExprEmitter::first(const Expr &expr)
{
    const Emitted e = emit(*expr.args[0]);
    const auto keyed = std::find_if(m_scope.sources.begin(), m_scope.sources.end(),
                                    [](const Source &s) { return !s.key.isEmpty(); });
    if (keyed == m_scope.sources.end() || keyed->key == e.sql)
        return {"min(" + e.sql + ")", e.type};
    return {"dao_first(" + e.sql + ", " + keyed->key + ")", e.type};
}

} // namespace dao
