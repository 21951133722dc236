// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/PlayListReport.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int HeadingSize = 12;
constexpr int RowSize = 10;
constexpr int FileNameSize = 8;

int pageLength(PlayListReportKind kind)
{
    return kind == PlayListReportKind::Detail ? 40 : 20;
}

} // namespace

QString playListReportSql(const QString &listName)
{
    // No list's name holds a double quote.
    return u"SELECT tblPlayListHeader.*, tblPlayListDetail.* FROM tblPlayListHeader INNER JOIN "
           "tblPlayListDetail ON tblPlayListHeader.ListID = tblPlayListDetail.ListID"
           " Where ListName = \""_s +
           listName + u'"';
}

void PlayListReport::begin(const QString &listName)
{
    m_sink.write(listName + u"\r\n\r\n"_s, {.size = HeadingSize, .bold = true, .color = reportcolors::Blue});
}

void PlayListReport::add(const ReportTrack &track)
{
    RunFormat format{.size = RowSize};
    m_sink.write(u' ' + track.SongTitle + u" [by] "_s + track.ArtistName + u"\r\n"_s, format);
    if (m_kind == PlayListReportKind::DetailWithFileNames) {
        format.size = FileNameSize;
        m_sink.write(u"      File name: "_s + track.FileName + u"\r\n"_s, format);
    }
    if (++m_rows < pageLength(m_kind))
        return;
    m_rows = 0;
    // The break looks as the row before, but for its colour.
    format.color = reportcolors::White;
    m_sink.write(u"\r\n\r\n\r\n\f", format);
}

} // namespace quaverly
