// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/Session.h"

#include "catalogue/CatalogueSchema.h"
#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "history/ChangeTexts.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

// The names in its sentence are those of now: a song may be called otherwise later, or be gone.
void endChange(dao::Database &database)
{
    database.endChange();
    quietly([&] {
        dao::History history(database);
        if (const auto made = history.ended())
            history.tell(*made, ChangeTexts(database).sentence(*made));
    });
}

} // namespace

Session::Session(Desktop &desktop, OptionsStore &store, media::MediaOptions sound)
    : m_desktop(desktop), m_store(store), m_engine(catalogueSchema()), m_media(std::move(sound)),
      m_shell(shell::makeShell()), m_settings(m_catalogue), m_displayedSet(m_catalogue, m_settings, desktop),
      m_shutDown(m_catalogue)
{
    // What a handler leaves pending in the store is on the disk before the user does anything else.
    // It is one change of the history.
    m_desktop.handlers().afterHandler = [this] {
        m_engine.Workspaces(0).settle();
        if (m_catalogue.CatalogueDb)
            endChange(*m_catalogue.CatalogueDb);
    };
}

} // namespace quaverly
