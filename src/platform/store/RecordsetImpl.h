// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/DatabaseImpl.h"
#include "platform/store/RowSet.h"
#include "platform/store/SelectPlan.h"

#include <QCache>
#include <QHash>
#include <QList>

namespace dao {

/** The rows of an opened statement: keys and computed columns held, stored values fetched when looked at. */
class RecordsetRows
{
public:
    RecordsetRows(DatabaseImpl &database, SelectPlan plan, RecordsetType type);

    void load();
    /** Takes rows that were read elsewhere. */
    void adopt(RowSet rows);
    /** Gives back what an open recordset holds on to. */
    void release();
    [[nodiscard]] const QList<Field> &fields() const { return m_fields; }
    [[nodiscard]] int fieldIndex(const QString &name) const;
    [[nodiscard]] qint64 count() const;
    [[nodiscard]] const SelectPlan &plan() const { return m_plan; }
    [[nodiscard]] bool isKeyed() const { return m_plan.isKeyed(); }
    [[nodiscard]] qint64 keyAt(qint64 position) const;
    /** The first place of a key, -1 without it. */
    [[nodiscard]] qint64 positionOf(qint64 key) const;
    void appendKey(qint64 key);
    void remove(qint64 position);

    /** @throws 3167 when the row was deleted. */
    [[nodiscard]] QVariant value(qint64 position, int field) const;
    void visit(const QList<int> &fields, const RowVisitor &visitor) const;
    /** A stored field of the row of that key, in the set or not. */
    [[nodiscard]] QVariant storedValue(qint64 key, int field) const;
    /** What is stored in a field of that type, as its readers see it. */
    [[nodiscard]] static QVariant typed(const QVariant &stored, FieldType type);
    /** The key of the row that follows in the order of `columns`; nothing behind the last one. */
    [[nodiscard]] std::optional<qint64> keyBehind(qint64 key, const QStringList &columns) const;
    /** The base row's stored values in the order of its fields; nothing when it is gone. */
    [[nodiscard]] std::optional<QVariantList> freshRow(qint64 key) const;

    /** Another order for a table's rows, from the next load on. */
    void setOrder(const QByteArray &columns);
    /** The key of the first row, in the order of `columns`, that compares so; exact columns are blind to
     * nothing. */
    [[nodiscard]] QByteArray seekSql(const QStringList &columns, const QString &comparison,
                                     const QStringList &exact) const;

    /** Positions of the rows that meet the criteria: the first one alone, or all, ascending. */
    [[nodiscard]] std::vector<qint64> find(const QString &criteria, bool firstOnly) const;

private:
    [[nodiscard]] bool showsEveryRow() const;
    [[nodiscard]] Statement reading(const QList<int> &fields, bool walks) const;
    [[nodiscard]] Connection &connection() const { return m_reader ? *m_reader : m_database.connection(); }
    void chooseColumns();
    void forgetRows();
    void leaveRestForLater(Statement rows);
    /** Reads what the opening left for later. */
    void completeKeys() const;
    [[nodiscard]] const QVariantList *cachedRow(qint64 key) const;
    [[nodiscard]] std::vector<qint64> findKeyed(const QString &criteria, bool firstOnly) const;
    [[nodiscard]] std::vector<qint64> findComputed(const QString &criteria) const;

    DatabaseImpl &m_database;
    SelectPlan m_plan;
    RecordsetType m_type;
    std::unique_ptr<Connection> m_reader;
    bool m_holdAll = false;
    QList<Field> m_fields;
    QHash<QString, int> m_indexOfExact;
    QHash<QString, int> m_indexOf;
    /** Of each field: its place in the base row, or -1 - its place among the held columns. */
    QList<int> m_places;
    QStringList m_baseFields;
    QList<int> m_heldOutputs;
    mutable RowSet m_set;
    /** While not all keys have been asked for. */
    mutable std::shared_ptr<KeyWalk> m_walk;
    quint64 m_openedAt = 0;
    mutable Statement m_fetch;
    /** Some screens' worth of rows, by their keys. */
    mutable QCache<qint64, QVariantList> m_cache{1024};
    mutable qint64 m_cachedChanges = -1;
};

/** What an Edit or AddNew has written so far: values as they are stored, in the order of their coming. */
class EditBuffer
{
public:
    struct Value
    {
        int field;
        QVariant stored;
    };

    void clear() { m_values.clear(); }
    void set(int field, const QVariant &stored);
    /** Null for a field not written. */
    [[nodiscard]] const QVariant *find(int field) const;
    [[nodiscard]] auto begin() const { return m_values.begin(); }
    [[nodiscard]] auto end() const { return m_values.end(); }

private:
    std::vector<Value> m_values;
};

/** A recordset's state: where it stands and what is being edited. */
class RecordsetImpl
{
public:
    RecordsetImpl(DatabaseImpl &database, SelectPlan plan, RecordsetType type);

    enum class Place { Before, Row, Behind };

    void ensureRows();
    void loadRows();
    void adoptRows(RowSet read);
    [[nodiscard]] qint64 count();
    /** In front of the first row or behind the last one; both without rows. Walks no table. */
    [[nodiscard]] bool isAt(Place end);
    void goTo(qint64 position);
    [[nodiscard]] qint64 position();
    [[nodiscard]] qint64 currentKey();
    void assertRow();
    [[nodiscard]] QVariant value(const QString &field);
    [[nodiscard]] int requireField(const QString &name);

    void edit();
    void addNew();
    void setValue(const QString &field, const QVariant &value);
    void update();
    void cancelUpdate();
    void remove();

    void setIndex(const QString &name);
    void seek(const QString &comparison, const QVariantList &keys);
    void find(const QString &criteria, int direction, bool fromEnd);

    DatabaseImpl &database;
    RecordsetRows rows;
    RecordsetType type;
    Place place = Place::Behind;
    bool deletedCurrent = false;
    bool noMatch = false;
    bool closed = false;
    Bookmark lastModified;
    QString index;

    enum class Mode { None, Edit, Add };
    Mode mode = Mode::None;

private:
    [[nodiscard]] Statement &insertStatement();
    [[nodiscard]] Statement &updateStatement();
    /** The fields that the buffer fills. */
    const std::vector<int> &writtenFields();
    void standAtStart();
    void insertRow();
    void updateRow();
    void prepareSeek(const QString &comparison, qsizetype columns);
    [[nodiscard]] QVariant toStored(const Field &field, const QVariant &value) const;

    qint64 m_position = 0;
    /** Table recordsets stand on a key until a position is asked for. */
    std::optional<qint64> m_key;
    /** Behind a row that was sought and deleted: the next one's key, or none where that was the last. */
    std::optional<std::optional<qint64>> m_behind;
    bool m_loaded = false;
    bool m_looked = false;
    qint64 m_loadedChanges = -1;
    QVariantList m_original;
    qint64 m_editedKey = 0;
    EditBuffer m_buffer;
    /** By the fields that they fill. */
    std::map<std::vector<int>, Statement> m_inserts;
    std::map<std::vector<int>, Statement> m_updates;
    std::vector<int> m_writtenFields;
    Statement m_seek;
    QString m_seekComparison;
    qsizetype m_seekColumns = 0;
    QStringList m_indexColumns;
    QStringList m_exactColumns;
};

} // namespace dao
