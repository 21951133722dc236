// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PlayListScreens.h"

#include "desktop/Guard.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

PlayListScreens::PlayListScreens(PlayListParts parts, std::function<QWidget *()> owner)
    : m_parts(std::move(parts)), m_owner(std::move(owner))
{}

PlayListScreens::~PlayListScreens()
{
    delete m_form;
}

void PlayListScreens::show(const std::function<void()> &closed)
{
    if (m_form)
        m_form->close();
    const bool isOpen = guarded(m_parts.services.desktop, u"Play Lists"_s, [&] {
        auto form = std::make_unique<frmPlayList>(m_parts, m_owner());
        form->setAttribute(Qt::WA_DeleteOnClose);
        QObject::connect(form.get(), &QDialog::finished, form.get(), [this, closed] {
            m_form = nullptr;
            if (closed)
                closed();
        });
        m_form = form.release();
        m_form->open();
    });
    if (!isOpen && closed)
        closed();
}

} // namespace quaverly
