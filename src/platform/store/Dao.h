// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/DaoError.h"
#include "platform/store/Schema.h"

#include <QByteArrayView>
#include <QList>
#include <QMetaObject>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <compare>
#include <functional>
#include <memory>
#include <optional>
#include <span>

/**
 * The catalogue store: DAO's surface over a SQLite file. Statements are written in the catalogue's
 * own SQL dialect. Everything belongs to the thread that opened it; every operation may throw
 * DaoError.
 */
namespace dao {

class Database;
class DatabaseImpl;
struct FileTagsChange;
class ReadProbe;
class ReadRows;
class RecordsetImpl;
class Workspace;

enum class RecordsetType { Table, Dynaset, Snapshot };

/** A field of a recordset. `size` is the most characters that a text holds, 0 for no limit. */
struct Field
{
    QString name;
    FieldType type = FieldType::Text;
    int size = 0;
    /** The column it stands for in the row that Edit changes; empty for a computed one. */
    QString sourceField;
};

/** Names a row for the life of the catalogue: its key. */
struct Bookmark
{
    qint64 key = 0;
    auto operator<=>(const Bookmark &) const = default;
};

/**
 * Takes a row's place and its fields in the order asked for, as they are stored: UTF-8, a date as
 * "yyyy-MM-dd" with " HH:mm:ss" behind it unless that is midnight, empty for a Null. The texts go with the
 * call.
 */
using RowVisitor = std::function<void(qint64 position, std::span<const QByteArrayView> texts)>;

/**
 * Rows of a table or a statement, with a current one.
 *
 * A dynaset's membership and order are those of its opening; it shows the rows' present values. A
 * snapshot also keeps the values. Rows deleted through it drop out at once, rows deleted elsewhere
 * at Requery: until then reading one throws 3167. A table recordset sees the table as it is.
 * Positions count from 0. Values are QString, qint64, double, QDateTime (UTC spec: no zone is meant)
 * or a Null.
 */
class Recordset final
{
public:
    explicit Recordset(std::unique_ptr<RecordsetImpl> impl);
    ~Recordset();
    Recordset(const Recordset &) = delete;
    Recordset &operator=(const Recordset &) = delete;

    [[nodiscard]] RecordsetType Type() const;
    [[nodiscard]] const QList<Field> &Fields() const;
    /** Place of a field in Fields(), in any case; -1 without one. */
    [[nodiscard]] int fieldIndex(const QString &name) const;

    /** Exact at once; MoveLast beforehand is harmless. */
    [[nodiscard]] qint64 RecordCount() const;
    [[nodiscard]] bool atBOF() const;
    [[nodiscard]] bool atEOF() const;
    [[nodiscard]] bool isEmpty() const { return RecordCount() == 0; }

    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();
    void Move(qint64 rows);
    /** -1 at BOF or EOF. */
    [[nodiscard]] qint64 AbsolutePosition() const;
    void setAbsolutePosition(qint64 position);

    [[nodiscard]] Bookmark bookmark() const;
    /** @throws 3021 when the row is not in the set. */
    void setBookmark(Bookmark mark);
    [[nodiscard]] Bookmark LastModified() const;
    /** Position of a row, -1 when it is not in the set. */
    [[nodiscard]] qint64 positionOf(Bookmark mark);
    [[nodiscard]] Bookmark bookmarkAt(qint64 position);

    /** The criteria are a WHERE clause without the word. A miss sets NoMatch and stays on the row. */
    void FindFirst(const QString &criteria);
    void FindLast(const QString &criteria);
    void FindNext(const QString &criteria);
    void FindPrevious(const QString &criteria);
    [[nodiscard]] bool NoMatch() const;

    /** Table recordsets: the order of moving, and what Seek compares. @throws 3015 for no such index. */
    void setIndex(const QString &name);
    [[nodiscard]] QString Index() const;
    /** @p comparison is "=", ">=", ">", "<=" or "<"; a miss sets NoMatch. */
    void Seek(const QString &comparison, const QVariantList &keys);

    /** Value in the current row, or in the buffer between Edit or AddNew and Update. */
    [[nodiscard]] QVariant value(const QString &field) const;
    [[nodiscard]] QString text(const QString &field) const;
    /** Any row's value, without moving there; the grid's road, through the row cache. */
    [[nodiscard]] QVariant valueAt(qint64 position, int field) const;
    /**
     * Shows @p visit all rows in their order, with the fields of those places only; the current row stays.
     * The fast road through many rows. The catalogue is not written to meanwhile. @throws 3167 for a row that
     * was deleted elsewhere.
     */
    void forEachRow(const QList<int> &fields, const RowVisitor &visit) const;

    void Edit();
    /** The current row stays current; LastModified names the new one after Update. */
    void AddNew();
    /** @throws 3163 when a text is longer than its field, 3265 for no such field. */
    void setValue(const QString &field, const QVariant &value);
    /** @throws 3022 for a duplicate key, 3197 when the row changed or went since Edit. */
    void Update();
    void CancelUpdate();
    [[nodiscard]] bool editing() const;
    /** MoveNext then goes to the row behind the deleted one. */
    void Delete();

    void Requery();
    void Close();

private:
    std::unique_ptr<RecordsetImpl> m_impl;
};

/** A stored query: its name, and its text exactly as it was given. */
struct QueryDef
{
    QString Name;
    QString SQL;
};

/**
 * The transactions of the open catalogues. Nested ones are savepoints. What a command leaves
 * pending is committed when control returns to the event loop and nothing waits there.
 */
class Workspace final
{
public:
    Workspace();
    ~Workspace();

    void BeginTrans();
    /** @throws 3034 without a transaction. */
    void CommitTrans();
    void Rollback();
    [[nodiscard]] int depth() const;
    /** True while changes are not on the disk yet: in a transaction, or held back by a bulk load. */
    [[nodiscard]] bool isPending() const;

    /** Commits everything pending, and what a bulk load holds back, to the disk. */
    void settle();

private:
    friend class Database;
    friend class DatabaseImpl;
    friend class Transaction;
    DatabaseImpl *m_database = nullptr;
    int m_depth = 0;
    /** Scopes of Transaction that are open. */
    int m_scopes = 0;
    QMetaObject::Connection m_settler;
};

/**
 * A transaction for the length of a scope: rolled back unless committed. Events that run meanwhile, a box
 * that waits for its answer too, leave it whole.
 */
class Transaction final
{
public:
    explicit Transaction(Workspace &workspace);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;
    void commit();

private:
    Workspace &m_workspace;
    bool m_open = true;
};

/** Called now and then with the share that is done, of @p all; false gives the work up. */
using GoesOn = std::function<bool(qint64 done, qint64 all)>;

/** An open catalogue. Recordsets must be closed before it goes. */
class Database final
{
public:
    explicit Database(std::unique_ptr<DatabaseImpl> impl);
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    [[nodiscard]] QString Name() const;
    /** False on read-only ground: reading works, every write throws 3027. */
    [[nodiscard]] bool Updatable() const;
    /** True when the disk had no room for all indexes: everything works, but slower, until a later opening.
     */
    [[nodiscard]] bool lacksIndexes() const;

    /** @p source is a table, a stored query or one SELECT. A bare table opens as Table unless told. */
    [[nodiscard]] std::unique_ptr<Recordset> OpenRecordset(const QString &source);
    [[nodiscard]] std::unique_ptr<Recordset> OpenRecordset(const QString &source, RecordsetType type);
    /** A dynaset whose rows a probe has read for the same statement a moment ago. */
    [[nodiscard]] std::unique_ptr<Recordset> OpenRecordset(const QString &source, ReadRows rows);

    /** Runs an action statement or a stored action query; all of it or nothing. */
    void Execute(const QString &sql);
    [[nodiscard]] qint64 RecordsAffected() const;

    /** @throws 3265 without that query. */
    [[nodiscard]] QueryDef QueryDefs(const QString &name) const;
    [[nodiscard]] QStringList queryNames() const;
    /** The text is kept as given and looked at when it runs. @throws 3012 when the name is taken. */
    void CreateQueryDef(const QString &name, const QString &sql);
    /** Fields of a table in their order. @throws 3078. */
    [[nodiscard]] QList<Field> TableDefs(const QString &table) const;

    [[nodiscard]] bool hasPassword() const;
    /** Keeps the program out without the password; it encrypts nothing. Empty takes it away. @throws 3031. */
    void NewPassword(const QString &oldPassword, const QString &newPassword);

    [[nodiscard]] Workspace &workspace();

    /**
     * Says in a sentence what the change is that begins with the next statement or has begun; the first
     * sentence holds. A change lasts to endChange(). What it did is kept in the journal; see History.h.
     */
    void describeChange(const QString &sentence);
    /** What comes next is another change, unless this one is held. Settles what is pending. */
    void endChange();
    /** A change that waits for the user goes on with his next command. */
    void holdChange(bool held) { m_changeHeld = held; }
    /** Tells the journal, as part of the change that is being made, that a song's file has gone elsewhere. */
    void noteFileMoved(qint64 song, const QString &from, const QString &to);
    /**
     * Keeps what a file's tags are about to become, on the disk when it returns; not for use within a
     * transaction. @returns the key of what is kept @throws 3027 in a catalogue that can't be written to
     */
    [[nodiscard]] qint64 keepFileTags(const FileTagsChange &change);
    /** Tells the journal, as part of the change that is being made, that they became it. */
    void noteFileTags(qint64 key);
    /** They did not. */
    void dropFileTags(qint64 key);
    /** What was kept when the program was ended before it was noted or dropped. */
    [[nodiscard]] std::vector<FileTagsChange> unfinishedFileTags();
    /** Runs an action of whose rows the journal is to keep nothing: a copy of the catalogue stands in. */
    void ExecuteUnlogged(const QString &sql, const QString &sentence);

    /** Counts rows from another thread; see ReadProbe.h. @throws 3024 when the file was moved away. */
    [[nodiscard]] std::unique_ptr<ReadProbe> probe();

    /**
     * Writes what is committed to a new file, which bears its name only once it is whole and on the disk.
     * Not for use within a transaction. False when it was given up; nothing is left then.
     * @throws 58 when the file is there, 61 on a full disk, 70, 75, 3260; nothing is left either.
     */
    [[nodiscard]] bool backupTo(const QString &path, const GoesOn &progress = {});

    /**
     * Checkpoints to the single file and closes; the destructor does so too, silently. It is closed whatever
     * is thrown. @throws 61 and others when what was committed last stays in a second file beside it, where
     * the next opening finds it.
     */
    void Close();

    [[nodiscard]] DatabaseImpl &impl() { return *m_impl; }

private:
    std::unique_ptr<DatabaseImpl> m_impl;
    qint64 m_recordsAffected = 0;
    bool m_changeHeld = false;
};

/**
 * Makes many additions fast, for the length of a scope: commits are gathered (half a second or a
 * thousand rows at most), and the indexes of an empty table are built afterwards. Killed in between,
 * the catalogue opens with all that was committed and builds what is missing.
 */
class BulkLoad final
{
public:
    BulkLoad(Database &database, const QString &table);
    ~BulkLoad();
    BulkLoad(const BulkLoad &) = delete;
    BulkLoad &operator=(const BulkLoad &) = delete;

    /** Puts everything on the disk and builds one missing index; false when none is left to build. */
    bool finishStep();

private:
    Database &m_database;
};

/** What a repair found of one table. */
struct RepairedTable
{
    QString table;
    /** Rows before the damage; nothing when that can't be told any more. */
    std::optional<qint64> rowsBefore;
    /** There were never more than so many; nothing when that can't be told either. */
    std::optional<qint64> rowsAtMost;
    qint64 saved = 0;
    /** Saved rows of which a value was lost or ends early. */
    qint64 cutShort = 0;
    /** Rows that were found and can't be what was stored. */
    qint64 passedOver = 0;
};

struct RepairReport
{
    QList<RepairedTable> tables;
    /** Where the damaged file is now. */
    QString damagedFile;
};

/** Opens, repairs and compacts catalogues of one schema. */
class DBEngine final
{
public:
    explicit DBEngine(Schema schema);
    ~DBEngine();

    /**
     * Never creates a file. @p connect is empty or ";pwd=" and the password.
     * @throws 3024 no such file, 3031 password, 3049 damaged, 3343 not ours or newer, 70, 75, 3260.
     */
    [[nodiscard]] std::unique_ptr<Database> OpenDatabase(const QString &path, const QString &connect = {});

    /** The version of the schema that a catalogue has before it is opened. @throws as OpenDatabase. */
    [[nodiscard]] int versionOf(const QString &path) const;

    /**
     * Saves table by table what can be read into a new file under the same name; the damaged one is
     * kept beside it with a dated name. A file that isn't ours is left alone. @throws as OpenDatabase.
     */
    RepairReport RepairDatabase(const QString &path);

    /** Writes a compact copy. @throws 58 when the target is there, 61 on a full disk; no half file stays. */
    void CompactDatabase(const QString &source, const QString &target);

    /** Writes an empty catalogue at the newest schema version. @throws 58 when the file is there. */
    void CreateEmpty(const QString &path);

    /**
     * Reads a catalogue that nobody writes to from end to end, and changes nothing. False when @p progress
     * gave it up; its numbers mean nothing. @throws 3049 when it is damaged, and as OpenDatabase.
     */
    [[nodiscard]] bool verify(const QString &path, const GoesOn &progress = {}) const;
    /** Rows of a table of such a catalogue. @throws 3078 without that table, and as OpenDatabase. */
    [[nodiscard]] qint64 countRows(const QString &path, const QString &table) const;

    [[nodiscard]] Workspace &Workspaces(int index);

private:
    Schema m_schema;
    std::unique_ptr<Workspace> m_workspace;
};

} // namespace dao
