// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace dao {

enum class FieldType { Long, Double, Date, Text, Memo };

/** A table whose changes are kept, so that they can be taken back. */
struct LoggedTable
{
    QString name;
    /** Columns whose changes are no user's work. */
    QStringList passedOver;
    /** Over the columns of "row.", in plain SQLite; empty for all rows. */
    QString condition;
};

/**
 * What makes a SQLite file one of ours. The scripts are plain SQLite, in the order of versions:
 * number n of `migrations` takes a file from version n-1 to n. Declared column types decide the
 * field types: INTEGER, DOUBLE, "DATETIME TEXT", "TEXT(n)" and "MEMO TEXT"; texts carry COLLATE DAO.
 */
struct Schema
{
    qint32 applicationId = 0;
    QList<QString> migrations;
    /** CREATE INDEX IF NOT EXISTS statements, one each, `table.name`d; made anew when missing. */
    QList<QString> indexes;
    /** The journal knows a table by its place here and a column by its place in the file: both only grow. */
    QList<LoggedTable> logged;

    [[nodiscard]] int version() const { return static_cast<int>(migrations.size()); }
};

} // namespace dao
