// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/Locate.h"

#include "desktop/Desktop.h"
#include "platform/text/Text.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

bool leadsToGrid(int key)
{
    return key == Qt::Key_PageUp || key == Qt::Key_PageDown || key == Qt::Key_Up || key == Qt::Key_Down;
}

/** The keys of the brackets, special to Like, whatever else they hold. */
bool isBracket(int key)
{
    return key == Qt::Key_BracketLeft || key == Qt::Key_BracketRight || key == Qt::Key_BraceLeft ||
           key == Qt::Key_BraceRight;
}

/** Keys that change no text. */
bool isSilent(int key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        return true;
    default:
        return false;
    }
}

} // namespace

Locate::Next Locate::txtLocate_KeyUp(int key, const QString &text)
{
    if (!m_set.Data1().hasRows())
        return Next::Nothing;
    if (leadsToGrid(key))
        return Next::FocusGrid;
    if (m_set.DateSortActive() && !IsDate(text))
        return Next::Nothing;
    if (isBracket(key))
        return Next::ClearBox;
    const bool breaksPattern = text.contains(u'"') || text.contains(u'#') || text.contains(u'*');
    if (!isSilent(key) && !breaksPattern)
        search(text);
    return Next::Nothing;
}

// From the first row each time, so that Backspace can move the row backward.
void Locate::search(const QString &text)
{
    const Hourglass hourglass(m_desktop);
    QString wanted = text;
    while (wanted.endsWith(u' '))
        wanted.chop(1);
    try {
        m_locateClause = m_catalogue.ContactsTable->Index() + u" like \""_s + wanted + u"*\""_s;
        dao::Recordset &rows = m_set.Data1().Recordset();
        rows.FindFirst(m_locateClause);
        if (!rows.NoMatch())
            m_set.Data1().notifyRowChanged();
    } catch (const dao::DaoError &) {
        // An unfit pattern finds nothing: the row stays.
    }
}

} // namespace quaverly
