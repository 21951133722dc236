// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Desktop.h"
#include "platform/text/Text.h"
#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"

#include <QLocale>

using namespace Qt::StringLiterals;

// The mark modes of the displayed set, and the count that they change.
namespace quaverly {

namespace {

QString grouped(qint64 number, QLocale locale)
{
    locale.setNumberOptions({});
    return locale.toString(number);
}

QString grouped(double number, QLocale locale)
{
    locale.setNumberOptions({});
    return locale.toString(number, 'f', 1);
}

} // namespace

void DisplayedSet::ShowSelectedOnlyMenu_Click()
{
    if (m_selectedCount < 1)
        return;
    const Hourglass hourglass(m_desktop);
    compose([this] {
        m_texts.ListWhere.clear();
        m_texts.ListFilterText.clear();
        m_texts.ListCategoryClause.clear();
        m_texts.ListSelectionClause = u" Where Selected = 'x' "_s;
        open(u"Select * from  tblContacts Where Selected = 'x' "_s + m_texts.ListOrder);
    });
    setView({.kind = ListKind::SelectedOnly});
}

void DisplayedSet::HideSelectedMenu_Click()
{
    if (isDuplicateView() || m_selectedCount < 1)
        return;
    const Hourglass hourglass(m_desktop);
    compose([this] {
        m_texts.ListSelectionClause = hideClause(m_texts.ListWhere);
        open(composeWithSelection(m_texts));
    });
    if (m_view.kind != ListKind::HidingSelected)
        m_beforeHiding = m_view;
    setView({.kind = ListKind::HidingSelected});
}

void DisplayedSet::RemoveSelectionsMenu_Click()
{
    if (isDuplicateView())
        return;
    const Hourglass hourglass(m_desktop);
    database().Execute(u"Update tblContacts Set Selected=' ' Where Selected='x'"_s);
    m_selectedCount = 0;
    RefreshDisplayedSet();
    m_texts.ListSelectionClause.clear();
    leaveMarkModes();
}

// The list is that of before the mark modes again, and so is what stands above it.
void DisplayedSet::leaveMarkModes()
{
    const ListKind kind = m_view.kind;
    if (kind == ListKind::HidingSelected) {
        m_view.kind = m_beforeHiding.kind;
        m_view.category = m_beforeHiding.category;
        m_view.text = m_beforeHiding.text;
    }
    if (m_view.kind == ListKind::SelectedOnly)
        m_view.kind = ListKind::Unnamed;
    m_view.mayAdd = true;
    showLook();
}

int DisplayedSet::countMarks()
{
    const auto marked = database().OpenRecordset(
        u"Select Count(*) As Marked from tblContacts Where Selected = 'x'"_s, dao::RecordsetType::Snapshot);
    return marked->value(u"Marked"_s).toInt();
}

void DisplayedSet::recountMarks()
{
    m_selectedCount = countMarks();
    showLook();
}

void DisplayedSet::toggleMark()
{
    if (isDuplicateView() || !currentRow())
        return;
    const bool marked = m_data.currentText(u"Selected"_s) == "x"_L1;
    dao::Recordset &rows = m_data.Recordset();
    rows.Edit();
    rows.setValue(u"Selected"_s, marked ? u" "_s : u"x"_s);
    rows.Update();
    m_selectedCount = marked ? qMax(0, m_selectedCount - 1) : m_selectedCount + 1;
    m_view.areMarksChanged = true;
    showLook();
    m_data.notifyRowChanged();
}

void DisplayedSet::endSelection()
{
    m_selectedCount = 0;
    m_texts.ListSelectionClause.clear();
    showLook();
}

void DisplayedSet::displayedDeleted()
{
    const bool isNamed = m_view.kind == ListKind::Category || m_view.kind == ListKind::Find ||
                         m_view.kind == ListKind::Duplicates;
    if (!isNamed)
        m_view.kind = ListKind::Unnamed;
    m_view.leadsBack = false;
    m_view.mayAdd = true;
    showLook();
}

QString DisplayedSet::recordCountMessage()
{
    if (!m_data.hasRows())
        return u"There are no records displayed in the current list."_s;
    const Hourglass hourglass(m_desktop);
    m_texts.ListSelectionClause = clauseForCount(m_texts.ListSelectionClause, m_texts.ListWhere);
    const qint64 count = m_data.Recordset().RecordCount();
    if (count == 1)
        return u"There is 1 record displayed in the current list."_s;
    QString songs = u"There are "_s + grouped(count, QLocale()) + u" songs displayed in the current list."_s;
    if (isDuplicateView())
        return songs;
    m_texts.ScratchSql = sumStatement(m_data.RecordSource());
    const auto sum = database().OpenRecordset(m_texts.ScratchSql, dao::RecordsetType::Snapshot);
    const double megabytes = sum->value(u"SumOfFileSizeNum"_s).toDouble();
    return songs + u"\n\nTotal file size of all songs displayed in current list: "_s +
           grouped(megabytes, QLocale()) + u" MB."_s;
}

} // namespace quaverly
