// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PlayListHeaders.h"

#include "desktop/Desktop.h"
#include "platform/text/Text.h"

using namespace Qt::StringLiterals;

namespace quaverly {

PlayListHeaders::PlayListHeaders(Desktop &desktop, PlayListStore &lists) : m_desktop(desktop), m_lists(lists)
{}

QString PlayListHeaders::keptName(const QString &typed)
{
    return withoutTrailingBlanks(singleQuotes(typed));
}

bool PlayListHeaders::isFree(const QString &name)
{
    if (!m_lists.isTaken(name))
        return true;
    m_desktop.MessageBox(u"A Play List already exists with this name.  Please chose another name."_s,
                         u"Name already taken"_s, Icon::Exclamation);
    return false;
}

bool PlayListHeaders::add(const QString &name, const QString &notes)
{
    if (!isGreaterThanBlank(name)) {
        m_desktop.MessageBox(u"You must enter a name for this new Play List."_s, u"Name not specified"_s,
                             Icon::Exclamation);
        return false;
    }
    if (!isFree(name))
        return false;
    m_lists.addList(name, notes);
    return true;
}

void PlayListHeaders::tellAdded(const QString &name)
{
    m_desktop.MessageBox(u"New play list added.\r\n("_s + name + u')', u"Added"_s);
}

bool PlayListHeaders::edit(const PlayListHeader &header, const QString &shownName)
{
    if (!isGreaterThanBlank(header.ListName) || header.ListID == 0)
        return false;
    if (header.ListName != shownName && !isFree(header.ListName))
        return false;
    if (m_lists.editList(header.ListID, header.ListName, header.Notes))
        return true;
    m_desktop.MessageBox(u'"' + shownName + u"\" Play list name not found."_s, u"Not changed"_s, Icon::Stop);
    return false;
}

bool PlayListHeaders::deleteList(qint64 listId, const QString &question)
{
    if (m_desktop.MessageBox(question, u"Confirm Play List Deletion"_s, Icon::None, Buttons::YesNo,
                             Answer::No) != Answer::Yes)
        return false;
    m_lists.deleteList(listId);
    return true;
}

} // namespace quaverly
