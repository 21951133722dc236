// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/ExprEmitter.h"
#include "platform/store/SelectPlan.h"

#include <QSet>

namespace dao {

/** The column under which a stored query hands on the key of its rows. */
inline const QString KeyName = QStringLiteral("~key");

/** Looks up the names of statements, stored queries within them included. */
class Planner final
{
public:
    explicit Planner(const NameCatalogue &names) : m_names(names) {}

    [[nodiscard]] SelectPlan select(const ast::Select &select, const Scope *outer);
    /** The sources of a FROM clause, for statements that are no SELECT. */
    [[nodiscard]] SelectPlan sources(const ast::From &from);
    [[nodiscard]] ExprEmitter::SelectWriter subselectWriter();

private:
    /** What a statement names, which decides whether a stored query's outer join is needed. */
    struct Mentions
    {
        bool star = false;
        QSet<QString> names;
    };

    QByteArray from(const ast::From &from, SelectPlan &plan, const Mentions &mentions);
    Source namedSource(const ast::From &from, const Mentions &mentions);
    Source querySource(const ast::Select &select, const QString &alias, const Mentions &mentions);
    [[nodiscard]] bool joinIsUnused(const ast::Select &stored, const Mentions &mentions) const;
    void outputs(const ast::Select &select, SelectPlan &plan, ExprEmitter &emitter);
    void starOutputs(const ast::SelectItem &item, SelectPlan &plan);
    void order(const ast::Select &select, SelectPlan &plan, ExprEmitter &emitter);
    [[nodiscard]] QByteArray orderExpression(const ast::OrderItem &item, const SelectPlan &plan,
                                             ExprEmitter &emitter);
    static void collect(const ast::Expr *expr, Mentions &mentions);
    static void collect(const ast::From *from, Mentions &mentions);
    static Mentions mentionsOf(const ast::Select &select);
    static void takeBase(SelectPlan &plan, const ast::Select &select);

    const NameCatalogue &m_names;
    int m_depth = 0;
};

} // namespace dao
