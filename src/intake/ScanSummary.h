// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

class ScanReport;

/** What a scan came to. */
struct ScanCounts
{
    int added = 0;
    /** In the catalogue before. */
    int known = 0;
    int seconds = 0;
};

/** The closing message; @p passedOver stands behind the counts unless it is empty. */
[[nodiscard]] QString doneText(const ScanCounts &counts, const QString &passedOver);

/** One sentence on all that is not in the catalogue; empty when nothing was passed over. */
[[nodiscard]] QString passedOverSentence(const ScanReport &report);

/** What a full disk did to a scan. */
struct DiskFullOutcome
{
    QString catalogueFile;
    /** Songs that were read and are not in the catalogue. */
    int lost = 0;
    /** Where they are listed; empty when that could not be written either. */
    QString reportPath;
    bool lacksIndexes = false;
};

[[nodiscard]] QString diskFullText(const DiskFullOutcome &outcome);

} // namespace quaverly
