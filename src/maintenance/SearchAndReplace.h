// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/MaintenanceParts.h"
#include "maintenance/TextReplacement.h"

#include <optional>

namespace quaverly {

/** What the user typed: the two texts, and the field as statements write it. */
struct ReplaceRequest
{
    QString original;
    QString replacement;
    /** Empty when none is indicated. */
    QString field;
};

/**
 * Changes one field in every record of the catalogue, whatever the list shows: a part of its text, all of it
 * where the replacement is the word NULL, or the records without any where the original is.
 */
class SearchAndReplace final
{
public:
    explicit SearchAndReplace(const MaintenanceParts &parts) : m_parts(parts) {}

    /**
     * Checks, asks, changes and tells. True when the update was made; a replacement of NULL is the empty
     * text in the request from there on. @throws dao::DaoError; nothing is changed then.
     */
    bool run(ReplaceRequest &request);

private:
    [[nodiscard]] bool isComplete(const ReplaceRequest &request);
    /** What is not ticked in a preview is left out of the change; @p records is then what is. */
    [[nodiscard]] bool isConfirmed(const ReplaceRequest &request, TextChange &change, qint64 &records);
    [[nodiscard]] dao::Database &database() const;

    MaintenanceParts m_parts;
};

/** A text without the double quotes that its statements could not hold, and without NULs. */
[[nodiscard]] QString withoutDoubleQuotes(QString text);

} // namespace quaverly
