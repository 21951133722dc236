// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayForms.h"

#include "lists/PlayerState.h"

namespace quaverly {

PlayForms::PlayForms(PlayFormParts parts) : m_parts(std::move(parts))
{}

PlayForms::~PlayForms()
{
    // The program is ending by itself.
    m_parts.state.RestartingPlayer = true;
    PlayForm *form = m_form;
    unload();
    delete form;
}

void PlayForms::unload()
{
    if (m_form)
        m_form->close();
}

bool PlayForms::addToQueue(const SongQueue &songs, bool next)
{
    if (m_form)
        m_form->addToQueue(songs, next);
    return m_form != nullptr;
}

void PlayForms::showPlayLists()
{
    if (m_form)
        m_form->showPlayLists();
}

void PlayForms::play(PlayRequest request)
{
    unload();
    m_parts.state.CurrentPlayUrl = request.CurrentPlayUrl;
    m_parts.state.CurrentPlayTitle = request.caption;
    auto form = std::make_unique<PlayForm>(m_parts);
    // It may be closed from one of its own handlers.
    QObject::connect(form.get(), &PlayForm::unloaded, form.get(), [this] {
        m_form->deleteLater();
        m_form = nullptr;
    });
    m_form = form.release();
    m_form->fill(request);
    m_parts.state.CurrentPlayTitle = request.CurrentPlayTitle;
    m_form->show();
    m_form->raise();
    m_form->activateWindow();
}

} // namespace quaverly
