// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PlayListFixture.h"

#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace quaverly::test {

PlayListTest::PlayListTest()
    : m_screens({.services = m_store.services(m_desktop),
                 .player = m_player,
                 .state = m_state,
                 .displayed = m_displayed,
                 .LastMusicFolder = m_musicFolder,
                 .LastPlayListFolder = m_playListFolder,
                 .makeMediaPlayer = [this] { return makeMediaPlayer(); },
                 .populateReport = {},
                 .RunPlayListReport =
                     [this](PlayListReportKind kind, const PlayListName &list) {
                         const bool isShort = kind == PlayListReportKind::Detail;
                         m_reports += (isShort ? u"Detail "_s : u"DetailWithFileNames "_s) + list.ListName;
                     },
                 .showChangeFileNamePath = {}},
                [this] { return &m_owner; })
{
    m_displayed.setScreen(&m_mainScreen);
    for (const QString &name : {u"Say \"Hi\""_s, u"Take <> Five"_s, u"SOS"_s, u"Untitled"_s})
        m_store.addSong(Song(name, u"Artist"_s).file(u"/music/"_s, name + u".mp3"_s));
    m_displayed.Data1().setRecordSource(u"Select * from  tblContacts Order By RecordID"_s);
    m_displayed.Data1().Refresh();
    m_empty = addList(u"Empty"_s, 0);
    m_party = addList(u"Party"_s, 5);
    m_owner.show();
}

std::unique_ptr<media::MediaPlayer> PlayListTest::makeMediaPlayer()
{
    const media::MediaOptions silent{
        .audioOutput = u"null"_s, .outputFile = {}, .untimed = true, .moduleFolder = {}};
    auto player = media::MediaFactory(silent).makeMediaPlayer();
    QObject::connect(player.get(), &media::MediaPlayer::PlayStateChange, player.get(), [this](int state) {
        if (state == media::Playing)
            m_heard += playWindow()->windowTitle();
    });
    return player;
}

PlayListTest::~PlayListTest()
{
    if (isOpen())
        screen().close();
    m_displayed.Data1().Close();
}

qint64 PlayListTest::addList(const QString &name, int tracks)
{
    const qint64 list = m_lists.addList(name, {});
    for (int i = 0; i < tracks; ++i) {
        const QString title(QChar(u'A' + i));
        m_lists.addTrack(list, {.SongTitle = title, .ArtistName = u"Artist"_s});
    }
    return list;
}

void PlayListTest::open(const QString &remembered)
{
    m_state.CurrentPlayListName = remembered;
    m_screens.show([this] { m_state.AddingFromGrid = false; });
    ASSERT_TRUE(isOpen());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen()));
    QApplication::processEvents();
    if (auto *popup = QApplication::activePopupWidget())
        popup->close();
}

void PlayListTest::pick(const QString &list)
{
    auto &combo = control<QComboBox>(u"cmbHeader");
    key(&combo, Qt::Key_Home);
    while (combo.currentText() != list && combo.currentIndex() < combo.count() - 1)
        key(&combo, Qt::Key_Down);
    EXPECT_EQ(combo.currentText(), list);
}

void PlayListTest::clickRow(int row)
{
    const QRect place = lbDetail().visualRect(lbDetail().model()->index(row, 0));
    lbDetail().setFocus();
    QTest::mouseClick(lbDetail().viewport(), Qt::LeftButton, {}, place.center());
}

void PlayListTest::dragRow(int from, int to, bool escape)
{
    QWidget *view = lbDetail().viewport();
    const auto centre = [this](int row) {
        return lbDetail().visualRect(lbDetail().model()->index(row, 0)).center();
    };
    const auto mouse = [view](QEvent::Type type, QPoint at) {
        QMouseEvent event(type, at, view->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view, &event);
    };
    lbDetail().setFocus();
    mouse(QEvent::MouseButtonPress, centre(from));
    mouse(QEvent::MouseMove, centre(from) + QPoint(QApplication::startDragDistance() + 1, 0));
    mouse(QEvent::MouseMove, centre(from) + QPoint(QApplication::startDragDistance() + 2, 0));
    // This platform ends a drag as it begins, so that what it would deliver is delivered here.
    const std::unique_ptr<QMimeData> song(
        lbDetail().model()->mimeData(lbDetail().selectionModel()->selectedIndexes()));
    QDragEnterEvent enter(centre(from), Qt::MoveAction, song.get(), Qt::LeftButton, Qt::NoModifier);
    QDragMoveEvent move(centre(to), Qt::MoveAction, song.get(), Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(centre(to), Qt::MoveAction, song.get(), Qt::LeftButton, Qt::NoModifier);
    QDragLeaveEvent leave;
    for (QEvent *event :
         std::initializer_list<QEvent *>{&enter, &move, escape ? static_cast<QEvent *>(&leave) : &drop})
        QApplication::sendEvent(view, event);
}

void PlayListTest::scrollByDrag()
{
    QWidget *view = lbDetail().viewport();
    control<QComboBox>(u"cmbHeader").setFocus();
    const std::unique_ptr<QMimeData> song(lbDetail().model()->mimeData({lbDetail().model()->index(0, 0)}));
    const QPoint edge(view->width() / 2, view->height() - 2);
    QDragEnterEvent enter(edge, Qt::MoveAction, song.get(), Qt::LeftButton, Qt::NoModifier);
    QDragMoveEvent move(edge, Qt::MoveAction, song.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view, &enter);
    QApplication::sendEvent(view, &move);
    EXPECT_TRUE(QTest::qWaitFor([this] { return lbDetail().verticalScrollBar()->value() > 0; }));
    QDragLeaveEvent leave;
    QApplication::sendEvent(view, &leave);
    lbDetail().setFocus(); // and forgets the drag, which moved nothing
}

void PlayListTest::inScreen(const std::function<void(QWidget &)> &act)
{
    QWidget *over = nullptr;
    EXPECT_TRUE(QTest::qWaitFor([&] {
        over = QApplication::activeModalWidget();
        return over && over != &screen() && QApplication::activeWindow() == over;
    }));
    if (over && over != &screen())
        act(*over);
    QApplication::processEvents();
}

QStringList PlayListTest::rows() const
{
    QStringList texts;
    for (int row = 0; row < lbDetail().model()->rowCount(); ++row)
        texts += lbDetail().model()->index(row, 0).data().toString();
    return texts;
}

QString PlayListTest::stored(qint64 list)
{
    return m_store
        .column(u"select SongTitle from tblPlayListDetail Where ListID=%1 Order By ListTrackID"_s.arg(list))
        .join(u' ');
}

QString PlayListTest::numbers(qint64 list)
{
    return m_store
        .column(u"select ListTrackID from tblPlayListDetail Where ListID=%1 Order By ListTrackID"_s.arg(list))
        .join(u' ');
}

} // namespace quaverly::test
