// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/ExprParser.h"

#include "platform/store/DaoError.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace dao {

using ast::Expr;
using ast::ExprKind;
using ast::ExprPtr;

namespace {

/** No filter that a person types comes near these; a hostile one is refused before it costs anything. */
constexpr qsizetype LongestStatement = 1'000'000;
constexpr int DeepestNesting = 100;
constexpr int DeepestTree = 500;

/** Words that end a name wherever they stand, unless they are in brackets. */
bool isReserved(const QString &word)
{
    static const QSet<QString> reserved = {
        u"SELECT"_s,   u"FROM"_s,        u"WHERE"_s, u"ORDER"_s, u"GROUP"_s, u"HAVING"_s, u"INNER"_s,
        u"LEFT"_s,     u"RIGHT"_s,       u"JOIN"_s,  u"ON"_s,    u"AND"_s,   u"OR"_s,     u"NOT"_s,
        u"LIKE"_s,     u"BETWEEN"_s,     u"IN"_s,    u"IS"_s,    u"AS"_s,    u"UNION"_s,  u"XOR"_s,
        u"MOD"_s,      u"BY"_s,          u"ASC"_s,   u"DESC"_s,  u"SET"_s,   u"VALUES"_s, u"INTO"_s,
        u"DISTINCT"_s, u"DISTINCTROW"_s, u"NULL"_s,  u"TRUE"_s,  u"FALSE"_s, u"EXISTS"_s, u"DELETE"_s,
        u"UPDATE"_s,   u"INSERT"_s};
    return reserved.contains(word.toUpper());
}

} // namespace

ExprParser::ExprParser(const QString &sql) : m_sql(sql)
{
    if (sql.size() > LongestStatement)
        throw DaoError(TooComplex, u"Query is too complex."_s);
    m_tokens = tokensOf(m_sql);
}

ExprParser::Deeper::Deeper(ExprParser &parser) : m_parser(parser)
{
    if (++m_parser.m_depth > DeepestNesting) {
        --m_parser.m_depth;
        throw DaoError(TooComplex, u"Query is too complex."_s);
    }
}

const Token &ExprParser::peek(std::size_t ahead) const
{
    return m_tokens[std::min(m_at + ahead, m_tokens.size() - 1)];
}

const Token &ExprParser::take()
{
    const Token &token = peek();
    if (m_at < m_tokens.size() - 1)
        ++m_at;
    return token;
}

bool ExprParser::accept(QStringView word)
{
    if (!at(word))
        return false;
    take();
    return true;
}

void ExprParser::expect(QStringView word)
{
    if (!accept(word))
        fail();
}

void ExprParser::expectEnd()
{
    accept(u";");
    if (peek().kind != TokenKind::End)
        fail();
}

void ExprParser::fail(const QString &why) const
{
    throwSyntaxError(m_sql, peek().position, why);
}

bool ExprParser::atName() const
{
    return peek().kind == TokenKind::BracketedName ||
           (peek().kind == TokenKind::Word && !isReserved(peek().text));
}

QString ExprParser::name()
{
    if (!atName())
        fail();
    return take().text;
}

ExprPtr ExprParser::node(ExprKind kind, const QString &text) const
{
    auto made = std::make_unique<Expr>();
    made->kind = kind;
    made->text = text;
    made->position = peek().position;
    return made;
}

// A chain of operators nests the tree by one each, brackets or not.
void ExprParser::adopt(Expr &parent, ExprPtr child)
{
    parent.depth = std::max(parent.depth, child->depth + 1);
    if (parent.depth > DeepestTree)
        throw DaoError(TooComplex, u"Query is too complex."_s);
    parent.args.push_back(std::move(child));
}

ExprPtr ExprParser::expression()
{
    const Deeper deeper(*this);
    return orLevel();
}

ExprPtr ExprParser::andOr(QStringView word, Level next)
{
    ExprPtr first = (this->*next)();
    if (!at(word))
        return first;
    ExprPtr all = node(ExprKind::AndOr, word.toString());
    adopt(*all, std::move(first));
    while (accept(word))
        adopt(*all, (this->*next)());
    return all;
}

ExprPtr ExprParser::orLevel()
{
    return andOr(u"OR", &ExprParser::xorLevel);
}

ExprPtr ExprParser::xorLevel()
{
    return binary({u"XOR"}, &ExprParser::andLevel);
}

ExprPtr ExprParser::andLevel()
{
    return andOr(u"AND", &ExprParser::notLevel);
}

ExprPtr ExprParser::notLevel()
{
    if (!at(u"NOT"))
        return comparison();
    const Deeper deeper(*this);
    ExprPtr made = node(ExprKind::Not);
    take();
    adopt(*made, notLevel());
    return made;
}

ExprPtr ExprParser::comparison()
{
    static constexpr QStringView operators[] = {u"=", u"<>", u"<", u">", u"<=", u">="};
    ExprPtr left = concat();
    while (true) {
        bool found = false;
        for (const QStringView op : operators) {
            if (!at(op))
                continue;
            ExprPtr made = node(ExprKind::Compare, op.toString());
            take();
            adopt(*made, std::move(left));
            adopt(*made, concat());
            left = std::move(made);
            found = true;
            break;
        }
        if (found)
            continue;
        const std::size_t ahead = at(u"NOT") ? 1 : 0;
        if (at(u"LIKE", ahead) || at(u"BETWEEN", ahead) || at(u"IN", ahead) || (ahead == 0 && at(u"IS")))
            left = predicate(std::move(left));
        else
            return left;
    }
}

ExprPtr ExprParser::predicate(ExprPtr left)
{
    ExprPtr made = node(ExprKind::Like);
    made->negated = accept(u"NOT");
    adopt(*made, std::move(left));
    if (accept(u"LIKE")) {
        adopt(*made, concat());
    } else if (accept(u"BETWEEN")) {
        made->kind = ExprKind::Between;
        adopt(*made, concat());
        expect(u"AND");
        adopt(*made, concat());
    } else if (accept(u"IS")) {
        made->kind = ExprKind::IsNull;
        made->negated = accept(u"NOT");
        expect(u"NULL");
    } else {
        expect(u"IN");
        return inPredicate(std::move(made));
    }
    return made;
}

ExprPtr ExprParser::inPredicate(ExprPtr made)
{
    const Deeper deeper(*this);
    expect(u"(");
    if (at(u"SELECT")) {
        made->kind = ExprKind::InSelect;
        made->select = selectStatement();
    } else {
        made->kind = ExprKind::InList;
        do {
            adopt(*made, concat());
        } while (accept(u","));
    }
    expect(u")");
    return made;
}

ExprPtr ExprParser::binary(std::initializer_list<QStringView> operators, Level next)
{
    ExprPtr left = (this->*next)();
    while (true) {
        const auto *op =
            std::find_if(operators.begin(), operators.end(), [this](QStringView o) { return at(o); });
        if (op == operators.end())
            return left;
        ExprPtr made = node(*op == u"&"     ? ExprKind::Concat
                            : *op == u"XOR" ? ExprKind::AndOr
                                            : ExprKind::Arithmetic,
                            op->toString());
        take();
        adopt(*made, std::move(left));
        adopt(*made, (this->*next)());
        left = std::move(made);
    }
}

ExprPtr ExprParser::concat()
{
    return binary({u"&"}, &ExprParser::additive);
}

ExprPtr ExprParser::additive()
{
    return binary({u"+", u"-"}, &ExprParser::modulo);
}

ExprPtr ExprParser::modulo()
{
    return binary({u"MOD"}, &ExprParser::wholeDivision);
}

ExprPtr ExprParser::wholeDivision()
{
    return binary({u"\\"}, &ExprParser::multiplicative);
}

ExprPtr ExprParser::multiplicative()
{
    return binary({u"*", u"/"}, &ExprParser::unary);
}

ExprPtr ExprParser::unary()
{
    if (!at(u"-") && !at(u"+"))
        return power();
    const Deeper deeper(*this);
    ExprPtr made = node(ExprKind::Negate);
    const bool minus = take().is(u"-");
    ExprPtr operand = unary();
    if (!minus)
        return operand;
    adopt(*made, std::move(operand));
    return made;
}

ExprPtr ExprParser::power()
{
    return binary({u"^"}, &ExprParser::primary);
}

ExprPtr ExprParser::primary()
{
    if (at(u"("))
        return parenthesis();
    if (at(u"EXISTS")) {
        ExprPtr made = node(ExprKind::Exists);
        const Deeper deeper(*this);
        take();
        expect(u"(");
        made->select = selectStatement();
        expect(u")");
        return made;
    }
    // Two functions bear the names of join words.
    const bool wordThenCall = peek().kind == TokenKind::Word && at(u"(", 1) && (at(u"LEFT") || at(u"RIGHT"));
    return atName() || wordThenCall ? nameOrCall() : literal();
}

ExprPtr ExprParser::parenthesis()
{
    const Deeper deeper(*this);
    ExprPtr made = node(ExprKind::Subselect);
    take();
    if (at(u"SELECT"))
        made->select = selectStatement();
    else
        made = expression();
    expect(u")");
    return made;
}

ExprPtr ExprParser::literal()
{
    const Token &token = peek();
    ExprKind kind = ExprKind::Null;
    if (token.kind == TokenKind::Text)
        kind = ExprKind::Text;
    else if (token.kind == TokenKind::Number)
        kind = ExprKind::Number;
    else if (token.kind == TokenKind::Date)
        kind = ExprKind::Date;
    else if (token.is(u"TRUE") || token.is(u"FALSE"))
        kind = ExprKind::Boolean;
    else if (!token.is(u"NULL"))
        fail();
    ExprPtr made = node(kind, token.text);
    take();
    return made;
}

ExprPtr ExprParser::nameOrCall()
{
    const bool bracketed = peek().kind == TokenKind::BracketedName;
    ExprPtr made = node(ExprKind::Name);
    made->text = take().text;
    if (!bracketed && accept(u"(")) {
        const Deeper deeper(*this);
        made->kind = ExprKind::Call;
        if (at(u"*") && at(u")", 1)) {
            adopt(*made, node(ExprKind::Star));
            take();
        } else if (!at(u")")) {
            do {
                adopt(*made, expression());
            } while (accept(u","));
        }
        expect(u")");
        return made;
    }
    if (accept(u".") || accept(u"!")) {
        made->qualifier = made->text;
        if (peek().kind != TokenKind::Word && peek().kind != TokenKind::BracketedName)
            fail();
        made->text = take().text;
    }
    return made;
}

} // namespace dao
