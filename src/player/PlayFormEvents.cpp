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
        const bool goesOn = change.checks.cbPlayNext || change.checks.cbPlayRandom;
        if (NewState == media::Playing && !(goesOn && m_media->controls().hasNext()))
            planFollowing();
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
        followOneFile();
        ItemChange change;
        change.playState = m_media->playState();
        change.Url = m_media->currentMedia().sourceURL;
        change.itemName = m_media->controls().currentItem().name;
        change.cbLoop = m_ui->cbLoop->isChecked();
        change.cbShuffle = m_ui->cbShuffle->isChecked();
        selectRow(decideItemChange(change, m_queue));
    });
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
            },
            {nullptr, Icon::None});
}

void PlayForm::PlayNextRandom(NextMode mode)
{
    guarded(m_parts.services.desktop, u"Error in PlayNextRandom routine"_s, [this, mode] {
        // What was planned comes by itself, if it is still there.
        const QString planned = m_walked.url(m_walked.count() - 1);
        if (!m_nextSong || (m_media->controls().hasNext() && FileExists(planned)))
            return;
        m_media->controls().setFollowing({});
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
    const QString row = songRow(song.SongName, song.Artist);
    m_walked.add(row, path);
    showOneSong(row, path);
    m_media->setURL(path);
}

void PlayForm::showOneSong(const QString &row, const QString &path)
{
    const QString fileName = fileNameOf(path);
    m_parts.state.CurrentPlayUrl = path;
    m_parts.state.CurrentPlayTitle = fileName;
    m_queue.clear();
    m_queue.add(row, path);
    showQueue();
    setWindowTitle(fileName);
}

void PlayForm::planFollowing()
{
    quietly([this] { m_media->controls().setFollowing(followingFile()); });
}

QString PlayForm::followingFile()
{
    const PlayerChecks now = checks();
    const QString &current = m_parts.state.CurrentPlayUrl;
    if (!m_nextSong || !isOneFile(current) || !(now.cbPlayNext || now.cbPlayRandom))
        return {};
    const auto song = m_nextSong->find(now.cbPlayRandom ? NextMode::Random : NextMode::Next, current);
    QString path = song ? song->PathName + song->FileName : QString();
    // One that isn't there is told of when its turn has come.
    if (!song || song->FileName.isEmpty() || !FileExists(path))
        return {};
    m_walked.add(songRow(song->SongName, song->Artist), path);
    return path;
}

void PlayForm::followOneFile()
{
    const QString url = m_media->currentMedia().sourceURL;
    const qsizetype row = m_walked.urls().lastIndexOf(url);
    if (isOneFile(m_parts.state.CurrentPlayUrl) && url != m_parts.state.CurrentPlayUrl && row >= 0)
        showOneSong(m_walked.song(static_cast<int>(row)), url);
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
