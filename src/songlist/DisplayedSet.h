// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SettingsRows.h"
#include "songlist/DataControl.h"
#include "songlist/ListTexts.h"

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

    /** Composes the statement from the texts and opens it. */
    void RefreshDisplayedSet();
    /** Back to all songs. Keeps the marks. */
    void showAll();
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
    void showArtistSongs();

    void selectedOnly();
    void hideSelected();
    void removeMarks();
    /** Toggles the mark of the current row. */
    void toggleMark();
    /** For who deleted songs, which may have been marked. */
    void recountMarks();
    /** The marked songs are gone: so is the mark clause. Does not touch the list. */
    void endSelection();

    /** Songs listed in tblOrphanFileNames, within the category in force. */
    void invalidFileView();
    /** False when no track of the list is in the catalogue: that is told, and the old list stays. */
    bool playListView(qint64 listId, const QString &name);
    /** One of the four stored queries; false when it shows nothing. */
    bool duplicateView(const QString &queryName);
    /** Deletes the current song while such a view is shown, which stays, at the song's neighbour. */
    void deleteFromDuplicateView();

    /**
     * What Record Count says. Rewrites the mark clause, which may have been made behind another
     * ListWhere.
     */
    [[nodiscard]] QString recordCountMessage();

    /** The artist button's text and visibility for the current row; not in the artist view. */
    void showArtistButton();

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
    void hideFilterMessage();
    void showFilterMessage(const QString &text);
    void dropFindCaption();
    void rememberStateLine();
    void restoreStateLine();
    [[nodiscard]] int countMarks();
    [[nodiscard]] QString shownFilterMessage() const;
    void enableListCommands();
    void enterArtistView();
    void leaveArtistView();
    void enablePlaying();
    /** Out of the artist view, if it was that; the button is the current row's again. */
    void resetArtistButton();
    [[nodiscard]] dao::Database &database() { return *m_catalogue.CatalogueDb; }

    Catalogue &m_catalogue;
    SettingsRows &m_settings;
    Desktop &m_desktop;
    MainScreen *m_screen = nullptr;
    DataControl m_data;
    ListTexts m_texts;
    ArtistReturn m_artistReturn;
    /** What stood above the list before marked songs were hidden. */
    struct StateLine
    {
        QString category;
        QString message;
    } m_beforeHiding;
    QString m_recordSourceBeforeFilter;
    QString m_lastFilterCriteria;
    int m_selectedCount = 0;
    bool m_dateSortActive = false;
};

/** Captions that are read back as state. */
namespace captions {
inline constexpr char16_t FilterMessage[] = u"Filter is limiting records displayed.";
inline constexpr char16_t SelectedOnly[] = u"Showing selected records only.";
inline constexpr char16_t HidingSelected[] = u"Hiding selected records.";
inline constexpr char16_t InvalidFiles[] = u"Records with invalid path/file names";
inline constexpr char16_t RecordsContaining[] = u"Records containing ";
inline constexpr char16_t ShowAllSongsBy[] = u"Show all songs by ";
inline constexpr char16_t ReturnFromArtist[] = u"Return from artist filter";
inline constexpr char16_t Returning[] = u"Returning";
} // namespace captions

} // namespace quaverly
