// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/ChangeLog.h"
#include "platform/store/ChangeStamps.h"
#include "platform/store/CloneSource.h"
#include "platform/store/Dao.h"
#include "platform/store/GatheredCommits.h"
#include "platform/store/KeyWalk.h"
#include "platform/store/LoadTuning.h"
#include "platform/store/Scope.h"
#include "platform/store/Sqlite.h"

#include <memory>
#include <optional>
#include <vector>

namespace dao {

class ProbeConnection;

/** Tells apart what a file is before SQLite touches it. */
struct CatalogueFile
{
    QString path;
    bool writable = false;
    int version = 0;

    /** @throws 3024, 3049, 3343, 70, 75. */
    static CatalogueFile examine(const QString &path, const Schema &schema);
};

/** The connection of an open catalogue, and what is known of its names and changes. */
class DatabaseImpl final : public NameCatalogue
{
public:
    DatabaseImpl(const QString &path, const Schema &schema, Workspace &workspace, const QString &password);
    ~DatabaseImpl() override;
    DatabaseImpl(const DatabaseImpl &) = delete;
    DatabaseImpl &operator=(const DatabaseImpl &) = delete;

    [[nodiscard]] const TableInfo *table(const QString &name) const override { return m_names.table(name); }
    [[nodiscard]] std::optional<QString> query(const QString &name) const override
    {
        return m_names.query(name);
    }
    [[nodiscard]] QStringList queryNames() const { return m_names.queries.keys(); }
    void addQuery(const QString &name, const QString &sql);

    [[nodiscard]] Connection &connection() { return *m_connection; }
    /** A second connection that sees one moment for as long as it lives; null while changes are pending. */
    [[nodiscard]] std::unique_ptr<Connection> frozenReader();
    /** A whole copy without a byte written, where the file system can; nothing is left where it can't. */
    [[nodiscard]] bool cloneTo(const QString &target);
    /** For counting on another thread; ends with this object. @throws 3024 */
    [[nodiscard]] std::shared_ptr<ProbeConnection> newProbe();
    [[nodiscard]] const QString &path() const { return m_file.path; }
    [[nodiscard]] bool writable() const { return m_file.writable; }
    [[nodiscard]] Workspace &workspace() { return m_workspace; }
    [[nodiscard]] const Schema &schema() const { return m_schema; }

    /** The walks of recordsets that are not read to their end; every change ends them first. */
    [[nodiscard]] OpenWalks &walks() { return m_walks; }

    /** Null in a catalogue that can't be written to. */
    [[nodiscard]] ChangeLog *changeLog() { return m_changeLog.get(); }

    /** Runs one changing statement: in the pending transaction, or in one of its own. @throws 3027, 3024. */
    void change(const std::function<void()> &run);

    /** To be told of every change that is not made through this object. */
    [[nodiscard]] ChangeStamps &stamps() { return m_stamps; }

    void begin(int depth);
    void commit(int depth);
    void rollback(int depth);
    void commitPhysically();

    void startBulk(const QString &table);
    bool bulkStep();
    void endBulk();
    [[nodiscard]] bool lacksIndexes() { return m_tuning->lacksIndexes(); }

    /** Puts everything on the disk and leaves nothing beside the file. @throws DaoError */
    void putInOneFile();

    [[nodiscard]] bool hasPassword();
    void setPassword(const QString &oldPassword, const QString &newPassword);

    /** Lets statements name a table that came later than the opening. */
    void learnTable(const QString &name);

private:
    /** The statements of a transaction within others; there is one for every folder of a scan. */
    struct Level
    {
        Statement begin;
        Statement release;
    };
    [[nodiscard]] Level &levelAt(int depth);
    void prepareConnection();
    void migrate();
    void checkPassword(const QString &password);
    void refreshCollation();
    void loadNames();
    void assertPresent() const;
    void assertWritable() const;
    void commitWhenDue();
    void noteChange();

    const Schema &m_schema;
    Workspace &m_workspace;
    CatalogueFile m_file;
    CloneSource m_cloneSource;
    std::unique_ptr<Connection> m_connection;
    /** Made as soon as the connection is there. */
    std::optional<LoadTuning> m_tuning;
    std::vector<Level> m_levels;
    OpenWalks m_walks;
    std::unique_ptr<ChangeLog> m_changeLog;
    quint64 m_inode = 0;
    LoadedNames m_names;
    std::vector<std::weak_ptr<ProbeConnection>> m_probes;
    ChangeStamps m_stamps;
    /** Whether a bulk load runs, and what it has pending. */
    GatheredCommits m_bulk;
};

/** Where SQLite finds a file that nobody writes to: it is read as it stands, and nothing beside it. */
[[nodiscard]] QString unchangingLocation(const QString &path);

/** Meta rows of the store itself. */
[[nodiscard]] QString metaValue(Connection &connection, const QString &name);
void setMetaValue(Connection &connection, const QString &name, const QString &value);

/** False when the indexes were made by another version of the collation. */
[[nodiscard]] bool isInPresentOrder(Connection &connection);

/** Makes the store's own tables and the schema's, in an empty file. */
void createTables(Connection &connection, const Schema &schema, bool withIndexes);

} // namespace dao
