// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

namespace quaverly {

class Desktop;
class OptionsStore;

/** The maker's site: one that the options name, or the documentation that came with the program. */
class HelpSite final
{
public:
    /** @p programFolder ends in a separator. The references outlive the object. */
    HelpSite(Desktop &desktop, const OptionsStore &store, QString programFolder);

    void HelpSystem_Click();
    void HelpGotoWebsite_Click();

    /** The page at @p path below the site's root; a page of its own files when there is no site. */
    [[nodiscard]] QUrl page(const QString &path) const;

private:
    void open(const QUrl &page);

    Desktop &m_desktop;
    const OptionsStore &m_store;
    QString m_programFolder;
};

} // namespace quaverly
