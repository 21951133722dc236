// SPDX-License-Identifier: GPL-3.0-or-later
#include "Bench.h"

#include <QDir>
#include <QElapsedTimer>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

double processorMilliseconds()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    const auto of = [](const timeval &t) { return double(t.tv_sec) * 1e3 + double(t.tv_usec) / 1e3; };
    return of(usage.ru_utime) + of(usage.ru_stime);
}

} // namespace

Cost costOf(const Run &run)
{
    QElapsedTimer timer;
    const double before = processorMilliseconds();
    timer.start();
    run();
    return {double(timer.nsecsElapsed()) / 1e6, processorMilliseconds() - before};
}

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0 : values[values.size() / 2];
}

QString dataFolder()
{
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    const QString folder = base + u"/quaverly-bench/"_s;
    QDir().mkpath(folder);
    return folder;
}

bool Suite::wants(const QString &name) const
{
    return m_wanted.isEmpty() || std::any_of(m_wanted.begin(), m_wanted.end(),
                                             [&](const QString &part) { return name.contains(part); });
}

void Suite::compare(const QString &name, double goal, const Run &ours, const Run &baseline, Clock clock,
                    int runs)
{
    if (!wants(name))
        return;
    QList<double> first;
    QList<double> second;
    for (int i = 0; i < runs; ++i) {
        const Cost a = costOf(ours);
        const Cost b = costOf(baseline);
        first.append(clock == Clock::Wall ? a.wall : a.processor);
        second.append(clock == Clock::Wall ? b.wall : b.processor);
    }
    report(name, goal, median(first), median(second), "ms");
}

void Suite::report(const QString &name, double goal, double ours, double baseline, const char *unit)
{
    if (!m_headed)
        std::printf("%-38s %14s %14s %8s %6s\n", "measure", "ours", "baseline", "ratio", "goal");
    m_headed = true;
    const double ratio = baseline > 0 ? ours / baseline : 0;
    const bool met = ratio <= goal;
    m_missed = m_missed || !met;
    std::printf("%-38s %11.2f %s %11.2f %s %8.2f %6.2f %s\n", qPrintable(name), ours, unit, baseline, unit,
                ratio, goal, met ? "ok" : "MISS");
    std::fflush(stdout);
}

} // namespace bench
