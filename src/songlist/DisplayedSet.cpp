// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/DisplayedSet.h"

#include "catalogue/DuplicateQueries.h"
#include "catalogue/SortOrders.h"
#include "desktop/Desktop.h"
#include "platform/text/Text.h"
#include "songlist/MainScreen.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr auto OrderAtLoad = " Order By SongName"_L1;

QString caption(const char16_t *text)
{
    return QString::fromUtf16(text);
}

} // namespace

DisplayedSet::DisplayedSet(Catalogue &catalogue, SettingsRows &settings, Desktop &desktop)
    : m_catalogue(catalogue), m_settings(settings), m_desktop(desktop), m_data(catalogue)
{
    m_texts.ListOrder = OrderAtLoad + u' ';
}

bool DisplayedSet::isDuplicateView() const
{
    return isDuplicateViewName(m_data.RecordSource());
}

void DisplayedSet::compose(const std::function<void()> &composition)
{
    const ListTexts before = m_texts;
    try {
        composition();
    } catch (...) {
        m_texts = before;
        throw;
    }
}

void DisplayedSet::open(const QString &source, dao::ReadRows *read)
{
    m_data.setRecordSource(source);
    m_data.Refresh(read);
}

void DisplayedSet::restoreSource(const QString &source, std::optional<dao::Bookmark> row)
{
    open(source);
    if (row && m_data.Recordset().positionOf(*row) >= 0) {
        m_data.Recordset().setBookmark(*row);
        m_data.notifyRowChanged();
    }
}

std::optional<dao::Bookmark> DisplayedSet::currentRow()
{
    if (!m_data.hasRows() || m_data.Recordset().atEOF() || m_data.Recordset().atBOF())
        return std::nullopt;
    return m_data.Recordset().bookmark();
}

void DisplayedSet::openAtLoad()
{
    m_texts = ListTexts();
    m_texts.ListOrder = OrderAtLoad + u' ';
    m_selectedCount = countMarks();
    const auto category = m_settings.categoryAtStartup() ? m_settings.category() : std::nullopt;
    const auto openTexts = [this] {
        open(u"Select * from "_s + m_texts.ListSource + m_texts.ListWhere + OrderAtLoad);
    };
    if (!category) {
        // The first activation shows the list in the stored order, before anyone looks at this one.
        m_data.openWhenAsked(u"Select * from "_s + m_texts.ListSource + OrderAtLoad);
        return;
    }
    try {
        compose([&] {
            m_texts.ListCategoryClause = category->Setting1;
            m_texts.ListSource = QString::fromUtf16(CategoryView);
            m_texts.ListWhere = u" Where"_s + m_texts.ListCategoryClause;
            openTexts();
            // One that was deleted since, or has lost its songs, gives way to all of them.
            if (!m_data.hasRows())
                throw dao::DaoError(dao::NoCurrentRecord, u"This category has no songs."_s);
        });
        m_screen->set_lblCategory(category->Name);
    } catch (const dao::DaoError &) {
        // A row that holds no clause must not keep the program from starting.
        openTexts();
    }
}

void DisplayedSet::openAtFirstActivation()
{
    const RefreshOnce once(m_data);
    const QString stored = m_settings.gridSortOrder().value_or(DefaultSortLabel);
    m_screen->set_cmbSort(sortOrder(stored).label);
    if (m_texts.ListCategoryClause.isEmpty()) {
        m_screen->ShowAllMenu_Click();
        return;
    }
    m_screen->setVisible(MainControl::cmdShowSelected, m_selectedCount > 0);
    resetArtistButton();
}

void DisplayedSet::RefreshDisplayedSet()
{
    open(composeList(m_texts));
}

void DisplayedSet::showAll()
{
    const Hourglass hourglass(m_desktop);
    const RefreshOnce once(m_data);
    m_screen->clearGridMarkArmed();
    m_settings.removeCategory();
    compose([this] {
        m_texts.ListWhere.clear();
        m_texts.ListFilterText.clear();
        m_texts.ListCategoryClause.clear();
        m_texts.ListSource = QString::fromUtf16(SongTable);
        RefreshDisplayedSet();
    });
    hideFilterMessage();
    m_screen->set_lblFilterMsg(caption(captions::FilterMessage));
    m_screen->set_lblCategory({});
    m_screen->setVisible(MainControl::cmdShowSelected, m_selectedCount > 0);
    enableListCommands();
    m_screen->set_cmdShowArtistSongs({});
    if (m_data.hasRows()) {
        enablePlaying();
        showArtistButton();
    }
    m_screen->cmbSort_Click();
    m_texts.ListSelectionClause.clear();
}

void DisplayedSet::applySort(const QString &label)
{
    if (!m_data.hasRows())
        return;
    const Hourglass hourglass(m_desktop);
    const SortOrder &order = sortOrder(label);
    m_screen->clearGridMarkArmed();
    m_catalogue.ContactsTable->setIndex(order.index);
    compose([&] {
        m_texts.ListOrder = order.listOrder;
        // A stored query has its own order, and no tail that could be exchanged.
        if (!isDuplicateView())
            open(withOrder(m_data.RecordSource(), m_texts.ListOrder));
    });
    m_dateSortActive = order.byDate();
    // Last: a full disk keeps the order from being remembered, not the songs from being sorted.
    m_settings.storeGridSortOrder(order.label);
}

void DisplayedSet::categoryChosen(qint64 number, const QString &name)
{
    const Hourglass hourglass(m_desktop);
    compose([&] {
        m_texts.ListFilterText.clear();
        m_texts.ListCategoryClause = categoryClause(number);
        m_texts.ListWhere = u" Where "_s + m_texts.ListCategoryClause;
        m_texts.ListSource = QString::fromUtf16(CategoryView);
        RefreshDisplayedSet();
    });
    m_settings.storeCategory(name, m_texts.ListCategoryClause);
    resetArtistButton();
    m_screen->set_lblCategory(name);
    m_screen->set_lblFilterMsg({});
    hideFilterMessage();
    m_screen->set_txtLocate({});
    m_screen->set_txtName({});
    enableListCommands();
}

void DisplayedSet::categoryCleared()
{
    compose([this] {
        m_texts.ListCategoryClause.clear();
        m_texts.ListWhere.clear();
        m_texts.ListFilterText.clear();
        m_texts.ListSource = QString::fromUtf16(SongTable);
        RefreshDisplayedSet();
    });
    m_settings.removeCategory();
    m_screen->set_lblCategory({});
    m_screen->set_lblFilterMsg({});
}

bool DisplayedSet::filterApplied(const QString &criteria, dao::ReadRows *read)
{
    if (criteria.isEmpty()) {
        m_texts.ListFilterText.clear();
        return false;
    }
    const auto row = currentRow();
    {
        const Hourglass hourglass(m_desktop);
        compose([&] { open(composeFilter(m_texts, criteria), read); });
        m_texts.ListFilterText.clear();
    }
    if (!m_data.hasRows()) {
        m_desktop.MessageBox(u"No records found that meet the criteria you specified.  Try again."_s,
                             u"No records found"_s, Icon::Exclamation);
        restoreSource(m_recordSourceBeforeFilter, row);
        // The list is back, its WHERE text is not: the next command that composes anew widens it.
        m_texts.ListWhere.clear();
        return false;
    }
    m_lastFilterCriteria = criteria;
    showFilterMessage(caption(captions::FilterMessage));
    dropFindCaption();
    resetArtistButton();
    return true;
}

void DisplayedSet::find(const QString &answer)
{
    const QString shown = answer.trimmed();
    if (!m_data.hasRows() || shown.isEmpty())
        return;
    const QString categoryBefore = m_screen->lblCategory();
    m_screen->set_lblCategory(u"Searching for \""_s + shown + u"\"..."_s);
    m_desktop.letEventsRun();
    try {
        const Hourglass hourglass(m_desktop);
        m_artistReturn.source = m_data.RecordSource();
        compose([&] {
            m_texts.ListWhere = u" Where "_s + findClause(answer, [this](const QString &field) {
                                    return m_catalogue.ContactsTable->fieldIndex(field) >= 0;
                                });
            m_texts.ListSelectionClause.clear();
            m_texts.ListFilterText.clear();
            m_texts.ListCategoryClause.clear();
            m_texts.ListSource = QString::fromUtf16(SongTable);
            open(u"Select DISTINCTROW * from  "_s + m_texts.ListSource + m_texts.ListWhere +
                 m_texts.ListOrder);
        });
    } catch (...) {
        m_screen->set_lblCategory(categoryBefore);
        throw;
    }
    m_screen->set_lblCategory(caption(captions::RecordsContaining) + shown);
    hideFilterMessage();
    resetArtistButton();
    if (!m_data.hasRows()) {
        m_screen->set_txtName({});
        m_desktop.MessageBox(u"No records found."_s, u"No records to display"_s);
    }
}

void DisplayedSet::invalidFileView()
{
    compose([this] {
        m_texts.ListWhere = invalidFilesWhere(m_texts.ListCategoryClause);
        // Only the category view knows the field that the category's clause names.
        const auto *source = m_texts.ListCategoryClause.isEmpty() ? SongTable : CategoryView;
        open(u"Select * from "_s + QString::fromUtf16(source) + u' ' + m_texts.ListWhere + m_texts.ListOrder);
    });
    m_artistReturn.recordId = 0;
    m_artistReturn.row = 0;
    m_screen->setEnabled(MainControl::cmdAdd, false);
    m_screen->set_lblCategory({});
    showFilterMessage(caption(captions::InvalidFiles));
}

bool DisplayedSet::playListView(qint64 listId, const QString &name)
{
    const QString oldSource = m_data.RecordSource();
    const auto row = currentRow();
    const QString where = playListWhere(listId);
    {
        const Hourglass hourglass(m_desktop);
        open(playListSource(where, oldSource));
    }
    if (!m_data.hasRows()) {
        m_desktop.MessageBox(u"No records found in database for this PlayList."_s, u"No records found"_s,
                             Icon::Exclamation);
        restoreSource(oldSource, row);
        return false;
    }
    m_texts.ListWhere = where;
    m_texts.ListSelectionClause.clear();
    m_texts.ListFilterText.clear();
    m_texts.ListCategoryClause.clear();
    showFilterMessage(u"PlayList:"_s + name);
    m_screen->set_lblCategory({});
    resetArtistButton();
    return true;
}

bool DisplayedSet::duplicateView(const QString &queryName)
{
    const Hourglass hourglass(m_desktop);
    open(queryName);
    return m_data.hasRows();
}

// With the song, the rest of its group may leave the view: it is opened anew.
void DisplayedSet::deleteFromDuplicateView()
{
    dao::Recordset &rows = m_data.Recordset();
    const qint64 song = rows.bookmark().key;
    const qint64 place = rows.AbsolutePosition();
    const bool last = place + 1 == rows.RecordCount();
    const qint64 neighbour = place == 0 && last ? song : rows.bookmarkAt(last ? place - 1 : place + 1).key;
    const int line = m_screen->gridRow();
    database().Execute(u"Delete * from tblContacts where RecordID = "_s + QString::number(song));
    const Hourglass hourglass(m_desktop);
    m_data.Refresh();
    recountMarks();
    m_data.findRecord(neighbour);
    m_screen->scrollGrid(0, m_screen->gridRow() - line);
}

void DisplayedSet::hideFilterMessage()
{
    m_screen->setVisible(MainControl::lblFilterMsg, false);
}

void DisplayedSet::showFilterMessage(const QString &text)
{
    m_screen->set_lblFilterMsg(text);
    m_screen->setVisible(MainControl::lblFilterMsg, true);
}

void DisplayedSet::dropFindCaption()
{
    if (m_screen->lblCategory().startsWith(caption(captions::RecordsContaining)))
        m_screen->set_lblCategory({});
}

void DisplayedSet::enableListCommands()
{
    using enum MainControl;
    for (const MainControl control : {cmdAdd, cmdEdit, AddMenu, FindEditMenu, File, cmdShowArtistSongs,
                                      cmdFilter, cmdFind, cmbSort, cmdSortSong, cmdSortArtist})
        m_screen->setEnabled(control, true);
}

void DisplayedSet::enablePlaying()
{
    m_screen->setEnabled(MainControl::cmdPlay, true);
    m_screen->setEnabled(MainControl::cmdPlayAll, true);
}

} // namespace quaverly
