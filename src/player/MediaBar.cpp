// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/MediaBar.h"

#include "desktop/Icons.h"
#include "platform/media/Media.h"
#include "ui_MediaBar.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr double MillisecondsPerSecond = 1000;
constexpr int VolumeStep = 5;

/** Minutes and seconds, with hours in front where there are any. */
QString timeText(double seconds)
{
    const auto whole = static_cast<int>(seconds);
    const int hours = whole / 3600;
    const QString text = u"%1:%2"_s.arg(whole / 60 % 60, hours > 0 ? 2 : 1, 10, QChar(u'0'))
                             .arg(whole % 60, 2, 10, QChar(u'0'));
    return hours > 0 ? QString::number(hours) + u':' + text : text;
}

void dress(QToolButton &button, const QString &iconName, const QString &what)
{
    button.setIcon(icon(iconName));
    button.setToolTip(what);
    button.setAccessibleName(what);
}

} // namespace

MediaBar::MediaBar(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::MediaBar>())
{
    m_ui->setupUi(this);
    setFocusProxy(m_ui->cmdPlayPause);
    dress(*m_ui->cmdStop, u"stop"_s, u"Stop"_s);
    dress(*m_ui->cmdPrevious, u"previous"_s, u"Previous song"_s);
    dress(*m_ui->cmdNext, u"next"_s, u"Next song"_s);
    wire();
    setPlayer(nullptr);
}

MediaBar::~MediaBar() = default;

void MediaBar::wire()
{
    connect(m_ui->cmdPlayPause, &QToolButton::clicked, this, &MediaBar::cmdPlayPause_Click);
    connect(m_ui->cmdStop, &QToolButton::clicked, this, &MediaBar::cmdStop_Click);
    connect(m_ui->cmdPrevious, &QToolButton::clicked, this, &MediaBar::cmdPrevious_Click);
    connect(m_ui->cmdNext, &QToolButton::clicked, this, &MediaBar::cmdNext_Click);
    connect(m_ui->cmdMute, &QToolButton::clicked, this, &MediaBar::cmdMute_Click);
    connect(m_ui->sldPosition, &QSlider::sliderMoved, this, &MediaBar::sldPosition_Scroll);
    connect(m_ui->sldPosition, &QSlider::valueChanged, this, &MediaBar::sldPosition_Change);
    connect(m_ui->sldVolume, &QSlider::valueChanged, this, &MediaBar::sldVolume_Change);
}

void MediaBar::setPlayer(media::MediaPlayer *player)
{
    if (m_player)
        disconnect(m_player, nullptr, this, nullptr);
    m_player = player;
    setEnabled(m_player != nullptr);
    if (m_player)
        follow();
    showState();
    showMedia();
    showSettings();
}

void MediaBar::follow()
{
    connect(m_player, &media::MediaPlayer::PlayStateChange, this, &MediaBar::showState);
    connect(m_player, &media::MediaPlayer::CurrentItemChange, this, &MediaBar::showMedia);
    connect(m_player, &media::MediaPlayer::mediaChanged, this, &MediaBar::showMedia);
    connect(m_player, &media::MediaPlayer::positionChanged, this, &MediaBar::showPosition);
    connect(m_player, &media::MediaPlayer::settingsChanged, this, &MediaBar::showSettings);
}

bool MediaBar::isPlaying() const
{
    return m_player &&
           (m_player->playState() == media::Playing || m_player->playState() == media::Transitioning);
}

void MediaBar::showState()
{
    if (isPlaying())
        dress(*m_ui->cmdPlayPause, u"pause"_s, u"Pause"_s);
    else
        dress(*m_ui->cmdPlayPause, u"play"_s, u"Play"_s);
    if (m_player && m_player->playState() == media::Stopped)
        showPosition(0);
}

void MediaBar::showMedia()
{
    const double seconds = m_player ? m_player->currentMedia().duration : 0;
    const QSignalBlocker quiet(m_ui->sldPosition);
    m_ui->sldPosition->setMaximum(static_cast<int>(seconds * MillisecondsPerSecond));
    m_ui->sldPosition->setEnabled(seconds > 0);
    m_ui->lblDuration->setText(seconds > 0 ? timeText(seconds) : QString());
    showPosition(m_player ? m_player->controls().currentPosition() : 0);
}

void MediaBar::showPosition(double seconds)
{
    // What the user holds stays in the hand.
    if (m_ui->sldPosition->isSliderDown())
        return;
    const QSignalBlocker quiet(m_ui->sldPosition);
    m_ui->sldPosition->setValue(static_cast<int>(seconds * MillisecondsPerSecond));
    m_ui->lblPosition->setText(timeText(seconds));
}

void MediaBar::showSettings()
{
    const bool mute = m_player && m_player->settings().mute();
    const QSignalBlocker quietVolume(m_ui->sldVolume);
    m_ui->sldVolume->setValue(m_player ? m_player->settings().volume() : 0);
    m_ui->cmdMute->setChecked(mute);
    if (mute)
        dress(*m_ui->cmdMute, u"mute"_s, u"Sound on"_s);
    else
        dress(*m_ui->cmdMute, u"volume"_s, u"Mute"_s);
}

void MediaBar::cmdPlayPause_Click()
{
    if (isPlaying())
        m_player->controls().pause();
    else
        m_player->controls().play();
}

void MediaBar::cmdStop_Click()
{
    m_player->controls().stop();
}

void MediaBar::cmdPrevious_Click()
{
    m_player->controls().previous();
}

void MediaBar::cmdNext_Click()
{
    m_player->controls().next();
}

void MediaBar::cmdMute_Click(bool checked)
{
    m_player->settings().setMute(checked);
}

void MediaBar::sldPosition_Scroll(int milliseconds)
{
    m_ui->lblPosition->setText(timeText(milliseconds / MillisecondsPerSecond));
}

void MediaBar::sldPosition_Change(int milliseconds)
{
    m_player->controls().setCurrentPosition(milliseconds / MillisecondsPerSecond);
}

void MediaBar::sldVolume_Change(int percent)
{
    m_player->settings().setVolume(percent);
}

void MediaBar::seekBy(double seconds)
{
    if (m_player)
        m_player->controls().setCurrentPosition(m_player->controls().currentPosition() + seconds);
}

bool MediaBar::pressMediaKey(int key)
{
    if (!m_player)
        return false;
    media::MediaControls &controls = m_player->controls();
    media::MediaSettings &settings = m_player->settings();
    switch (key) {
    case Qt::Key_MediaTogglePlayPause:
        cmdPlayPause_Click();
        return true;
    case Qt::Key_MediaPlay:
        controls.play();
        return true;
    case Qt::Key_MediaPause:
        controls.pause();
        return true;
    case Qt::Key_MediaStop:
        controls.stop();
        return true;
    case Qt::Key_MediaPrevious:
        controls.previous();
        return true;
    case Qt::Key_MediaNext:
        controls.next();
        return true;
    case Qt::Key_VolumeMute:
        settings.setMute(!settings.mute());
        return true;
    case Qt::Key_VolumeUp:
        settings.setVolume(settings.volume() + VolumeStep);
        return true;
    case Qt::Key_VolumeDown:
        settings.setVolume(settings.volume() - VolumeStep);
        return true;
    default:
        return false;
    }
}

} // namespace quaverly
