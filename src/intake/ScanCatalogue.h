// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/FileFacts.h"
#include "intake/ScanReport.h"
#include "platform/store/Dao.h"

#include <QHash>
#include <QStringList>

#include <memory>
#include <optional>

namespace quaverly {

struct Catalogue;
class NewSong;

/**
 * The catalogue as a scan works with it: which songs are there, and the new ones on their way to the disk.
 * What fails is noted in the report, and the next statement runs.
 */
class ScanCatalogue final
{
public:
    /** Both outlive this object. */
    ScanCatalogue(Catalogue &catalogue, ScanReport &report);
    ~ScanCatalogue();
    ScanCatalogue(const ScanCatalogue &) = delete;
    ScanCatalogue &operator=(const ScanCatalogue &) = delete;

    void open();
    void close();
    /** What the history says of the scan. */
    void describe(const QString &sentence);

    /** @p folder is in its clean form; rows that bear it in another are found too. */
    [[nodiscard]] bool holds(const QString &folder, const QString &fileName);

    /** From here to endLoad() many songs are added. */
    void startLoad();
    void beginFolder();
    /** PathName and FileName of the song make up @p fullPath; @p stamp is that of its file before the
     * reading.
     */
    void add(const NewSong &song, const QString &fullPath, const std::optional<shell::FileStamp> &stamp);
    void endFolder();
    /** Puts everything on the disk and builds one missing index; false when nothing is left to do. */
    [[nodiscard]] bool finishStep();
    void endLoad();

    /** Songs added, without those that are known to be lost. */
    [[nodiscard]] int added() const { return m_added; }
    /** Songs that a commit which failed took out again. */
    [[nodiscard]] int lost() const { return m_lost; }
    /** There is no room for more. */
    [[nodiscard]] bool isDiskFull() const { return m_diskFull; }
    [[nodiscard]] bool lacksIndexes() const;

private:
    template <typename Statement> bool attempt(Statement &&statement);
    void rememberOtherForms();
    [[nodiscard]] bool seek(const QString &folder, const QString &fileName);
    void countLost();
    [[nodiscard]] dao::Database &database();
    [[nodiscard]] dao::Recordset &contacts();

    Catalogue &m_catalogue;
    ScanReport &m_report;
    std::unique_ptr<dao::Recordset> m_contacts;
    std::optional<FileFacts> m_facts;
    std::optional<dao::BulkLoad> m_load;
    /** By a folder's clean form, how the catalogue writes it otherwise. */
    QHash<QString, QStringList> m_otherForms;
    /** Added since the store last put its changes on the disk. */
    QStringList m_underWay;
    QString m_failure;
    bool m_inFolder = false;
    bool m_diskFull = false;
    int m_added = 0;
    int m_lost = 0;
};

} // namespace quaverly
