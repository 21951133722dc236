// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/WebSearch.h"

#include "catalogue/Options.h"

using namespace Qt::StringLiterals;

namespace quaverly {

QString searchWords(const QString &text)
{
    return text.trimmed().replace(u' ', u'+');
}

QUrl searchAddress(const OptionsStore &store, const QString &query, QString words)
{
    QString site = option(store, keys::SearchSite);
    if (site.isEmpty())
        site = u"https://search.brave.com"_s;
    while (site.endsWith(u'/'))
        site.chop(1);
    // Nothing else is escaped, which is meant.
    words.replace(u'&', u"%26"_s);
    return QUrl(site + u"/search?"_s + query + words);
}

QString lyricsWords(const QString &row)
{
    QString words = u"song+lyrics+for+"_s + searchWords(row);
    return words.remove(u"+<>"_s);
}

QUrl lyricsAddress(const OptionsStore &store, const QString &row)
{
    return searchAddress(store, u"newwindow=1&q="_s, lyricsWords(row));
}

} // namespace quaverly
