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

void DisplayedSet::setView(const ListView &next)
{
    m_view = viewAfter(m_view, next);
    showLook();
}

// The row of a song that was deleted has none, until the list is opened anew.
QString DisplayedSet::currentArtist() const
{
    try {
        return m_data.currentText(u"Artist"_s);
    } catch (const dao::DaoError &) {
        return {};
    }
}

void DisplayedSet::showLook()
{
    if (m_screen != nullptr)
        m_screen->show(lookOf(m_view, {.hasRows = m_data.hasRows(),
                                       .artist = currentArtist(),
                                       .SelectedCount = m_selectedCount,
                                       .isAdding = m_isAdding,
                                       .soughtText = m_soughtText}));
}

void DisplayedSet::activated()
{
    // Where nothing but the search is to be added to.
    if (m_view.kind == ListKind::Find)
        m_view.mayAdd = false;
    showLook();
}

void DisplayedSet::setAdding(bool isAdding)
{
    m_isAdding = isAdding;
    if (!isAdding)
        m_view.mayAdd = true;
    showLook();
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
    setView({.kind = ListKind::AllSongs});
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
        setView({.kind = ListKind::Category,
                 .category = {categoryOf(m_texts.ListCategoryClause), category->Name}});
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
        ShowAllMenu_Click();
        return;
    }
    showLook();
}

void DisplayedSet::RefreshDisplayedSet()
{
    open(composeList(m_texts));
}

void DisplayedSet::ShowAllMenu_Click()
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
    setView({.kind = ListKind::AllSongs});
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
    setView({.kind = ListKind::Category, .category = {number, name}});
    m_screen->set_txtLocate({});
    m_screen->set_txtName({});
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
    setView({.kind = ListKind::Unnamed});
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
    setView({.kind = ListKind::Filter});
    return true;
}

void DisplayedSet::find(const QString &answer)
{
    const QString shown = answer.trimmed();
    if (!m_data.hasRows() || shown.isEmpty())
        return;
    m_soughtText = shown;
    showLook();
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
        m_soughtText.clear();
        showLook();
        throw;
    }
    m_soughtText.clear();
    setView({.kind = ListKind::Find, .text = shown});
    if (!m_data.hasRows()) {
        m_screen->set_txtName({});
        m_desktop.MessageBox(u"No records found."_s, u"No records to display"_s);
    }
}

void DisplayedSet::invalidFileView(const QString &finding)
{
    compose([this] {
        m_texts.ListWhere = invalidFilesWhere(m_texts.ListCategoryClause);
        // Only the category view knows the field that the category's clause names.
        const auto *source = m_texts.ListCategoryClause.isEmpty() ? SongTable : CategoryView;
        open(u"Select * from "_s + QString::fromUtf16(source) + u' ' + m_texts.ListWhere + m_texts.ListOrder);
    });
    m_artistReturn.recordId = 0;
    m_artistReturn.row = 0;
    setView({.kind = finding.isEmpty() ? ListKind::InvalidFiles : ListKind::Findings, .text = finding});
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
    setView({.kind = ListKind::PlayList, .text = name});
    return true;
}

bool DisplayedSet::duplicateView(const QString &queryName, const QString &title)
{
    const Hourglass hourglass(m_desktop);
    open(queryName);
    if (!title.isEmpty() && m_data.hasRows())
        setView({.kind = ListKind::Duplicates, .text = title});
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

} // namespace quaverly
