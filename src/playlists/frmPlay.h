// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "playlists/OneSongRun.h"

#include <QDialog>
#include <QPointer>

#include <functional>
#include <memory>

namespace media {
class MediaPlayer;
class Mpris;
class PlayerRemote;
} // namespace media

namespace Ui {
class frmPlay;
}

namespace quaverly {

class PlayerKeys;

/** What the window works with. All of it outlives it. */
struct frmPlayParts
{
    Services services;
    std::function<std::unique_ptr<media::MediaPlayer>()> makeMediaPlayer;
};

/** A bare window with the media control, for one song at a time. It goes when it is closed. */
class frmPlay final : public QDialog
{
    Q_OBJECT

public:
    explicit frmPlay(frmPlayParts parts, QWidget *parent = nullptr);
    ~frmPlay() override;

    /** Plays a file in place of what plays; @p title becomes the window's. */
    void play(const QString &title, const QString &FileName);
    /** Closes the window without a word to anybody. */
    void unload();

    /** However it is closed: silence, and volume and mute are kept. */
    void done(int result) override;

Q_SIGNALS:
    /** Comes from the event loop, after the media control's own events. */
    void songEnded();
    void closedByUser();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void wire();
    void Form_Load();
    void WMPlayer_PlayStateChange(int NewState);
    void showNote(const QString &sentence);

    std::unique_ptr<Ui::frmPlay> m_ui;
    frmPlayParts m_parts;
    /** Null once closed. */
    std::unique_ptr<media::MediaPlayer> m_media;
    /** Media keys and the desktop's player widget. */
    std::unique_ptr<media::PlayerRemote> m_remote;
    std::unique_ptr<media::Mpris> m_mpris;
    std::unique_ptr<PlayerKeys> m_keys;
    bool m_unloading = false;
};

/** Opens a frmPlay over the play lists screen for each run. */
class frmPlayWindow final : public SongWindow
{
public:
    /** @p owner is the play lists screen; windows that are open go with it. */
    frmPlayWindow(frmPlayParts parts, QWidget *owner);

    void play(const QString &title, const QString &FileName) override;
    void unload() override;

    /** Null while none is open. */
    [[nodiscard]] frmPlay *form() const { return m_form; }

private:
    frmPlayParts m_parts;
    QWidget *m_owner;
    QPointer<frmPlay> m_form;
};

} // namespace quaverly
