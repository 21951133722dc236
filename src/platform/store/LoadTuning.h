// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Schema.h"
#include "platform/store/Sqlite.h"

namespace dao {

struct TableInfo;

/**
 * What makes the load of many rows fast: commits that a failing power supply may take back, and indexes that
 * are built when all rows are there. Every call runs outside a transaction.
 */
class LoadTuning final
{
public:
    /** Both outlive this object. */
    LoadTuning(Connection &connection, const Schema &schema) : m_connection(connection), m_schema(schema) {}

    /** Into @p table, which may be null; its indexes go if it is empty. */
    void prepare(const TableInfo *table);
    /** Commits are as durable as ever again. Never throws. */
    void makeDurable();

    [[nodiscard]] bool lacksIndexes() { return !nextMissingIndex().isEmpty(); }
    /** One of those that are lacking. @throws DaoError, DiskFull among them. */
    void buildNextIndex();
    /** As far as the disk has room for them. */
    void buildMissingIndexes();

private:
    [[nodiscard]] QByteArray nextMissingIndex();

    Connection &m_connection;
    const Schema &m_schema;
};

/** The name within an index statement of a schema. */
[[nodiscard]] QString indexNameOf(const QString &statement);

} // namespace dao
