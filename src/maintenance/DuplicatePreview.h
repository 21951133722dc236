// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "songlist/SongPreview.h"

namespace quaverly {

/**
 * The groups of songs with duplicates. The ticked ones are deleted; of each group one stays at least, which a
 * rule chooses at first.
 */
class DuplicatePreview final : public SongPreview
{
public:
    /** @p groups is the stored query of all these songs. @throws dao::DaoError */
    DuplicatePreview(const Ground &ground, const QString &groups);

    [[nodiscard]] ChangedRowTexts row(int row) const override;
    [[nodiscard]] QStringList headings() const override;
    [[nodiscard]] QStringList rules() const override;
    void follow(int rule) override;
    [[nodiscard]] QString objection() const override;

private:
    /** What speaks for one song of a group. */
    struct Member
    {
        qint64 key = 0;
        /** The key of the song that stays unless told. */
        qint64 group = 0;
        double bitRate = 0;
        bool isCopy = false;
        bool isRated = false;
        qint64 playLists = 0;
    };
    void readMembers(const QString &groups);
    void countPlayLists();
    /** The first row of each group, and the end. */
    [[nodiscard]] std::vector<int> groupStarts() const;
    [[nodiscard]] static bool isBetter(const Member &one, const Member &other, int rule);
    [[nodiscard]] const Member &member(int row) const { return m_members[static_cast<std::size_t>(row)]; }

    std::vector<Member> m_members;
};

} // namespace quaverly
