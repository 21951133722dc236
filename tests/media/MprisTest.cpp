// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/Mpris.h"
#include "media/MediaFixture.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusReply>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

namespace media::test {

namespace {

const auto Service = u"org.mpris.MediaPlayer2.quaverly"_s;
const auto ObjectPath = u"/org/mpris/MediaPlayer2"_s;
const auto RootInterface = u"org.mpris.MediaPlayer2"_s;
const auto PlayerInterface = u"org.mpris.MediaPlayer2.Player"_s;
const auto Properties = u"org.freedesktop.DBus.Properties"_s;

} // namespace

/** The desktop's side: hears what the player tells the bus. */
class Listener final : public QObject
{
    Q_OBJECT

public:
    QVariantMap changed;
    qlonglong seekedTo = -1;

public Q_SLOTS:
    void PropertiesChanged(const QString & /*interface*/, const QVariantMap &properties,
                           const QStringList & /*invalidated*/)
    {
        changed.insert(properties);
    }
    void Seeked(qlonglong position) { seekedTo = position; }
};

namespace {

/** A bus of the test's own, a player on it and a desktop that works it. */
class MprisTest : public MediaTest
{
protected:
    void SetUp() override
    {
        const QString config = file(u"bus.conf"_s, R"(<busconfig><type>session</type>
            <listen>unix:tmpdir=/tmp</listen><auth>EXTERNAL</auth>
            <policy context="default"><allow send_destination="*"/><allow receive_sender="*"/>
            <allow own="*"/></policy></busconfig>)");
        m_daemon.start(u"dbus-daemon"_s,
                       {u"--nofork"_s, u"--print-address=1"_s, u"--config-file="_s + config});
        ASSERT_TRUE(m_daemon.waitForReadyRead(10'000)) << "dbus-daemon did not start";
        m_address = QString::fromLatin1(m_daemon.readLine()).trimmed();
        m_desktop = QDBusConnection::connectToBus(m_address, u"desktop"_s);
        ASSERT_TRUE(m_desktop.isConnected());

        usePlayer(silently(false));
        m_remote = std::make_unique<PlayerRemote>(player(), RemoteHost{.raise = [this] { ++m_raised; },
                                                                       .quit = [this] { ++m_quit; },
                                                                       .setLoop = {},
                                                                       .setShuffle = {},
                                                                       .title = [] { return u"The title"_s; },
                                                                       .artist = {}});
        m_mpris = std::make_unique<Mpris>(*m_remote, m_address);
        ASSERT_TRUE(m_mpris->isOnBus());
        m_desktop.connect(Service, ObjectPath, Properties, u"PropertiesChanged"_s, &m_listener,
                          SLOT(PropertiesChanged(QString, QVariantMap, QStringList)));
        m_desktop.connect(Service, ObjectPath, PlayerInterface, u"Seeked"_s, &m_listener,
                          SLOT(Seeked(qlonglong)));
    }
    void TearDown() override
    {
        m_mpris.reset();
        m_remote.reset();
        QDBusConnection::disconnectFromBus(u"desktop"_s);
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    QDBusMessage call(const QString &interface, const QString &method, const QVariantList &arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(Service, ObjectPath, interface, method);
        message.setArguments(arguments);
        const QDBusPendingCall pending = m_desktop.asyncCall(message);
        EXPECT_TRUE(QTest::qWaitFor([&] { return pending.isFinished(); }));
        EXPECT_FALSE(pending.isError()) << pending.error().message().toStdString();
        return pending.reply();
    }
    void play(const QString &method, const QVariantList &arguments = {})
    {
        call(PlayerInterface, method, arguments);
    }
    QVariant get(const QString &property)
    {
        return call(Properties, u"Get"_s, {PlayerInterface, property})
            .arguments()
            .value(0)
            .value<QDBusVariant>()
            .variant();
    }
    void set(const QString &property, const QVariant &value)
    {
        call(Properties, u"Set"_s, {PlayerInterface, property, QVariant::fromValue(QDBusVariant(value))});
    }
    /** Waits until the bus told that the property has that value. */
    bool told(const QString &property, const QVariant &value)
    {
        return QTest::qWaitFor([&] { return m_listener.changed.value(property) == value; });
    }
    QVariantMap metadata() { return qdbus_cast<QVariantMap>(get(u"Metadata"_s)); }

    QProcess m_daemon;
    QString m_address;
    QDBusConnection m_desktop{QString()};
    Listener m_listener;
    std::unique_ptr<PlayerRemote> m_remote;
    std::unique_ptr<Mpris> m_mpris;
    int m_raised = 0;
    int m_quit = 0;
};

TEST_F(MprisTest, TheDesktopPlaysPausesAndStops)
{
    player().setURL(list({longSong(u"a b.wav"_s), longSong(u"b.wav"_s)}));
    EXPECT_TRUE(told(u"PlaybackStatus"_s, u"Playing"_s));
    play(u"PlayPause"_s);
    EXPECT_TRUE(told(u"PlaybackStatus"_s, u"Paused"_s));
    play(u"Pause"_s);
    play(u"PlayPause"_s);
    EXPECT_TRUE(told(u"PlaybackStatus"_s, u"Playing"_s));
    play(u"Stop"_s);
    EXPECT_TRUE(told(u"PlaybackStatus"_s, u"Stopped"_s));
    play(u"Play"_s);
    EXPECT_TRUE(told(u"PlaybackStatus"_s, u"Playing"_s));
    EXPECT_EQ(get(u"PlaybackStatus"_s), u"Playing"_s);

    events();
    play(u"Next"_s);
    eventsUntil(u"item b"_s);
    play(u"Previous"_s);
    eventsUntil(u"item a b"_s);
}

TEST_F(MprisTest, MetadataTellsTheSongAndTheDesktopSeeksInIt)
{
    EXPECT_EQ(get(u"CanPlay"_s), false);
    EXPECT_TRUE(metadata().isEmpty());
    player().setURL(longSong(u"a b.wav"_s));
    eventsUntil(u"3"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return player().currentMedia().duration > 0; }));
    const QVariantMap song = metadata();
    EXPECT_EQ(song.value(u"xesam:title"_s), u"The title"_s);
    EXPECT_EQ(song.value(u"mpris:trackid"_s).value<QDBusObjectPath>().path(), u"/org/quaverly/Track/0"_s);
    EXPECT_NEAR(song.value(u"mpris:length"_s).toDouble(), 600e6, 1e5);
    EXPECT_TRUE(song.value(u"xesam:url"_s).toString().startsWith(u"file:///"_s));
    EXPECT_TRUE(song.value(u"xesam:url"_s).toString().endsWith(u"/a%20b.wav"_s));
    EXPECT_EQ(get(u"CanPlay"_s), true);
    EXPECT_EQ(get(u"CanGoNext"_s), false) << "a single song";
    EXPECT_EQ(get(u"CanSeek"_s), true);

    const auto track = [](int number) {
        return QVariant::fromValue(QDBusObjectPath(u"/org/quaverly/Track/%1"_s.arg(number)));
    };
    play(u"SetPosition"_s, {track(0), 200'000'000LL});
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_listener.seekedTo >= 199'000'000; }));
    play(u"Seek"_s, {100'000'000LL});
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_listener.seekedTo >= 299'000'000; }));
    EXPECT_GE(get(u"Position"_s).toLongLong(), 299'000'000);
    // Another song's, and beyond the end.
    play(u"SetPosition"_s, {track(1), 0LL});
    play(u"SetPosition"_s, {track(0), 900'000'000LL});
    EXPECT_GE(get(u"Position"_s).toLongLong(), 299'000'000);
}

TEST_F(MprisTest, ModesAndVolumeGoBothWaysAndTheProgramComesAndGoes)
{
    set(u"Volume"_s, 0.4);
    EXPECT_EQ(player().settings().volume(), 40);
    EXPECT_TRUE(told(u"Volume"_s, 0.4));
    set(u"Shuffle"_s, true);
    EXPECT_TRUE(player().settings().getMode(u"shuffle"_s));
    set(u"LoopStatus"_s, u"Playlist"_s);
    EXPECT_TRUE(player().settings().getMode(u"loop"_s));
    EXPECT_TRUE(told(u"LoopStatus"_s, u"Playlist"_s));
    player().settings().setMode(u"loop"_s, false);
    EXPECT_TRUE(told(u"LoopStatus"_s, u"None"_s));

    call(RootInterface, u"Raise"_s);
    call(RootInterface, u"Quit"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_raised == 1 && m_quit == 1; }));
    const auto all =
        qdbus_cast<QVariantMap>(call(Properties, u"GetAll"_s, {RootInterface}).arguments().value(0));
    EXPECT_EQ(all.value(u"Identity"_s), u"Quaverly"_s);
    EXPECT_EQ(all.value(u"DesktopEntry"_s), u"quaverly"_s);
}

TEST_F(MprisTest, ASecondPlayerHasANameOfItsOwnAndBothLeave)
{
    const auto own = [this](const QString &name) {
        return bool(m_desktop.interface()->isServiceRegistered(name));
    };
    {
        const Mpris second(*m_remote, m_address);
        EXPECT_TRUE(second.service().startsWith(Service + u".instance"_s));
        EXPECT_TRUE(own(second.service()));
    }
    m_mpris.reset();
    EXPECT_FALSE(own(Service));
}

TEST_F(MprisTest, WithoutABusItIsQuiet)
{
    for (const QString &address : {u"unix:path=/nonexistent/bus"_s, u"nonsense"_s}) {
        const Mpris alone(*m_remote, address);
        EXPECT_FALSE(alone.isOnBus());
    }
    m_daemon.kill();
    m_daemon.waitForFinished();
    player().setURL(song(u"a.mp3"_s));
    EXPECT_EQ(eventsUntilStopped(), u"10, item a, 9, 3, 8, 1"_s) << "the bus went away";
}

} // namespace

} // namespace media::test

#include "MprisTest.moc"
