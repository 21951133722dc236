// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/ReportRun.h"

namespace quaverly {

struct ListTexts;

enum class SongReportKind { Artist, Song, Path };

/** What a report shows of a song. */
struct ReportSong
{
    QString Artist{};
    QString SongName{};
    QString PathName{};
    QString FileName{};
    QString Duration{};
};

/** The displayed songs in the report's own order; @p recordSource is what the list shows. */
[[nodiscard]] QString songReportSql(SongReportKind kind, const QString &recordSource, const ListTexts &texts);

/** Composes a report on songs, one after another in the report's order. */
class SongReport final
{
public:
    /** A page ends after @p linesPerPage rows; 0 and fractions never end one. */
    SongReport(SongReportKind kind, double linesPerPage, ReportSink &sink);

    void add(const ReportSong &song);

private:
    void begin(const ReportSong &first);
    void writeArtist(const QString &artist);
    void writePageBreak();
    [[nodiscard]] QString rowOf(const ReportSong &song) const;

    SongReportKind m_kind;
    double m_linesPerPage;
    ReportSink &m_sink;
    /** As the last write left it: what is written next looks so unless told. */
    RunFormat m_format;
    QString m_previousArtist;
    int m_lines = 0;
    bool m_begun = false;
};

} // namespace quaverly
