// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <vector>

/** What a statement of the dialect is made of, before any name is looked up. */
namespace dao::ast {

struct Select;
struct Expr;
using ExprPtr = std::unique_ptr<Expr>;

enum class ExprKind {
    Text,
    Number,
    Date,
    Null,
    Boolean,
    Name, // qualifier, text
    Star, // the argument of Count(*)
    Negate,
    Not,
    AndOr,   // text is AND, OR or XOR; any number of terms
    Compare, // text is the operator
    Arithmetic,
    Concat,
    Like,
    Between,
    InList,
    InSelect,
    IsNull,
    Call,
    Subselect,
    Exists,
};

struct Expr
{
    ExprKind kind;
    /** Literal, name, operator or function name. */
    QString text;
    QString qualifier;
    std::vector<ExprPtr> args;
    std::unique_ptr<Select> select;
    bool negated = false;
    qsizetype position = 0;
    /** Levels of expressions below this one. */
    int depth = 0;
};

struct SelectItem
{
    /** Null for a star. */
    ExprPtr expr;
    /** The source whose star it is; empty for all. */
    QString starOf;
    QString alias;
};

/** A table or stored query, a subselect, or a join of two. */
struct From
{
    enum class Kind { Named, Subselect, Inner, Left, Cross };
    Kind kind = Kind::Named;
    QString name;
    QString alias;
    std::unique_ptr<Select> select;
    std::unique_ptr<From> left;
    std::unique_ptr<From> right;
    ExprPtr on;
    qsizetype position = 0;
};

struct OrderItem
{
    ExprPtr expr;
    bool descending = false;
};

struct Select
{
    bool distinct = false;
    bool distinctRow = false;
    std::optional<qint64> top;
    std::vector<SelectItem> items;
    std::unique_ptr<From> from;
    ExprPtr where;
    std::vector<ExprPtr> groupBy;
    ExprPtr having;
    std::vector<OrderItem> orderBy;
};

struct Assignment
{
    QString field;
    ExprPtr value;
    qsizetype position = 0;
};

struct Statement
{
    enum class Kind { Select, Update, Insert, Delete };
    Kind kind = Kind::Select;
    std::unique_ptr<Select> select; // also the rows of an INSERT ... SELECT
    std::unique_ptr<From> target;
    std::vector<Assignment> assignments; // UPDATE; of an INSERT the fields, with values when there are any
    /** Of DELETE a.* FROM a INNER JOIN ...: the source whose rows go. */
    QString deleteFrom;
    ExprPtr where;
};

} // namespace dao::ast
