// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRandomGenerator>

#include <optional>
#include <vector>

namespace media {

/** In which order the items of a play list come: as they stand, or each once in random order. */
class PlayOrder final
{
public:
    /** A move to another item. */
    struct Step
    {
        qsizetype index = 0;
        /** It led from the last to the first, or back. */
        bool wraps = false;
    };

    PlayOrder() : m_random(QRandomGenerator::securelySeeded()) {}

    /** A list of @p count items; the current one is the first of the order. */
    void reset(qsizetype count);
    void setLoop(bool on) { m_loop = on; }
    /** The current item stays; all others are still to come. */
    void setShuffle(bool on);

    [[nodiscard]] bool loop() const { return m_loop; }
    [[nodiscard]] bool shuffle() const { return m_shuffle; }
    [[nodiscard]] qsizetype count() const { return m_count; }
    /** -1 while the list is empty. */
    [[nodiscard]] qsizetype current() const;

    /** What plays by itself when the current item ends; nothing at the end without loop. */
    [[nodiscard]] std::optional<qsizetype> following();
    /** Both may be called on a list with items only. */
    Step next();
    Step previous();
    void select(qsizetype index);
    /** Back to the first item; a shuffled list is shuffled anew. */
    void rewind();

private:
    [[nodiscard]] std::vector<qsizetype> shuffled(qsizetype notFirst);
    [[nodiscard]] bool isLast() const { return m_place + 1 >= m_count; }

    QRandomGenerator m_random;
    qsizetype m_count = 0;
    // Where the current item stands in the order, which is m_order when shuffled.
    qsizetype m_place = 0;
    std::vector<qsizetype> m_order;
    // The round after this one, once somebody asked what follows its end.
    std::vector<qsizetype> m_nextRound;
    bool m_loop = false;
    bool m_shuffle = false;
};

} // namespace media
