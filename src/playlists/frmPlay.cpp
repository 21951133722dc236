// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/frmPlay.h"

#include "catalogue/Options.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "platform/media/Media.h"
#include "platform/media/Mpris.h"
#include "player/PlayerKeys.h"
#include "player/PlayerSettings.h"
#include "ui_frmPlay.h"

#include <QKeyEvent>

#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

frmPlay::frmPlay(frmPlayParts parts, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPlay>()), m_parts(std::move(parts)),
      m_media(m_parts.makeMediaPlayer())
{
    m_ui->setupUi(this);
    m_ui->WMPlayer->setPlayer(m_media.get());
    wire();
    Form_Load();
}

frmPlay::~frmPlay()
{
    m_ui->WMPlayer->setPlayer(nullptr);
}

void frmPlay::wire()
{
    connect(m_media.get(), &media::MediaPlayer::PlayStateChange, this, &frmPlay::WMPlayer_PlayStateChange);
    connect(m_media.get(), &media::MediaPlayer::mediaError, this, &frmPlay::showNote);
    m_keys = std::make_unique<PlayerKeys>(*this, *m_ui->WMPlayer, nullptr);
    media::RemoteHost host;
    host.raise = [this] {
        raise();
        activateWindow();
    };
    // The call itself must have come back before its objects go.
    host.quit = [this] {
        QMetaObject::invokeMethod(
            this, [this] { reject(); }, Qt::QueuedConnection);
    };
    m_remote = std::make_unique<media::PlayerRemote>(*m_media, std::move(host));
    m_mpris = std::make_unique<media::Mpris>(*m_remote);
}

void frmPlay::Form_Load()
{
    if (m_parts.services.options.TabletActive)
        sizeForFingers(*this);
    loadPlayerSettings(m_parts.services.optionsStore, *m_media);
    m_ui->WMPlayer->setFocus();
}

void frmPlay::play(const QString &title, const QString &FileName)
{
    if (!m_media)
        return;
    setWindowTitle(title);
    showNote(FileName.isEmpty() ? u"This song has no music file."_s : QString());
    m_media->setURL(FileName);
}

void frmPlay::WMPlayer_PlayStateChange(int NewState)
{
    if (NewState == media::Playing)
        showNote({});
    // A song that is set from within the event would wait for the user.
    if (NewState == media::MediaEnded)
        QMetaObject::invokeMethod(this, &frmPlay::songEnded, Qt::QueuedConnection);
}

void frmPlay::showNote(const QString &sentence)
{
    m_ui->lblMediaNote->setText(sentence);
    m_ui->lblMediaNote->setVisible(!sentence.isEmpty());
}

void frmPlay::keyPressEvent(QKeyEvent *event)
{
    if (!m_ui->WMPlayer->pressMediaKey(event->key()))
        QDialog::keyPressEvent(event);
}

void frmPlay::unload()
{
    m_unloading = true;
    done(Rejected);
}

void frmPlay::done(int result)
{
    const auto player = std::exchange(m_media, nullptr);
    if (!player)
        return;
    m_ui->WMPlayer->setPlayer(nullptr);
    m_mpris.reset();
    m_remote.reset();
    guarded(m_parts.services.desktop, windowTitle(),
            [&] { savePlayerSettings(*player, m_parts.services.optionsStore); });
    QDialog::done(result);
    if (!m_unloading)
        Q_EMIT closedByUser();
}

frmPlayWindow::frmPlayWindow(frmPlayParts parts, QWidget *owner) : m_parts(std::move(parts)), m_owner(owner)
{}

void frmPlayWindow::play(const QString &title, const QString &FileName)
{
    if (!m_form) {
        m_form = new frmPlay(m_parts, m_owner);
        m_form->setAttribute(Qt::WA_DeleteOnClose);
        QObject::connect(m_form, &frmPlay::songEnded, m_form, [this] { songEnded(); });
        QObject::connect(m_form, &frmPlay::closedByUser, m_form, [this] {
            m_form = nullptr;
            closedByUser();
        });
        m_form->open();
    }
    m_form->play(title, FileName);
}

void frmPlayWindow::unload()
{
    if (frmPlay *form = std::exchange(m_form, nullptr))
        form->unload();
}

} // namespace quaverly
