// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRandomGenerator>

#include <optional>
#include <vector>

namespace media {

/**
 * In which order the items of a play list come: as they stand, or each once in random order. An open-ended
 * list is one file and what was put behind it: it comes as it stands and never wraps, and a loop repeats its
 * current item.
 */
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

    /** Where the item at @p index stands when the one at @p from has gone to @p to. */
    [[nodiscard]] static qsizetype moved(qsizetype index, qsizetype from, qsizetype to);

    PlayOrder() : m_random(QRandomGenerator::securelySeeded()) {}

    /** A list of @p count items; the current one is the first of the order. */
    void reset(qsizetype count, bool openEnded = false);
    /** An open-ended list got longer or shorter behind its current item, which stays. */
    void setCount(qsizetype count) { m_count = count; }
    /** A new item at @p index, which plays behind the current one when it is in random order. */
    void insert(qsizetype index);
    /** An item other than the current one is gone. */
    void remove(qsizetype index);
    /** An item stands at another place; in random order it comes when it would have come. */
    void move(qsizetype from, qsizetype to);
    void setLoop(bool on) { m_loop = on; }
    /** The current item stays; all others are still to come. */
    void setShuffle(bool on);

    [[nodiscard]] bool loop() const { return m_loop; }
    [[nodiscard]] bool shuffle() const { return m_shuffle; }
    [[nodiscard]] qsizetype count() const { return m_count; }
    [[nodiscard]] bool openEnded() const { return m_openEnded; }
    /** Another item can be gone to. */
    [[nodiscard]] bool hasNext() const { return m_openEnded ? !isLast() : m_count > 1; }
    [[nodiscard]] bool hasPrevious() const { return m_openEnded ? m_place > 0 : m_count > 1; }
    /** -1 while the list is empty. */
    [[nodiscard]] qsizetype current() const;

    /** What plays by itself when the current item ends; nothing at the end without loop. */
    [[nodiscard]] std::optional<qsizetype> following();
    /** To following(), which must be there. */
    Step goOn();
    /** Both may be called on a list with items only. */
    Step next();
    Step previous();
    void select(qsizetype index);
    /** Back to the first item; a shuffled list is shuffled anew. */
    void rewind();

private:
    [[nodiscard]] std::vector<qsizetype> shuffled(qsizetype notFirst);
    [[nodiscard]] bool isLast() const { return m_place + 1 >= m_count; }
    [[nodiscard]] bool isShuffled() const { return m_shuffle && !m_openEnded; }

    QRandomGenerator m_random;
    qsizetype m_count = 0;
    // Where the current item stands in the order, which is m_order when shuffled.
    qsizetype m_place = 0;
    std::vector<qsizetype> m_order;
    // The round after this one, once somebody asked what follows its end.
    std::vector<qsizetype> m_nextRound;
    bool m_loop = false;
    bool m_shuffle = false;
    bool m_openEnded = false;
};

} // namespace media
