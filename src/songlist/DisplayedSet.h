// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SettingsRows.h"
#include "songlist/DataControl.h"
#include "songlist/ListTexts.h"
#include "songlist/MainLook.h"

#include <functional>

namespace quaverly {

class Desktop;
class MainScreen;

/**
 * The songs that the main screen shows: one SQL text, and the texts from which any command composes
 * it anew with one piece changed. It is rebuilt, never patched. A command whose statement the store
 * refuses throws dao::DaoError and leaves list and texts as they were.
 */
class DisplayedSet final
{
public:
    DisplayedSet(Catalogue &catalogue, SettingsRows &settings, Desktop &desktop);

    /** The main screen of the moment; null when it goes. Every command needs one. */
    void setScreen(MainScreen *screen) { m_screen = screen; }

    [[nodiscard]] DataControl &Data1() { return m_data; }
    [[nodiscard]] const DataControl &Data1() const { return m_data; }
    [[nodiscard]] const ListTexts &texts() const { return m_texts; }
    [[nodiscard]] const ListView &view() const { return m_view; }

    /** Songs that are marked, also those that a run left which could not end. */
    [[nodiscard]] int SelectedCount() const { return m_selectedCount; }
    /** True while the list is sorted by a date: Locate then waits for a whole one. */
    [[nodiscard]] bool DateSortActive() const { return m_dateSortActive; }
    /** True while the source is one of the four stored queries on duplicates. */
    [[nodiscard]] bool isDuplicateView() const;

    /** The first rows of a newly loaded main screen, with the category that the last run left. */
    void openAtLoad();
    /** First activation: the stored sort, then Show All. */
    void openAtFirstActivation();

    /** Has the main screen show what the view and the current row ask for. */
    void showLook();
    /** The main screen became the active one. */
    void activated();
    /** The editor opens on a new record, or has closed again. */
    void setAdding(bool isAdding);

    /** Composes the statement from the texts and opens it. */
    void RefreshDisplayedSet();
    /** Back to all songs. Keeps the marks. */
    void ShowAllMenu_Click();
    /** The sort box: stores the choice and exchanges the ORDER BY tail. Does nothing on an empty list. */
    void applySort(const QString &label);

    void categoryChosen(qint64 number, const QString &name);
    void categoryCleared();

    /** What the filter screen notes when it opens. */
    void rememberSourceForFilter() { m_recordSourceBeforeFilter = m_data.RecordSource(); }
    [[nodiscard]] const QString &RecordSourceBeforeFilter() const { return m_recordSourceBeforeFilter; }
    [[nodiscard]] const QString &LastFilterCriteria() const { return m_lastFilterCriteria; }
    void setLastFilterCriteria(const QString &criteria) { m_lastFilterCriteria = criteria; }
    /**
     * Limits the list by criteria in the store's SQL. False when they are empty, or find nothing: that
     * is told, and the list before the filter comes back. @p read is what a probe read of them just now.
     */
    bool filterApplied(const QString &criteria, dao::ReadRows *read = nullptr);

    /** Find Any Text over all fields of all songs. An empty result is told and stays. */
    void find(const QString &answer);

    /** The artist button: enters the artist view, or leaves it when its caption says so. */
    void cmdShowArtistSongs_Click();

    /** Also cmdShowSelected. */
    void ShowSelectedOnlyMenu_Click();
    void HideSelectedMenu_Click();
    void RemoveSelectionsMenu_Click();
    /** Toggles the mark of the current row. */
    void toggleMark();
    /** For who deleted songs, which may have been marked. */
    void recountMarks();
    /** The marked songs are gone: so is the mark clause. Does not touch the list. */
    void endSelection();
    /** The songs displayed, or those that were wanted of them, are deleted. */
    void displayedDeleted();

    /** Songs listed in tblOrphanFileNames, within the category in force. @p finding tells what a check of the
     * catalogue found of them, if it was not that their files are gone. */
    void invalidFileView(const QString &finding = {});
    /** False when no track of the list is in the catalogue: that is told, and the old list stays. */
    bool playListView(qint64 listId, const QString &name);
    /** One of the four stored queries; false when it shows nothing. Without a title, all that stands above
     * the list and may be done with it stays. */
    bool duplicateView(const QString &queryName, const QString &title = {});
    /** Deletes the current song while such a view is shown, which stays, at the song's neighbour. */
    void deleteFromDuplicateView();

    /**
     * What Record Count says. Rewrites the mark clause, which may have been made behind another
     * ListWhere.
     */
    [[nodiscard]] QString recordCountMessage();

private:
    /** Where the artist view leads back to. */
    struct ArtistReturn
    {
        QString source;
        QString sort;
        QString firstColumn;
        qint64 recordId = 0;
        int row = 0;
    };

    /** Runs a composition; when it throws, the texts are those of before. */
    void compose(const std::function<void()> &composition);
    void open(const QString &source, dao::ReadRows *read = nullptr);
    void restoreSource(const QString &source, std::optional<dao::Bookmark> row);
    [[nodiscard]] std::optional<dao::Bookmark> currentRow();
    void setView(const ListView &next);
    [[nodiscard]] QString currentArtist() const;
    void leaveMarkModes();
    [[nodiscard]] int countMarks();
    void enterArtistView();
    void leaveArtistView();
    [[nodiscard]] dao::Database &database() { return *m_catalogue.CatalogueDb; }

    Catalogue &m_catalogue;
    SettingsRows &m_settings;
    Desktop &m_desktop;
    MainScreen *m_screen = nullptr;
    DataControl m_data;
    ListTexts m_texts;
    ArtistReturn m_artistReturn;
    ListView m_view;
    ListView m_beforeHiding;
    bool m_isAdding = false;
    /** While Find looks for it. */
    QString m_soughtText;
    QString m_recordSourceBeforeFilter;
    QString m_lastFilterCriteria;
    int m_selectedCount = 0;
    bool m_dateSortActive = false;
};

} // namespace quaverly
