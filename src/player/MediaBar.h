// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

namespace media {
class MediaPlayer;
}

namespace Ui {
class MediaBar;
}

namespace quaverly {

/**
 * The media control as the user sees it: where the song is, buttons to play, pause, stop and go to the songs
 * around it, the volume. With the focus on it, the space bar plays and pauses.
 */
class MediaBar final : public QWidget
{
    Q_OBJECT

public:
    explicit MediaBar(QWidget *parent = nullptr);
    ~MediaBar() override;

    /** What it shows and works; null lets go. @p player goes only after it was let go. */
    void setPlayer(media::MediaPlayer *player);

    /** Obeys a key of the keyboard's media row; false for any other key. */
    bool pressMediaKey(int key);
    /** Forwards or, below 0, back; not beyond either end. */
    void seekBy(double seconds);

private:
    void wire();
    void follow();
    void showState();
    void showPosition(double seconds);
    void showMedia();
    void showSettings();
    void cmdPlayPause_Click();
    void cmdStop_Click();
    void cmdPrevious_Click();
    void cmdNext_Click();
    void cmdMute_Click(bool checked);
    void sldPosition_Scroll(int milliseconds);
    void sldPosition_Change(int milliseconds);
    void sldVolume_Change(int percent);
    [[nodiscard]] bool isPlaying() const;

    std::unique_ptr<Ui::MediaBar> m_ui;
    media::MediaPlayer *m_player = nullptr;
};

} // namespace quaverly
