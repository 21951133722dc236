// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayerFixture.h"

#include "player/TemporaryList.h"
#include "support/Files.h"

#include <QListView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quaverly::test {

media::Token SteppedEngine::open(const QString & /*path*/, bool paused)
{
    m_paused = paused;
    m_current = ++m_last;
    start();
    return m_current;
}

media::Token SteppedEngine::setNext(const QString &path)
{
    m_next = path.isEmpty() ? 0 : ++m_last;
    return m_next;
}

void SteppedEngine::start()
{
    m_listener->fileDetails(m_current, {.duration = 200, .title = {}, .artist = {}, .album = {}});
    m_listener->started(m_current);
}

void SteppedEngine::finish()
{
    m_listener->ended(m_current);
    m_current = std::exchange(m_next, 0);
    if (m_current != 0)
        start();
}

PlayerTest::PlayerTest()
    : m_forms({.services = m_store.services(m_desktop),
               .state = m_state,
               .displayed = m_data,
               .makeMediaPlayer = [this] { return makeMediaPlayer(); },
               .isLastScreen = [this] { return m_lastScreen; },
               .endProgram = [this] { ++m_ends; },
               .random = [this] { return m_random; }}),
      m_commands({.services = m_store.services(m_desktop),
                  .player = m_forms,
                  .state = m_state,
                  .displayed = m_data,
                  .shell = *m_shell,
                  .LastMusicFolder = m_lastMusicFolder,
                  .gatherFolders =
                      [this](const QString &root) {
                          m_gathered.prepend(root);
                          return m_gathered;
                      },
                  .showPlayLists =
                      [this](const std::function<void()> &closed) {
                          EXPECT_TRUE(m_state.AddingFromGrid);
                          ++m_playListScreens;
                          closed();
                      },
                  .showSongAdded = [this] { ++m_songsAdded; }})
{
    QDir().mkpath(music());
    m_options.WindowsVersionMajor = 6;
    display();
}

PlayerTest::~PlayerTest()
{
    m_forms.unload();
    m_data.Close();
}

std::unique_ptr<media::MediaPlayer> PlayerTest::makeMediaPlayer()
{
    std::unique_ptr<media::MediaPlayer> made;
    if (m_mediaOptions.audioOutput.isEmpty()) {
        made = std::make_unique<media::MediaPlayer>([this] {
            auto engine = std::make_unique<SteppedEngine>();
            m_engine = engine.get();
            return engine;
        });
    } else {
        made = media::MediaFactory(m_mediaOptions).makeMediaPlayer();
    }
    m_player = made.get();
    m_events.clear();
    QObject::connect(m_player, &media::MediaPlayer::PlayStateChange, m_player,
                     [this](int state) { m_events += QString::number(state); });
    QObject::connect(m_player, &media::MediaPlayer::CurrentItemChange, m_player,
                     [this] { m_events += QFileInfo(player().currentMedia().sourceURL).fileName(); });
    return made;
}

void PlayerTest::playForReal()
{
    m_mediaOptions.audioOutput = u"null"_s;
    m_mediaOptions.untimed = true;
}

void PlayerTest::write(const QString &name, const QByteArray &bytes) const
{
    writeFile(music(name), bytes);
}

qint64 PlayerTest::catalogued(const QString &name, const QString &artist, const QString &fileName)
{
    return m_store.addSong(Song(name, artist).file(music(), fileName));
}

qint64 PlayerTest::song(const QString &name, const QString &artist, const QString &fileName)
{
    write(fileName);
    return catalogued(name, artist, fileName);
}

void PlayerTest::display(const QString &sql)
{
    m_data.setRecordSource(sql);
    m_data.Refresh();
}

QStringList PlayerTest::texts(const QString &list)
{
    QStringList texts;
    const auto *model = control<QListView>(list).model();
    for (int row = 0; row < model->rowCount(); ++row)
        texts += model->index(row, 0).data().toString();
    return texts;
}

int PlayerTest::ListIndex()
{
    const int row = control<QListView>(u"lbSongs"_s).currentIndex().row();
    EXPECT_EQ(control<QListView>(u"lbSongURL"_s).currentIndex().row(), row);
    return row;
}

bool PlayerTest::isShown(const QString &name)
{
    return control<QWidget>(name).isVisible();
}

QByteArray PlayerTest::listFile() const
{
    const QString file = temporaryList(m_store.folder());
    return QFile::exists(file) ? bytesOf(file) : QByteArray();
}

QString PlayerTest::playing()
{
    return QFileInfo(player().currentMedia().sourceURL).fileName();
}

void PlayerTest::waitFor(const QString &fileName)
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return form() && m_events.endsWith(u"3"_s) && playing() == fileName; }))
        << fileName.toStdString() << " does not play: " << m_events.join(u' ').toStdString();
}

void PlayerTest::finishSong()
{
    ASSERT_TRUE(m_engine->isBusy());
    m_events.clear();
    m_engine->finish();
}

} // namespace quaverly::test
