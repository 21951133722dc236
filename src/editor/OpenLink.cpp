// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/OpenLink.h"

#include "desktop/Desktop.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** The system's number for a text that no program takes. */
constexpr int NoProgram = 31;

QString failure()
{
    return u"No program was found that opens it. (Error "_s + QString::number(NoProgram) + u')';
}

} // namespace

void OpenLink(Desktop &desktop, const QString &text)
{
    if (text.contains(u'@')) {
        if (!desktop.OpenUrl(QUrl(u"mailto:"_s + text)))
            desktop.MessageBox(u"Unable to communicate with your e-mail program.  "_s + failure(), {});
    } else if (text.contains(u'.')) {
        const QUrl url = QUrl::fromUserInput(text);
        if (!url.isValid() || !desktop.OpenUrl(url))
            desktop.MessageBox(u"Unable to open file "_s + text + u"    "_s + failure(), {});
    }
}

} // namespace quaverly
