// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Ast.h"
#include "platform/store/Scope.h"

#include <QStringList>

namespace dao {

/** A column that a statement yields. */
struct Output
{
    Column column;
    /** Its expression within the statement. */
    QByteArray sql;
};

/** A SELECT whose names have been looked up, ready to be written in the forms that a recordset needs. */
struct SelectPlan
{
    QList<Output> outputs;
    Scope scope;
    QByteArray from;
    QByteArray where;
    QByteArray groupBy;
    QByteArray having;
    QByteArray orderBy;
    bool distinct = false;
    bool grouped = false;
    /** DISTINCTROW over more than one source: rows of the first table once each. */
    bool collapsed = false;
    /**
     * Every row of the one table is looked at: faster in the table's own order, with the rows found sorted
     * afterwards, than in the order of an index.
     */
    bool scansTable = false;
    qint64 top = -1;
    /** The table whose row a row of this stands for, and its key's expression; empty for none. */
    QString baseTable;
    QByteArray key;
    /** Stored fields, in lower case, that decide which rows there are and in which order. */
    QStringList fieldsUsed;

    [[nodiscard]] bool isKeyed() const { return !key.isEmpty(); }
    /** True when there is exactly one row for every row of the base table. */
    [[nodiscard]] bool showsWholeTable() const;
    /** True when a row of the base table alone gives that output. */
    [[nodiscard]] bool isBaseField(const Output &output) const;
    /** What its rows are read by: the key, if there is one, and the outputs of those places. */
    [[nodiscard]] QByteArray readColumns(const QList<int> &held) const;
    /** Places of the outputs that no row of the base table gives. */
    [[nodiscard]] QList<int> computedOutputs() const;

    /** "SELECT columns FROM ..." with everything else behind it; `extraWhere` joins the restrictions. */
    [[nodiscard]] QByteArray sql(const QByteArray &columns, const QByteArray &extraWhere = {},
                                 bool ordered = true, bool restricted = true) const;
    /** All outputs under their names, as a source's columns; the key too where there is one. */
    [[nodiscard]] QByteArray asSource() const;
};

/** Looks up a SELECT's names. @throws 3061, 3075, 3078, 3085, 3360. */
[[nodiscard]] SelectPlan planSelect(const ast::Select &select, const NameCatalogue &names);

/** A condition over a plan's outputs and sources. @throws 3061, 3077. */
struct Criteria
{
    QByteArray sql;
    QStringList fieldsUsed;
};
[[nodiscard]] Criteria planCriteria(const QString &criteria, const SelectPlan &plan,
                                    const NameCatalogue &names);

/** An action statement, or the stored action query of that name, as one statement of SQLite's. */
[[nodiscard]] QByteArray planAction(const QString &sql, const NameCatalogue &names);

} // namespace dao
