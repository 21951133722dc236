// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/PlayListReport.h"
#include "reports/SongReport.h"

#include <QString>

namespace quaverly {

class Desktop;
class DisplayedSet;
class OptionsStore;
class ReportDocument;
class ReportViewer;
struct Catalogue;
struct Options;

/** The reports on the displayed songs, and what belongs to them on the main screen's menus. */
class ReportCommands final
{
public:
    /** All references outlive this object. */
    ReportCommands(Desktop &desktop, DisplayedSet &displayed, Catalogue &catalogue, Options &options,
                   OptionsStore &store, ReportViewer &viewer);

    void mnuArtistRpt_Click();
    void mnuSongRpt_Click();
    void mnuPathRpt_Click();
    void mnuRptLinesPerPage_Click();
    /** Does nothing: the entry only stands there. */
    void StatisticsReport_Click() {}
    void ChangePrinter_Click();

    /** Asks, then shows the report. @throws dao::DaoError. */
    void RunReport(SongReportKind kind);

private:
    void run(const QString &title, SongReportKind kind);
    void compose(SongReportKind kind, ReportDocument &report);
    void askLinesPerPage();

    Desktop &m_desktop;
    DisplayedSet &m_displayed;
    Catalogue &m_catalogue;
    Options &m_options;
    OptionsStore &m_store;
    ReportViewer &m_viewer;
};

/** The reports on a play list, for the screen of the play lists. */
class PlayListReportCommands final
{
public:
    /** All references outlive this object. */
    PlayListReportCommands(Desktop &desktop, Catalogue &catalogue, ReportViewer &viewer)
        : m_desktop(desktop), m_catalogue(catalogue), m_viewer(viewer)
    {}

    /** Shows the report, an error under the title "Error". Without a name nothing happens. */
    void RunPlayListReport(PlayListReportKind kind, const QString &listName);

private:
    void compose(PlayListReportKind kind, const QString &listName, ReportDocument &report);

    Desktop &m_desktop;
    Catalogue &m_catalogue;
    ReportViewer &m_viewer;
};

} // namespace quaverly
