// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Ast.h"
#include "platform/store/Lexer.h"

#include <functional>

namespace dao {

/** A walk over a statement's tokens, with the reading of expressions. */
class ExprParser
{
public:
    explicit ExprParser(const QString &sql);
    virtual ~ExprParser() = default;

    [[nodiscard]] ast::ExprPtr expression();
    void expectEnd();

protected:
    [[nodiscard]] const Token &peek(std::size_t ahead = 0) const;
    const Token &take();
    [[nodiscard]] bool at(QStringView word, std::size_t ahead = 0) const { return peek(ahead).is(word); }
    bool accept(QStringView word);
    void expect(QStringView word);
    [[nodiscard]] bool atName() const;
    [[nodiscard]] QString name();
    [[noreturn]] void fail(const QString &why = {}) const;

    /** One level deeper for the length of a scope. */
    class Deeper
    {
    public:
        explicit Deeper(ExprParser &parser);
        ~Deeper() { --m_parser.m_depth; }
        Deeper(const Deeper &) = delete;
        Deeper &operator=(const Deeper &) = delete;

    private:
        ExprParser &m_parser;
    };

    virtual std::unique_ptr<ast::Select> selectStatement() = 0;

private:
    using Level = ast::ExprPtr (ExprParser::*)();

    ast::ExprPtr andOr(QStringView word, Level next);
    ast::ExprPtr orLevel();
    ast::ExprPtr xorLevel();
    ast::ExprPtr andLevel();
    ast::ExprPtr notLevel();
    ast::ExprPtr comparison();
    ast::ExprPtr predicate(ast::ExprPtr left);
    ast::ExprPtr inPredicate(ast::ExprPtr node);
    ast::ExprPtr binary(std::initializer_list<QStringView> operators, Level next);
    ast::ExprPtr concat();
    ast::ExprPtr additive();
    ast::ExprPtr modulo();
    ast::ExprPtr wholeDivision();
    ast::ExprPtr multiplicative();
    ast::ExprPtr unary();
    ast::ExprPtr power();
    ast::ExprPtr primary();
    ast::ExprPtr literal();
    ast::ExprPtr parenthesis();
    ast::ExprPtr nameOrCall();
    static void adopt(ast::Expr &parent, ast::ExprPtr child);
    [[nodiscard]] ast::ExprPtr node(ast::ExprKind kind, const QString &text = {}) const;

    QString m_sql;
    std::vector<Token> m_tokens;
    std::size_t m_at = 0;
    int m_depth = 0;
};

} // namespace dao
