// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Schema.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <vector>

namespace dao {

enum class ValueType { Unknown, Text, Number, Date, Boolean };

[[nodiscard]] ValueType valueType(FieldType type);

/** A column that a name can mean. */
struct Column
{
    QString name;
    FieldType type = FieldType::Text;
    int size = 0;
    /** The stored field behind it, when it is one. */
    QString table;
    QString field;
};

struct TableInfo
{
    QString name;
    QList<Column> columns;
    /** The column that is the row's key: an auto-number, or SQLite's own. */
    QString keyColumn;
};

/** Where tables and stored queries are looked up, in any case. */
class NameCatalogue
{
public:
    virtual ~NameCatalogue() = default;
    [[nodiscard]] virtual const TableInfo *table(const QString &name) const = 0;
    [[nodiscard]] virtual std::optional<QString> query(const QString &name) const = 0;
};

/** The names of an open catalogue, as they were when they were loaded. */
class LoadedNames final : public NameCatalogue
{
public:
    [[nodiscard]] const TableInfo *table(const QString &name) const override;
    [[nodiscard]] std::optional<QString> query(const QString &name) const override;

    /** By name in lower case. */
    std::map<QString, TableInfo> tables;
    /** Stored queries' texts by name. */
    QMap<QString, QString> queries;
};

/** One source of a FROM clause. */
struct Source
{
    /** As names are qualified with it. */
    QString alias;
    /** As it stands in SQLite's FROM. */
    QByteArray sql;
    QList<Column> columns;
    /** The table whose rows are its rows, and the expression of their key; empty for a computed one. */
    QString baseTable;
    QByteArray key;
    /** Order of a stored query, by column names, for a statement that has none of its own. */
    QList<std::pair<QString, bool>> order;

    [[nodiscard]] const Column *column(const QString &name) const;
};

/** What a name was found to mean. */
struct Resolved
{
    QByteArray sql;
    ValueType type = ValueType::Unknown;
    /** Null for a computed output. */
    const Column *column = nullptr;
};

/** The names that an expression can use: the sources of its statement, then those around it. */
struct Scope
{
    std::vector<Source> sources;
    const Scope *outer = nullptr;

    /**
     * A bare name means the source joined last that has it. A qualifier that is no source here, but
     * a table all the same, is passed over: a stored query stands for its tables.
     * @return nothing when no source has the name.
     */
    [[nodiscard]] std::optional<Resolved> resolve(const QString &qualifier, const QString &name,
                                                  const NameCatalogue &names) const;
};

} // namespace dao
