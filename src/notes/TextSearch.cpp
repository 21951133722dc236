// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/TextSearch.h"

#include "desktop/Desktop.h"

#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace quaverly {

std::optional<QTextCursor> TextSearch::cmdFind(const QTextDocument &document)
{
    const QString text =
        m_desktop.InputPrompt(u"Enter the text to search for, then press OK."_s, u"Specify text to find"_s);
    if (text.isEmpty())
        return {};
    m_text = text;
    QTextCursor hit = document.find(text);
    if (!hit.isNull())
        return hit;
    tell(u"Text not found"_s, u"The text you searched for (shown above) was not found."_s);
    return {};
}

std::optional<QTextCursor> TextSearch::cmdFindNext(const QTextDocument &document, const QTextCursor &from)
{
    if (m_text.isEmpty())
        return cmdFind(document);
    QTextCursor hit = document.find(m_text, from);
    if (!hit.isNull())
        return hit;
    tell(u"No more occurrences found"_s, u"Reached end of notes."_s);
    return {};
}

void TextSearch::tell(const QString &title, const QString &message)
{
    m_desktop.MessageBox(u'[' + m_text + u"]\r\n"_s + message, title);
}

} // namespace quaverly
