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

void DisplayedSet::selectedOnly()
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
    m_screen->set_lblCategory({});
    m_screen->setVisible(MainControl::cmdShowSelected, false);
    m_screen->setEnabled(MainControl::cmdAdd, false);
    showFilterMessage(QString::fromUtf16(captions::SelectedOnly));
}

void DisplayedSet::hideSelected()
{
    if (isDuplicateView() || m_selectedCount < 1)
        return;
    const Hourglass hourglass(m_desktop);
    compose([this] {
        m_texts.ListSelectionClause = hideClause(m_texts.ListWhere);
        open(composeWithSelection(m_texts));
    });
    rememberStateLine();
    dropFindCaption();
    showFilterMessage(QString::fromUtf16(captions::HidingSelected));
}

void DisplayedSet::removeMarks()
{
    if (isDuplicateView())
        return;
    const Hourglass hourglass(m_desktop);
    database().Execute(u"Update tblContacts Set Selected=' ' Where Selected='x'"_s);
    m_selectedCount = 0;
    m_screen->set_lblSelectedCount({});
    RefreshDisplayedSet();
    restoreStateLine();
    m_texts.ListSelectionClause.clear();
    m_screen->setVisible(MainControl::cmdShowSelected, false);
    m_screen->setEnabled(MainControl::cmdAdd, true);
}

QString DisplayedSet::shownFilterMessage() const
{
    return m_screen->isVisible(MainControl::lblFilterMsg) ? m_screen->lblFilterMsg() : QString();
}

void DisplayedSet::rememberStateLine()
{
    const QString message = shownFilterMessage();
    if (message == QStringView(captions::HidingSelected))
        return;
    const bool selectedOnly = message == QStringView(captions::SelectedOnly);
    m_beforeHiding = {m_screen->lblCategory(), selectedOnly ? QString() : message};
}

// The list is that of before the mark modes again, and so is what stands above it.
void DisplayedSet::restoreStateLine()
{
    const QString message = shownFilterMessage();
    if (message == QStringView(captions::SelectedOnly))
        hideFilterMessage();
    if (message != QStringView(captions::HidingSelected))
        return;
    m_screen->set_lblCategory(m_beforeHiding.category);
    if (m_beforeHiding.message.isEmpty())
        hideFilterMessage();
    else
        showFilterMessage(m_beforeHiding.message);
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
    if (m_selectedCount > 0)
        return;
    m_screen->set_lblSelectedCount({});
    m_screen->setVisible(MainControl::cmdShowSelected, false);
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
    if (m_selectedCount < 1)
        m_screen->set_lblSelectedCount({});
    m_screen->setVisible(MainControl::cmdShowSelected, m_selectedCount > 0);
    m_data.notifyRowChanged();
}

void DisplayedSet::endSelection()
{
    m_selectedCount = 0;
    m_texts.ListSelectionClause.clear();
    m_screen->set_lblSelectedCount({});
    m_screen->setVisible(MainControl::cmdShowSelected, false);
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
