// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/TextReplacement.h"
#include "songlist/SongPreview.h"

namespace quaverly {

/**
 * What changes of texts would make of each row. Texts that would outgrow their field, and songs that would
 * come to the file of another one, can't be changed.
 */
class TextPreview final : public SongPreview
{
public:
    /** @throws dao::DaoError */
    TextPreview(const Ground &ground, const QString &sentence, std::vector<TextChange> changes);

    /** Two songs may come to one file when a song stays in its place. */
    [[nodiscard]] QString objection() const override;

    /** The changes, with what was not ticked left out. */
    [[nodiscard]] std::vector<TextChange> chosen() const;

private:
    /** One row of the preview: whose change it is, and the key in that one's table. */
    struct Place
    {
        std::size_t change = 0;
        qint64 key = 0;
    };
    struct Found;
    [[nodiscard]] std::vector<Found> rowsOf(std::size_t change) const;
    void markObstructed(std::size_t change, std::vector<Found> &found) const;

    std::vector<TextChange> m_changes;
    std::vector<Place> m_places;
};

} // namespace quaverly
