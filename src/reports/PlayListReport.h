// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "lists/PlayListReportKind.h"
#include "reports/ReportRun.h"

namespace quaverly {

struct ReportTrack
{
    QString SongTitle{};
    QString ArtistName{};
    QString FileName{};
};

/** Header and tracks of the list of that name, in no order of its own. */
[[nodiscard]] QString playListReportSql(const QString &listName);

/** Composes a report on one play list. The length of a page is fixed by its kind. */
class PlayListReport final
{
public:
    PlayListReport(PlayListReportKind kind, ReportSink &sink) : m_kind(kind), m_sink(sink) {}

    void begin(const QString &listName);
    void add(const ReportTrack &track);

private:
    PlayListReportKind m_kind;
    ReportSink &m_sink;
    int m_rows = 0;
};

} // namespace quaverly
