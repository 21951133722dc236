// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/InvalidFileSearch.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"
#include "maintenance/ScreenAtRest.h"
#include "platform/text/Text.h"
#include "songlist/DisplayedSet.h"
#include "songlist/InvalidFiles.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Files asked about ahead of the answers, and how long the window may stand still for those. */
constexpr qint64 MostAhead = 512;
constexpr std::chrono::milliseconds Patience(20);
/** What the bar grows to, a little short of its whole. */
constexpr qint64 BarShare = 6375;

/** Full paths of the songs from @p first on; empty for one without a file name. */
QStringList pathsOf(dao::Recordset &songs, qint64 first, qint64 end)
{
    const int folder = songs.fieldIndex(u"PathName"_s);
    const int file = songs.fieldIndex(u"FileName"_s);
    QStringList paths;
    for (qint64 song = first; song < end; ++song) {
        const QString name = NullToEmpty(songs.valueAt(song, file));
        paths.append(name.isEmpty() ? QString() : NullToEmpty(songs.valueAt(song, folder)) + name);
    }
    return paths;
}

} // namespace

InvalidFileSearch::InvalidFileSearch(const MaintenanceParts &parts, FileTests::Test isThere)
    : m_parts(parts), m_isThere(std::move(isThere))
{}

void InvalidFileSearch::run()
{
    if (m_parts.busy || !m_parts.set.Data1().hasRows())
        return;
    m_ended = false;
    const auto invalid = invalidSongs();
    if (!invalid)
        return;
    if (invalid->empty()) {
        m_parts.services.desktop.MessageBox(u"No records with invalid path/file names exist."_s,
                                            u"No records found"_s, Icon::Exclamation);
        return;
    }
    const Hourglass hourglass(m_parts.services.desktop);
    m_parts.set.invalidFileView();
}

std::optional<std::vector<qint64>> InvalidFileSearch::invalidSongs()
{
    const Hourglass hourglass(m_parts.services.desktop);
    const ScreenAtRest atRest(m_parts.mainScreen, m_parts.busy);
    const auto wait = m_parts.services.desktop.ShowWorkingForm(
        u"Checking for records with invalid file names..."_s, u"Please wait..."_s, true);
    m_parts.services.desktop.letEventsRun();
    const auto songs = m_parts.services.catalogue.CatalogueDb->OpenRecordset(
        u"Select RecordId, PathName, FileName from tblContacts"_s, dao::RecordsetType::Snapshot);
    auto invalid = testAll(*songs, *wait);
    songs->Close();
    // Only now, so that a search that was ended changes nothing.
    if (invalid)
        listInvalidFiles(*m_parts.services.catalogue.CatalogueDb, *invalid);
    return invalid;
}

std::optional<std::vector<qint64>> InvalidFileSearch::testAll(dao::Recordset &songs, WorkingWindow &wait)
{
    FileTests tests(m_isThere);
    std::vector<qint64> invalid;
    const qint64 total = songs.RecordCount();
    qint64 asked = 0;
    qint64 done = 0;
    while (done < total) {
        const qint64 next = std::min(total, done + MostAhead);
        tests.ask(pathsOf(songs, asked, next));
        asked = next;
        for (const bool isThere : tests.answers(Patience)) {
            if (!isThere)
                invalid.push_back(songs.bookmarkAt(done).key);
            ++done;
        }
        wait.setBar(static_cast<int>(done * BarShare / total));
        m_parts.services.desktop.letEventsRun();
        if (m_ended || wait.isClosed())
            return std::nullopt;
    }
    return invalid;
}

} // namespace quaverly
