// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace bench {

/** What one run took, in milliseconds. */
struct Cost
{
    double wall = 0;
    double processor = 0;
};

/** A frame at sixty a second, in milliseconds. */
inline constexpr double Frame = 1000.0 / 60;

enum class Clock { Wall, Processor };

/** One of the two things that are compared, run several times in turn. */
using Run = std::function<void()>;

/** A measure against its baseline: the medians of both, their ratio, and the most that it may be. */
class Suite
{
public:
    /** Only measures whose name contains one of @p wanted run; all of them without any. */
    explicit Suite(QStringList wanted) : m_wanted(std::move(wanted)) {}

    [[nodiscard]] bool wants(const QString &name) const;
    /** Runs both in turn, at least five times, and prints the line. */
    void compare(const QString &name, double goal, const Run &ours, const Run &baseline,
                 Clock clock = Clock::Wall, int runs = 5);
    /** A line for figures measured elsewhere, in the unit given. */
    void report(const QString &name, double goal, double ours, double baseline, const char *unit);

    /** 1 after a measure that missed its goal. */
    [[nodiscard]] int exitCode() const { return m_missed ? 1 : 0; }

private:
    QStringList m_wanted;
    bool m_missed = false;
    bool m_headed = false;
};

[[nodiscard]] Cost costOf(const Run &run);
[[nodiscard]] double median(QList<double> values);

/** Where the data of the benchmarks is kept between runs; made when missing. */
[[nodiscard]] QString dataFolder();

} // namespace bench
