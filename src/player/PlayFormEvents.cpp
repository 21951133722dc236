// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayForm.h"

#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "lists/PlayerState.h"
#include "platform/media/Media.h"
#include "player/FileNotFound.h"
#include "ui_PlayForm.h"

using namespace Qt::StringLiterals;

// What the media control reports, and what the user's click on a song asks of it.
namespace quaverly {

void PlayForm::wireMedia()
{
    connect(m_media.get(), &media::MediaPlayer::PlayStateChange, this,
            &PlayForm::WindowsMediaPlayer1_PlayStateChange);
    connect(m_media.get(), &media::MediaPlayer::CurrentItemChange, this,
            &PlayForm::WindowsMediaPlayer1_CurrentItemChange);
    connect(m_media.get(), &media::MediaPlayer::mediaError, this, &PlayForm::showNote);
    connect(m_media.get(), &media::MediaPlayer::itemSkipped, this, &PlayForm::showSkipped);
}

PlayerChecks PlayForm::checks() const
{
    return {m_ui->cbPlayNext->isChecked(), m_ui->cbPlayRandom->isChecked(), m_ui->cbLoop->isChecked(),
            m_ui->cbShuffle->isChecked(), m_ui->cbSkipDups->isChecked()};
}

void PlayForm::WindowsMediaPlayer1_PlayStateChange(int NewState)
{
    // What was passed over is told while the song behind it plays, an end until something plays again.
    const bool isOver = NewState == media::MediaEnded || (NewState == media::Playing && !m_noteIsOfSkip);
    if (isOver)
        showNote({});
    quietly([this, NewState] {
        StateChange change;
        change.NewState = NewState;
        change.playState = m_media->playState();
        change.CurrentPlayUrl = m_parts.state.CurrentPlayUrl;
        change.checks = checks();
        change.songs = m_queue.count();
        change.ListIndex = m_queue.ListIndex();
        change.endsProgram = !m_parts.state.RestartingPlayer && m_parts.isLastScreen();
        obey(decideStateChange(change));
    });
}

void PlayForm::obey(const StateDecision &decision)
{
    switch (decision.step) {
    case StateStep::Play:
        m_media->controls().play();
        break;
    case StateStep::EndProgram:
        close();
        m_parts.endProgram();
        break;
    case StateStep::Unload:
        close();
        break;
    case StateStep::PlayRandom:
        PlayNextRandom(NextMode::Random);
        break;
    case StateStep::PlayNext:
        PlayNextRandom(NextMode::Next);
        break;
    case StateStep::Follow:
        followList(decision.follow);
        break;
    }
}

void PlayForm::followList(const StateFollow &steps)
{
    if (steps.play)
        m_media->controls().play();
    if (steps.focusControl)
        focusControl();
    if (steps.advance)
        selectRow(m_queue.ListIndex() + 1);
    if (steps.skipDuplicates)
        passOverDuplicates();
    if (m_queue.hasSelection())
        m_ui->lbSongs->scrollTo(m_ui->lbSongs->currentIndex(), QAbstractItemView::PositionAtTop);
}

void PlayForm::passOverDuplicates()
{
    const DuplicateSkip skip = skipDuplicates(m_queue);
    for (int i = 0; i < skip.nexts; ++i)
        m_media->controls().next();
    selectRow(skip.row);
}

void PlayForm::WindowsMediaPlayer1_CurrentItemChange()
{
    quietly([this] {
        ItemChange change;
        change.playState = m_media->playState();
        change.Url = m_media->currentMedia().sourceURL;
        change.itemName = m_media->controls().currentItem().name;
        change.cbLoop = m_ui->cbLoop->isChecked();
        change.cbShuffle = m_ui->cbShuffle->isChecked();
        const ItemDecision decision = decideItemChange(change, m_queue);
        selectRow(decision.row);
        if (decision.focusControl && m_queue.hasSelection())
            focusControl();
    });
}

void PlayForm::focusControl()
{
    m_ui->WindowsMediaPlayer1->setFocus();
}

void PlayForm::lbSongs_Click(int row)
{
    guarded(m_parts.services.desktop, u"PlayForm.lbSongs_Click"_s,
            [this, row] {
                m_ui->cbLoop->setChecked(false);
                selectRow(row);
                media::MediaControls &controls = m_media->controls();
                controls.stop();
                const bool wasRead = controls.currentItem().name != QStringView(TemporaryListItem);
                if (wasRead)
                    controls.setCurrentItem(m_media->currentPlaylist().Item(row));
                controls.play();
                controls.setCurrentItem(m_media->currentPlaylist().Item(row));
                focusControl();
            },
            {nullptr, Icon::None});
}

void PlayForm::PlayNextRandom(NextMode mode)
{
    guarded(m_parts.services.desktop, u"Error in PlayNextRandom routine"_s, [this, mode] {
        if (!m_nextSong)
            return;
        if (const auto song = m_nextSong->find(mode, m_parts.state.CurrentPlayUrl))
            playNextSong(*song);
    });
}

void PlayForm::playNextSong(const NextSongFile &song)
{
    const QString path = song.PathName + song.FileName;
    if (song.FileName.isEmpty() || !FileExists(path)) {
        ShowFileNotFound(m_parts.services.desktop, path);
        close();
        return;
    }
    m_parts.state.CurrentPlayUrl = path;
    m_parts.state.CurrentPlayTitle = song.FileName;
    m_queue.clear();
    m_queue.add(songRow(song.SongName, song.Artist), path);
    showQueue();
    setWindowTitle(song.FileName);
    m_media->setURL(path);
}

void PlayForm::showSkipped(const QString & /*sourceURL*/, const QString &sentence)
{
    showNote(sentence);
    m_noteIsOfSkip = true;
}

void PlayForm::showNote(const QString &sentence)
{
    m_noteIsOfSkip = false;
    m_ui->lblMediaNote->setText(sentence);
    m_ui->lblMediaNote->setVisible(!sentence.isEmpty());
}

} // namespace quaverly
