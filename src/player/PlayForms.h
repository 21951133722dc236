// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/PlayForm.h"
#include "player/Player.h"

#include <QPointer>

namespace quaverly {

/** Makes the player's screen for each play command; it goes when it is closed. */
class PlayForms final : public Player
{
public:
    explicit PlayForms(PlayFormParts parts);
    ~PlayForms() override;
    PlayForms(const PlayForms &) = delete;
    PlayForms &operator=(const PlayForms &) = delete;

    void unload() override;
    void play(PlayRequest request) override;
    bool addToQueue(const SongQueue &songs, bool next) override;
    void showPlayLists() override;

    /** Null while no player is open. */
    [[nodiscard]] PlayForm *form() const { return m_form; }

private:
    PlayFormParts m_parts;
    QPointer<PlayForm> m_form;
};

} // namespace quaverly
