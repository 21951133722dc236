// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/DisplayText.h"

#include "platform/text/Text.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr QChar BreakHere = u'\u200B';

QString breakable(QStringView word)
{
    QString broken;
    int run = 0;
    for (const QChar c : word) {
        if (run >= LongestLine / 3 && !c.isLowSurrogate() && !c.isMark()) {
            broken += BreakHere;
            run = 0;
        }
        broken += c;
        ++run;
        if (c == PathSeparator) {
            broken += BreakHere;
            run = 0;
        }
    }
    return broken;
}

} // namespace

QString displayText(const QString &text)
{
    QString shown = text;
    shown.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');

    static const QRegularExpression word(u"\\S{%1,}"_s.arg(LongestLine));
    QString result;
    qsizetype done = 0;
    for (auto found = word.globalMatch(shown); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        result += QStringView(shown).mid(done, match.capturedStart() - done);
        result += breakable(match.capturedView());
        done = match.capturedEnd();
    }
    result += QStringView(shown).mid(done);
    return result;
}

} // namespace quaverly
