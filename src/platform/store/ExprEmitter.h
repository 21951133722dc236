// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Ast.h"
#include "platform/store/Scope.h"

#include <functional>

namespace dao {

/** An expression as SQLite reads it. */
struct Emitted
{
    QByteArray sql;
    ValueType type = ValueType::Unknown;
    /** A stored text column: it brings its collation along. */
    bool isColumn = false;
};

/** True for a condition that has to look at every row, such as a Like that begins with a star. */
[[nodiscard]] bool leavesIndexesUnused(const ast::Expr &condition);

/** Writes expressions for SQLite. */
class ExprEmitter final
{
public:
    using SelectWriter = std::function<QByteArray(const ast::Select &, const Scope *outer)>;
    /** Names that go before those of the scope, as an output's do in the criteria of a search. */
    using NameLookup = std::function<std::optional<Resolved>(const QString &qualifier, const QString &name)>;

    ExprEmitter(const Scope &scope, const NameCatalogue &names, SelectWriter writeSelect)
        : m_scope(scope), m_names(names), m_writeSelect(std::move(writeSelect))
    {}

    void setFirstLookup(NameLookup lookup) { m_first = std::move(lookup); }

    /** @throws 3061 for an unknown field, 3085 for an unknown function, 3075 for a wrong call. */
    [[nodiscard]] Emitted emit(const ast::Expr &expr);
    /** The same, with the collation where a text is to be compared, grouped or sorted. */
    [[nodiscard]] QByteArray emitCollated(const ast::Expr &expr);

    /** Fields of stored tables that were named, in lower case. */
    [[nodiscard]] const QStringList &fieldsUsed() const { return m_fieldsUsed; }

private:
    [[nodiscard]] Emitted name(const ast::Expr &expr);
    [[nodiscard]] Emitted literalDate(const ast::Expr &expr) const;
    [[nodiscard]] Emitted andOr(const ast::Expr &expr);
    [[nodiscard]] std::vector<QByteArray> alternatives(const std::vector<const ast::Expr *> &args);
    /** The Likes that can be joined; the other terms go to @p others. */
    [[nodiscard]] std::vector<QByteArray> joinLikes(const ast::Expr &expr,
                                                    std::vector<const ast::Expr *> &others);
    [[nodiscard]] QByteArray likeText(const ast::Expr &expr);
    [[nodiscard]] QByteArray balanced(const std::vector<QByteArray> &terms, std::size_t from, std::size_t to,
                                      const QByteArray &word) const;
    [[nodiscard]] Emitted compare(const ast::Expr &expr);
    [[nodiscard]] Emitted arithmetic(const ast::Expr &expr);
    [[nodiscard]] Emitted like(const ast::Expr &expr);
    [[nodiscard]] Emitted between(const ast::Expr &expr);
    [[nodiscard]] Emitted in(const ast::Expr &expr);
    [[nodiscard]] Emitted call(const ast::Expr &expr);
    [[nodiscard]] Emitted first(const ast::Expr &expr);
    [[nodiscard]] Emitted operand(const ast::Expr &expr, ValueType other);

    const Scope &m_scope;
    const NameCatalogue &m_names;
    SelectWriter m_writeSelect;
    NameLookup m_first;
    QStringList m_fieldsUsed;
    std::size_t m_tests = 0;
};

} // namespace dao
