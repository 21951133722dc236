// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/Parser.h"

#include "platform/store/DaoError.h"
#include "platform/store/ExprParser.h"

using namespace Qt::StringLiterals;

namespace dao {

namespace {

using ast::From;
using ast::Select;

/** SQLite joins no more. */
constexpr int MostJoins = 63;

class StatementParser final : public ExprParser
{
public:
    using ExprParser::ExprParser;

    ast::Statement statement()
    {
        ast::Statement made;
        if (at(u"SELECT")) {
            made.select = selectStatement();
        } else if (accept(u"DELETE")) {
            deleteStatement(made);
        } else if (accept(u"UPDATE")) {
            updateStatement(made);
        } else if (accept(u"INSERT")) {
            insertStatement(made);
        } else {
            fail();
        }
        expectEnd();
        return made;
    }

private:
    std::unique_ptr<Select> selectStatement() override
    {
        const Deeper deeper(*this);
        auto made = std::make_unique<Select>();
        expect(u"SELECT");
        selectModifiers(*made);
        do {
            made->items.push_back(selectItem());
        } while (accept(u","));
        expect(u"FROM");
        made->from = fromList();
        if (accept(u"WHERE"))
            made->where = expression();
        if (accept(u"GROUP")) {
            expect(u"BY");
            do {
                made->groupBy.push_back(expression());
            } while (accept(u","));
        }
        if (accept(u"HAVING"))
            made->having = expression();
        if (accept(u"ORDER"))
            orderBy(*made);
        return made;
    }

    void selectModifiers(Select &made)
    {
        if (accept(u"DISTINCT"))
            made.distinct = true;
        else if (accept(u"DISTINCTROW"))
            made.distinctRow = true;
        else
            accept(u"ALL");
        if (at(u"TOP") && peek(1).kind == TokenKind::Number) {
            take();
            made.top = take().text.toLongLong();
        }
    }

    void orderBy(Select &made)
    {
        expect(u"BY");
        do {
            ast::OrderItem item;
            item.expr = expression();
            item.descending = accept(u"DESC");
            if (!item.descending)
                accept(u"ASC");
            made.orderBy.push_back(std::move(item));
        } while (accept(u","));
    }

    ast::SelectItem selectItem()
    {
        ast::SelectItem item;
        if (accept(u"*"))
            return item;
        if (atName() && (at(u".", 1) || at(u"!", 1)) && at(u"*", 2)) {
            item.starOf = name();
            take();
            take();
            return item;
        }
        item.expr = expression();
        if (accept(u"AS"))
            item.alias = name();
        else if (atName())
            item.alias = name();
        return item;
    }

    std::unique_ptr<From> fromList()
    {
        auto left = joined();
        while (accept(u","))
            left = join(From::Kind::Cross, std::move(left), joined());
        return left;
    }

    std::unique_ptr<From> join(From::Kind kind, std::unique_ptr<From> left, std::unique_ptr<From> right)
    {
        if (++m_joins > MostJoins)
            throw DaoError(TooComplex, u"Query is too complex."_s);
        auto made = std::make_unique<From>();
        made->kind = kind;
        made->position = right->position;
        made->left = std::move(left);
        made->right = std::move(right);
        return made;
    }

    std::unique_ptr<From> joined()
    {
        auto left = source();
        while (at(u"INNER") || at(u"JOIN") || ((at(u"LEFT") || at(u"RIGHT")) && !at(u"(", 1))) {
            const bool isLeft = accept(u"LEFT");
            const bool isRight = !isLeft && accept(u"RIGHT");
            if (isLeft || isRight)
                accept(u"OUTER");
            else
                accept(u"INNER");
            expect(u"JOIN");
            auto right = source();
            if (isRight)
                std::swap(left, right);
            left = join(isLeft || isRight ? From::Kind::Left : From::Kind::Inner, std::move(left),
                        std::move(right));
            expect(u"ON");
            left->on = expression();
        }
        return left;
    }

    std::unique_ptr<From> source()
    {
        const Deeper deeper(*this);
        auto made = std::make_unique<From>();
        made->position = peek().position;
        if (accept(u"(")) {
            if (at(u"SELECT")) {
                made->kind = From::Kind::Subselect;
                made->select = selectStatement();
            } else {
                made = joined();
            }
            expect(u")");
            if (made->kind != From::Kind::Subselect)
                return made;
        } else {
            made->name = name();
        }
        if (accept(u"AS"))
            made->alias = name();
        else if (atName())
            made->alias = name();
        return made;
    }

    void deleteStatement(ast::Statement &made)
    {
        made.kind = ast::Statement::Kind::Delete;
        accept(u"DISTINCTROW");
        if (!at(u"FROM") && !accept(u"*")) {
            made.deleteFrom = name();
            if (accept(u".") || accept(u"!"))
                expect(u"*");
        }
        expect(u"FROM");
        made.target = fromList();
        if (accept(u"WHERE"))
            made.where = expression();
    }

    void updateStatement(ast::Statement &made)
    {
        made.kind = ast::Statement::Kind::Update;
        accept(u"DISTINCTROW");
        made.target = source();
        expect(u"SET");
        do {
            ast::Assignment assignment;
            assignment.position = peek().position;
            assignment.field = name();
            if (accept(u".") || accept(u"!"))
                assignment.field = name();
            expect(u"=");
            assignment.value = expression();
            made.assignments.push_back(std::move(assignment));
        } while (accept(u","));
        if (accept(u"WHERE"))
            made.where = expression();
    }

    void insertStatement(ast::Statement &made)
    {
        made.kind = ast::Statement::Kind::Insert;
        expect(u"INTO");
        made.target = std::make_unique<From>();
        made.target->position = peek().position;
        made.target->name = name();
        expect(u"(");
        do {
            ast::Assignment assignment;
            assignment.position = peek().position;
            assignment.field = name();
            made.assignments.push_back(std::move(assignment));
        } while (accept(u","));
        expect(u")");
        if (at(u"SELECT")) {
            made.select = selectStatement();
            return;
        }
        expect(u"VALUES");
        expect(u"(");
        for (std::size_t i = 0; i < made.assignments.size(); ++i) {
            if (i > 0)
                expect(u",");
            made.assignments[i].value = expression();
        }
        expect(u")");
    }

    int m_joins = 0;
};

} // namespace

ast::Statement parseStatement(const QString &sql)
{
    return StatementParser(sql).statement();
}

ast::ExprPtr parseCriteria(const QString &criteria)
{
    StatementParser parser(criteria);
    auto made = parser.expression();
    parser.expectEnd();
    return made;
}

} // namespace dao
