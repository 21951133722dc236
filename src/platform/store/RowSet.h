// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariant>

#include <vector>

namespace dao {

class Statement;

/** A column kept in memory: equal neighbours are stored once, as they come in groups. */
class RunColumn
{
public:
    void append(const QVariant &value);
    [[nodiscard]] const QVariant &at(qint64 position) const;
    void remove(qint64 position);

private:
    struct Run
    {
        qint64 start;
        QVariant value;
    };
    std::vector<Run> m_runs;
    qint64 m_size = 0;
};

/** The keys of a recordset's rows in their order, 8 bytes a row, and the way back from a key. */
class KeySet
{
public:
    void clear();
    void reserve(qint64 count) { m_keys.reserve(static_cast<std::size_t>(count)); }
    void append(qint64 key);
    [[nodiscard]] qint64 size() const { return static_cast<qint64>(m_keys.size()); }
    [[nodiscard]] qint64 at(qint64 position) const { return m_keys[static_cast<std::size_t>(position)]; }
    /** The first place of a key, -1 without it. The first call after a change costs a walk over all. */
    [[nodiscard]] qint64 positionOf(qint64 key) const;
    void remove(qint64 position);
    void finish() { m_keys.shrink_to_fit(); }

private:
    void buildPlaces() const;

    std::vector<qint64> m_keys;
    // Places by key where keys lie close together, else positions sorted by key.
    mutable std::vector<quint32> m_places;
    mutable qint64 m_lowest = 0;
    mutable bool m_direct = false;
    mutable bool m_built = false;
};

/** What the opening of a statement reads of its rows. */
struct RowSet
{
    KeySet keys;
    /** The columns that no key leads back to. */
    std::vector<RunColumn> held;
    qint64 count = 0;

    /** A row of the columns that SelectPlan::readColumns() names. */
    void append(const Statement &row, bool keyed);
};

} // namespace dao
