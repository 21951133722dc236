// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "categories/CategoryCommands.h"
#include "editor/EditCommands.h"
#include "editor/NameEdit.h"
#include "history/HistoryCommands.h"
#include "maintenance/DuplicateCommands.h"
#include "maintenance/FileCopyCommands.h"
#include "maintenance/MaintenanceCommands.h"
#include "pictures/PictureCommands.h"
#include "player/WebLookup.h"
#include "playlists/PlayListScreens.h"
#include "reports/CsvCommands.h"
#include "reports/ReportCommands.h"
#include "reports/RichTextForms.h"
#include "tags/TagCommands.h"
#include "update/UpdateCommands.h"

#include <functional>

namespace quaverly {

class Session;

/** What the commands need of the program that is not in the session. */
struct CommandHooks
{
    /** The player of the run. */
    Player &player;
    /** The main screen, over which the screens open, and for what may be asked of it. */
    QWidget &owner;
    MainScreen &mainScreen;
    /** Makes a copy of the catalogue before many records change; false stops the command of that name. */
    std::function<bool(const QString &command)> beforeBulk;
    std::function<void(const EditedSong &, const EditorScreens &)> playFromEditor;
    std::function<void()> focusCmdPictures;
    /** Shows a sentence for some seconds. */
    std::function<void(const QString &)> tell;
    /** Offers to restore the copy made before a change of that time; true when it will be. */
    std::function<bool(const QDateTime &made)> restoreBefore;
};

/**
 * The commands of the folders around the main screen, each made with what it needs of the session. They
 * live as long as the main screen.
 */
class Commands final
{
public:
    /** @p session outlives this object. */
    Commands(Session &session, const CommandHooks &hooks);

    /** True while a command lets events run: the main screen may not go before that has ended. */
    [[nodiscard]] bool isBusy() const { return m_busy; }
    /** Closes the windows that stand beside the main screen. */
    void unload();
    /** The notebook. */
    void cmdNotes_Click();

private:
    [[nodiscard]] MaintenanceParts maintenanceParts();
    [[nodiscard]] PlayListParts playListParts();
    [[nodiscard]] EditParts editParts();
    [[nodiscard]] NameEditHooks nameEditHooks();
    [[nodiscard]] UpdateParts updateParts();
    void showHistory();
    void showUpdate();
    void showCheck();
    void showNameEdit(const std::function<void()> &closed);
    void showWebLookupMenu(NameEdit &editor, QPoint place);
    void showNotesForm(QWidget &owner, const QString &notes,
                       const std::function<void(const QString &)> &closed);
    template <typename Screen> void showMaintenance();

    Session &m_session;
    CommandHooks m_hooks;
    WebLookup m_webLookup;
    ReportState m_reportState;
    bool m_busy = false;

public:
    CategoryCommands categories;
    RichTextForms viewer;
    ReportCommands reports;
    PlayListReportCommands playListReports;
    CsvCommands csv;
    PictureCommands pictures;
    PlayListScreens playLists;
    EditCommands edit;
    MaintenanceCommands maintenance;
    DuplicateCommands duplicates;
    FileCopyCommands fileCopy;
    HistoryCommands history;
    UpdateCommands update;
    TagCommands tags;
};

} // namespace quaverly
