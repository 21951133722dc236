// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "update/UpdateParts.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace dao {
class Database;
}

namespace quaverly {

struct DiskDifference;
struct KnownFile;

/** What sets something right that a check found. */
enum class CheckRepair { None, UpdateFromDisk, RemoveTracks };

/** One thing that was looked for. */
struct CheckFinding
{
    QString what;
    /** What the user may do about it. */
    QString advice;
    CheckRepair repair = CheckRepair::None;
    /** The songs concerned, in the order of their keys. */
    std::vector<qint64> songs = {};
    /** Songs, or tracks of play lists where no songs are concerned. */
    qint64 count = 0;
};

/** Looks over a whole catalogue for what is not as it should be. Changes nothing. */
class CatalogueCheck final
{
public:
    CatalogueCheck(const UpdateParts &parts, UpdateGoesOn goesOn);

    /** All that is looked for, found or not; nothing when it was given up. @throws dao::DaoError */
    [[nodiscard]] std::optional<std::vector<CheckFinding>> run();

private:
    [[nodiscard]] bool checkFiles();
    void addFileFindings(const DiskDifference &difference, const std::vector<KnownFile> &known);
    void checkTexts();
    void checkSpellings(const QString &field, const QString &what);
    void checkSameFiles(const std::vector<KnownFile> &known);
    void checkPictures();
    void checkTracks();
    void add(CheckFinding finding);
    [[nodiscard]] std::vector<qint64> keys(const QString &condition);

    const UpdateParts &m_parts;
    dao::Database &m_database;
    UpdateGoesOn m_goesOn;
    std::vector<CheckFinding> m_findings;
};

/** How two spellings of one name read alike: no case, no accents, no signs, no "the" in front. */
[[nodiscard]] QString foldedName(const QString &name);

} // namespace quaverly
