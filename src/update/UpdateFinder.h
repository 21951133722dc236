// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/FileFacts.h"
#include "update/UpdateList.h"
#include "update/UpdateParts.h"

#include <optional>

namespace quaverly {

struct KnownTags;

/**
 * Finds what has changed on the disk since the catalogue's files were read. Walks and reads on a thread of
 * its own, and lets events run meanwhile. No song is written to; what is known of files that hold what the
 * catalogue says is brought up to date.
 */
class UpdateFinder final
{
public:
    UpdateFinder(const UpdateParts &parts, UpdateGoesOn goesOn);

    /** @p folders end in the separator. Nothing when it was given up. @throws dao::DaoError */
    [[nodiscard]] std::optional<UpdateList> find(const QStringList &folders);

private:
    [[nodiscard]] std::optional<DiskDifference> lookAtDisk(const QStringList &folders);
    void askAboutAway(DiskDifference &difference);
    [[nodiscard]] bool readChanged(const std::vector<FilePair> &changed);
    [[nodiscard]] bool followMoved(DiskDifference &difference);
    void takeChanged(const KnownFile &known, SongOnDisk &read);
    void listMoved(const KnownFile &known, const DiskFile &now, const QString &remark, bool isTicked);
    void listRest(const DiskDifference &difference);
    [[nodiscard]] std::optional<KnownTags> knownTags(qint64 recordId);
    [[nodiscard]] UpdateRow rowOf(UpdateKind kind, const KnownFile &known);
    void keepFacts();

    const UpdateParts &m_parts;
    dao::Database &m_database;
    UpdateGoesOn m_goesOn;
    FileFacts m_facts;
    std::unique_ptr<dao::Recordset> m_songs;
    UpdateList m_list;
    /** Of songs that say what their files hold. */
    std::vector<FileFact> m_settled;
};

} // namespace quaverly
