// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRandomGenerator>
#include <QString>

namespace quaverly::test {

/** One and the same in the catalogue's dialect and in SQLite's own words. */
struct Twin
{
    QString dialect;
    QString sqlite;
};

/**
 * Makes statements over the tables t (id, a, b, n, x, d) and u (tid, s, k): texts a, b and s, whole numbers n
 * and k, halves and quarters x, dates d, any of them Null. What is meant is written down twice, and nothing
 * is translated.
 */
class RandomStatements final
{
public:
    explicit RandomStatements(quint32 seed) : m_random(seed) {}

    /** An INSERT of one row. */
    [[nodiscard]] Twin row(const QString &table);
    /** Its rows are to be compared in their order when @p ordered comes back true. */
    [[nodiscard]] Twin selection(bool &ordered);
    [[nodiscard]] Twin action();
    /** What may stand behind WHERE over t. */
    [[nodiscard]] Twin condition() { return condition(3); }
    [[nodiscard]] Twin text() { return text(2); }
    [[nodiscard]] Twin literal();

private:
    [[nodiscard]] Twin condition(int depth);
    [[nodiscard]] Twin comparison(int depth);
    [[nodiscard]] Twin number(int depth);
    [[nodiscard]] Twin text(int depth);
    [[nodiscard]] Twin pattern();
    [[nodiscard]] Twin date();
    [[nodiscard]] Twin orderedSelection();
    [[nodiscard]] Twin groupedSelection();
    [[nodiscard]] Twin joinedSelection();
    [[nodiscard]] int below(int limit) { return m_random.bounded(limit); }
    [[nodiscard]] QString oneOf(std::initializer_list<const char *> words);

    QRandomGenerator m_random;
};

} // namespace quaverly::test
