// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/SongReport.h"

#include "platform/text/Blanks.h"
#include "platform/text/Text.h"
#include "songlist/ListTexts.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int HeadingSize = 12;
constexpr int RowSize = 10;
constexpr int ShownOfDuration = 5;

/** Blanks alone are no name. */
bool isNamed(const QString &artist)
{
    return isGreaterThanBlank(trimBlanks(artist));
}

QString orderOf(SongReportKind kind)
{
    switch (kind) {
    case SongReportKind::Artist:
        return u" Order By Artist, SongName "_s;
    case SongReportKind::Song:
        return u" Order By SongName, Artist "_s;
    case SongReportKind::Path:
        break;
    }
    return u" Order By PathName, FileName "_s;
}

/**
 * The mark clause, unless it was made under another list: behind a second " Where " the list doesn't obey it
 * either.
 */
QString selectionOf(const ListTexts &texts)
{
    const bool stale = texts.ListWhere.trimmed().startsWith("where"_L1, Qt::CaseInsensitive) &&
                       texts.ListSelectionClause.startsWith(" Where "_L1, Qt::CaseInsensitive);
    return stale ? QString() : texts.ListSelectionClause;
}

/** The songs of a play list are found through its tracks, each song once. */
QString sourceOf(const ListTexts &texts)
{
    const QString fields = u"Artist, SongName, PathName, FileName, Duration from qryContacts "_s;
    if (!texts.ListWhere.contains("tblPlayListDetail."_L1))
        return u"Select "_s + fields + texts.ListWhere;
    return u"Select "_s + fields + u" Where RecordID In (Select ContactRecordID from tblPlayListDetail "_s +
           texts.ListWhere + u") "_s;
}

} // namespace

QString songReportSql(SongReportKind kind, const QString &recordSource, const ListTexts &texts)
{
    // The views of duplicates in albums are not asked for: they report as any other list.
    if (recordSource == "qryDuplicateSongs"_L1 || recordSource == "qryShowDuplicatesToBeDeleted"_L1) {
        return u"Select Artist, SongName, PathName, FileName, Duration from "_s + recordSource +
               orderOf(kind);
    }
    return sourceOf(texts) + selectionOf(texts) + orderOf(kind);
}

SongReport::SongReport(SongReportKind kind, double linesPerPage, ReportSink &sink)
    : m_kind(kind), m_linesPerPage(linesPerPage), m_sink(sink)
{}

void SongReport::begin(const ReportSong &first)
{
    m_begun = true;
    if (m_kind != SongReportKind::Artist)
        return;
    m_format.size = HeadingSize;
    if (!isNamed(first.Artist)) {
        m_format.bold = true;
        m_format.color = reportcolors::Blue;
        m_sink.write(u"No Artist Name\r\n", m_format);
    }
    m_format.color = reportcolors::Black;
}

void SongReport::add(const ReportSong &song)
{
    if (!m_begun)
        begin(song);
    if (m_kind == SongReportKind::Artist)
        writeArtist(song.Artist);
    m_format = {.size = RowSize};
    m_sink.write(rowOf(song), m_format);
    if (m_linesPerPage == ++m_lines)
        writePageBreak();
}

// A new artist begins a new page, however full the last one is.
void SongReport::writeArtist(const QString &artist)
{
    const QString compared = trimBlanks(artist).toUpper();
    if (compared == m_previousArtist)
        return;
    m_previousArtist = compared;
    m_sink.write(u"\r\n", m_format);
    if (m_lines > 0)
        writePageBreak();
    m_format.size = HeadingSize;
    m_format.bold = true;
    m_format.color = reportcolors::Blue;
    m_sink.write(artist + u"\r\n"_s, m_format);
}

void SongReport::writePageBreak()
{
    m_format.color = reportcolors::White;
    m_sink.write(ReportPageBreak, m_format);
    m_lines = 0;
}

QString SongReport::rowOf(const ReportSong &song) const
{
    switch (m_kind) {
    case SongReportKind::Artist:
        // Hours are cut off.
        return u"    "_s + song.SongName + u"      "_s + song.Duration.right(ShownOfDuration) + u"\r\n"_s;
    case SongReportKind::Song:
        if (isNamed(song.Artist))
            return u' ' + song.SongName + u" [by] "_s + song.Artist + u"\r\n"_s;
        return u' ' + song.SongName + u"\r\n"_s;
    case SongReportKind::Path:
        break;
    }
    return u' ' + song.PathName + song.FileName + u"\r\n"_s;
}

} // namespace quaverly
