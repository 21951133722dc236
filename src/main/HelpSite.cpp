// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/HelpSite.h"

#include "catalogue/Catalogue.h"
#include "catalogue/Options.h"
#include "desktop/Desktop.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Where the documentation lies below the folder that everything is installed into. */
constexpr auto Documentation = "share/doc/quaverly/site"_L1;

/** An installed program lies up to three folders deep, one of a build folder only one. */
QString documentationFolder(const QString &programFolder)
{
    constexpr int Deepest = 3;
    QString prefix = programFolder;
    for (int depth = 0; depth < Deepest; ++depth) {
        prefix += "../"_L1;
        if (QDir(prefix + Documentation).exists())
            break;
    }
    return QDir::cleanPath(prefix + Documentation);
}

} // namespace

HelpSite::HelpSite(Desktop &desktop, const OptionsStore &store, QString programFolder)
    : m_desktop(desktop), m_store(store), m_programFolder(std::move(programFolder))
{}

void HelpSite::HelpSystem_Click()
{
    open(page(u"/help/"_s));
}

void HelpSite::HelpGotoWebsite_Click()
{
    open(page(u"/"_s));
}

QUrl HelpSite::page(const QString &path) const
{
    QString root = option(m_store, keys::WebSite);
    if (root.isEmpty())
        return QUrl::fromLocalFile(documentationFolder(m_programFolder) + path + u"index.html"_s);
    while (root.endsWith(u'/'))
        root.chop(1);
    return QUrl(root + path);
}

void HelpSite::open(const QUrl &page)
{
    if (!m_desktop.OpenUrl(page))
        m_desktop.MessageBox(u"No program was found to show this page:  "_s + page.toDisplayString(),
                             QString::fromUtf16(ProductName), Icon::Exclamation);
}

} // namespace quaverly
