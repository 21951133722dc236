// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/CsvCommands.h"

#include "catalogue/Catalogue.h"
#include "desktop/Guard.h"
#include "reports/CsvFile.h"
#include "songlist/DataControl.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

const auto Question =
    u"This feature will export data from all displayed records to a comma-separated-value text file.  This "
    "file can be used for mail merge with most word processors, or imported into many spreadsheet or "
    "database programs.  Proceed?"_s;

} // namespace

void CsvCommands::Export_Click()
{
    ExportCsv(false);
}

void CsvCommands::ExportWithNotes_Click()
{
    ExportCsv(true);
}

void CsvCommands::ExportCsv(bool withNotes)
{
    guarded(m_desktop, u"Export"_s,
            [&] {
                if (!m_displayed.hasRows() ||
                    m_desktop.MessageBox(Question, u"Confirmation"_s, Icon::Question, Buttons::YesNo) !=
                        Answer::Yes)
                    return;
                const auto path = m_desktop.ShowSaveDialog(
                    {u"Save As"_s, u"All Files (*.*)|*.*|csv Files & (*.csv)|*.csv"_s, {}, u"SongOut.csv"_s});
                if (path)
                    write(*path, withNotes);
            },
            {.text = {}, .icon = Icon::None});
}

void CsvCommands::write(const QString &path, bool withNotes)
{
    if (isCatalogue(path))
        throw dao::DaoError(dao::PermissionDenied,
                            u"'%1' is the catalogue itself.  Choose another name."_s.arg(path));
    {
        const Hourglass hourglass(m_desktop);
        const auto window = m_desktop.ShowWorkingForm(u"Export is running..."_s, u"\nPlease wait..."_s, true);
        m_desktop.letEventsRun();
        CsvFile file(path);
        // The rows are read past the current one, which stays where it is.
        const dao::Recordset &songs = m_displayed.Recordset();
        const qint64 count = songs.RecordCount();
        try {
            file.write(songs, withNotes,
                       [&](qint64 done) { window->setBar(static_cast<int>(done * FullBarTwips / count)); });
            file.close();
        } catch (const dao::DaoError &error) {
            throw dao::DaoError(error.number,
                                error.description +
                                    u"\n\nThe file isn't whole: it keeps the records written so far."_s);
        }
    }
    m_desktop.MessageBox(u"The exported records are located in file "_s + path, u"Export completed"_s,
                         Icon::Information);
}

bool CsvCommands::isCatalogue(const QString &path) const
{
    const QString chosen = QFileInfo(path).canonicalFilePath();
    const QString file = QFileInfo(m_catalogue.DatabaseFile).canonicalFilePath();
    // What the store has not yet put into the file stands beside it.
    return !chosen.isEmpty() && (chosen == file || chosen == file + "-wal"_L1 || chosen == file + "-shm"_L1);
}

} // namespace quaverly
