// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ShutDown.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

void ShutDown::leaveMainScreen()
{
    m_catalogue.ContactsTable.reset();
    if (m_catalogue.CatalogueDb && m_catalogue.CatalogueDb->Updatable())
        m_catalogue.CatalogueDb->Execute(u"Update tblContacts Set Selected=' ' Where Selected='x'"_s);
}

bool ShutDown::endsProcess(bool compactingCatalogue) const
{
    return !m_catalogue.SwitchingCatalogue && !compactingCatalogue;
}

void ShutDown::closeCatalogue()
{
    if (!m_catalogue.CatalogueDb)
        return;
    // Whatever is thrown, it is closed.
    const auto closing = std::move(m_catalogue.CatalogueDb);
    closing->Close();
}

} // namespace quaverly
