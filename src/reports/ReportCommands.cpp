// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/ReportCommands.h"

#include "catalogue/Catalogue.h"
#include "catalogue/Options.h"
#include "desktop/Guard.h"
#include "platform/text/Text.h"
#include "reports/LinesPerPage.h"
#include "reports/ReportDocument.h"
#include "reports/ReportViewer.h"
#include "songlist/DisplayedSet.h"

#include <QTextDocument>

#include <span>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Where the bar stands at the end; it stays a little short of its whole length. */
constexpr int LastBarTwips = 6375;

const auto Proceed =
    u"NOTE: If you are filtering records, displaying one Category or Artist, or otherwise limiting the "
    "records displayed, only those songs currently displayed on the Grid will be included in this "
    "report.\n\nProceed?"_s;
const auto LinesPrompt =
    u"Enter number of lines per page for all reports.  For no page breaks, enter 0.\n\nThis setting only "
    "affects saved or printed reports, not those viewed on screen.  The original setting was 54."_s;

struct SongFieldOfReport
{
    QLatin1StringView name;
    QString ReportSong::*text;
};

/** Of each song only what the report shows is read. */
QList<SongFieldOfReport> fieldsOf(SongReportKind kind)
{
    const SongFieldOfReport artist{"Artist"_L1, &ReportSong::Artist},
        song{"SongName"_L1, &ReportSong::SongName};
    switch (kind) {
    case SongReportKind::Artist:
        return {artist, song, {"Duration"_L1, &ReportSong::Duration}};
    case SongReportKind::Song:
        return {song, artist};
    case SongReportKind::Path:
        break;
    }
    return {{"PathName"_L1, &ReportSong::PathName}, {"FileName"_L1, &ReportSong::FileName}};
}

void showProgress(WorkingWindow &window, qint64 done, qint64 count)
{
    const int twips = static_cast<int>(done * LastBarTwips / count);
    if (window.bar() < FullBarTwips && window.bar() != twips)
        window.setBar(twips);
}

} // namespace

ReportCommands::ReportCommands(Desktop &desktop, DisplayedSet &displayed, Catalogue &catalogue,
                               Options &options, OptionsStore &store, ReportViewer &viewer)
    : m_desktop(desktop), m_displayed(displayed), m_catalogue(catalogue), m_options(options), m_store(store),
      m_viewer(viewer)
{}

void ReportCommands::mnuArtistRpt_Click()
{
    run(u"Artist/Song Report"_s, SongReportKind::Artist);
}

void ReportCommands::mnuSongRpt_Click()
{
    run(u"Song/Artist Report"_s, SongReportKind::Song);
}

void ReportCommands::mnuPathRpt_Click()
{
    run(u"Pathname/Filename Report"_s, SongReportKind::Path);
}

void ReportCommands::run(const QString &title, SongReportKind kind)
{
    guarded(m_desktop, title, [&] {
        if (m_displayed.Data1().hasRows())
            RunReport(kind);
    });
}

void ReportCommands::RunReport(SongReportKind kind)
{
    if (m_desktop.MessageBox(Proceed, u"Confirmation"_s, Icon::Question, Buttons::YesNo) != Answer::Yes)
        return;
    ReportDocument report;
    {
        const Hourglass hourglass(m_desktop);
        compose(kind, report);
    }
    m_viewer.show(report.take());
}

void ReportCommands::compose(SongReportKind kind, ReportDocument &report)
{
    const auto window = m_desktop.ShowWorkingForm(u"Report is running..."_s, u"\nPlease wait..."_s, true);
    m_desktop.letEventsRun();
    const auto rows = m_catalogue.CatalogueDb->OpenRecordset(
        songReportSql(kind, m_displayed.Data1().RecordSource(), m_displayed.texts()),
        dao::RecordsetType::Snapshot);
    const qint64 count = rows->RecordCount();
    SongReport composer(kind, linesOf(m_options.RptLinesPerPage), report);
    const QList<SongFieldOfReport> shown = fieldsOf(kind);
    QList<int> places;
    for (const SongFieldOfReport &field : shown)
        places.append(rows->fieldIndex(QString(field.name)));
    ReportSong song;
    rows->forEachRow(places, [&](qint64 row, std::span<const QByteArrayView> texts) {
        for (std::size_t i = 0; i < texts.size(); ++i)
            song.*shown[static_cast<qsizetype>(i)].text = QString::fromUtf8(texts[i]);
        composer.add(song);
        showProgress(*window, row + 1, count);
    });
}

void ReportCommands::mnuRptLinesPerPage_Click()
{
    guarded(m_desktop, u"Number of Lines Per Page"_s, [this] { askLinesPerPage(); });
}

void ReportCommands::askLinesPerPage()
{
    const QString answer =
        m_desktop.InputPrompt(LinesPrompt, u"Number of Lines Per Page"_s, m_options.RptLinesPerPage)
            .trimmed();
    if (answer.isEmpty())
        return;
    if (const QString refusal = refusalOfLinesPerPage(answer); !refusal.isEmpty()) {
        m_desktop.MessageBox(refusal, u"Invalid value"_s, Icon::Exclamation);
        return;
    }
    saveOption(m_store, keys::RptLinesPerPage, answer);
    m_options.RptLinesPerPage = answer;
}

void ReportCommands::ChangePrinter_Click()
{
    guarded(m_desktop, u"Printer Setup"_s, [this] { static_cast<void>(m_desktop.ShowPrinterDialog()); });
}

void PlayListReportCommands::RunPlayListReport(PlayListReportKind kind, const QString &listName)
{
    if (!isGreaterThanBlank(listName))
        return;
    const auto command = [&] {
        ReportDocument report;
        {
            const Hourglass hourglass(m_desktop);
            compose(kind, listName, report);
        }
        m_viewer.show(report.take());
    };
    guarded(m_desktop, u"Error"_s, command, {.text = {}, .icon = Icon::None});
}

void PlayListReportCommands::compose(PlayListReportKind kind, const QString &listName, ReportDocument &report)
{
    const auto rows =
        m_catalogue.CatalogueDb->OpenRecordset(playListReportSql(listName), dao::RecordsetType::Snapshot);
    PlayListReport composer(kind, report);
    if (!rows->isEmpty())
        composer.begin(rows->text(u"ListName"_s));
    for (; !rows->atEOF(); rows->MoveNext())
        composer.add({rows->text(u"SongTitle"_s), rows->text(u"ArtistName"_s), rows->text(u"FileName"_s)});
}

} // namespace quaverly
