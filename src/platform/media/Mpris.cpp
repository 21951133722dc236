// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/Mpris.h"

#include "platform/media/MprisAdaptors.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QFileInfo>
#include <QMetaProperty>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace media {

namespace {

const auto ObjectPath = u"/org/mpris/MediaPlayer2"_s;
const auto ServiceName = u"org.mpris.MediaPlayer2.quaverly"_s;
const auto PlayerInterface = u"org.mpris.MediaPlayer2.Player"_s;
const auto PropertiesInterface = u"org.freedesktop.DBus.Properties"_s;
constexpr char PositionProperty[] = "Position"; // moves all the time; those who want it ask for it

/** The bus of the session; empty without one. Asking for "the" bus instead might start one. */
QString sessionBus()
{
    QString named = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!named.isEmpty())
        return named;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString socket = runtime + u"/bus"_s;
    return runtime.isEmpty() || !QFileInfo::exists(socket) ? QString() : u"unix:path="_s + socket;
}

QDBusConnection connectionTo(const QString &address, const QString &name)
{
    return address.isEmpty() ? QDBusConnection(name) : QDBusConnection::connectToBus(address, name);
}

} // namespace

Mpris::Mpris(RemoteTarget &target, const QString &busAddress)
    : m_target(target), m_connectionName(u"Quaverly-"_s + QUuid::createUuid().toString(QUuid::Id128)),
      m_bus(connectionTo(busAddress.isEmpty() ? sessionBus() : busAddress, m_connectionName))
{
    if (m_bus.isConnected())
        enter();
}

Mpris::~Mpris()
{
    if (isOnBus())
        m_bus.unregisterService(m_service);
    m_bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(m_connectionName);
}

void Mpris::enter()
{
    new MprisRoot(this, m_target);
    new MprisPlayer(this, m_target);
    if (!m_bus.registerObject(ObjectPath, this, QDBusConnection::ExportAdaptors))
        return;
    const QString own = ServiceName + u".instance%1"_s.arg(QCoreApplication::applicationPid());
    for (const QString &name : {ServiceName, own}) {
        if (m_service.isEmpty() && m_bus.registerService(name))
            m_service = name;
    }
    m_told = properties();
    m_soon.setSingleShot(true);
    m_soon.setInterval(0);
    // What changes in one go is told in one message.
    connect(&m_soon, &QTimer::timeout, this, &Mpris::tellChanges);
    connect(&m_target, &RemoteTarget::changed, &m_soon, qOverload<>(&QTimer::start));
    connect(&m_target, &RemoteTarget::seeked, this, &Mpris::target_Seeked);
}

QVariantMap Mpris::properties() const
{
    const auto *player = findChild<MprisPlayer *>();
    const QMetaObject &meta = MprisPlayer::staticMetaObject;
    QVariantMap all;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        if (qstrcmp(property.name(), PositionProperty) != 0)
            all.insert(QString::fromLatin1(property.name()), property.read(player));
    }
    return all;
}

void Mpris::tellChanges()
{
    const QVariantMap now = properties();
    QVariantMap changes;
    for (auto it = now.begin(); it != now.end(); ++it) {
        if (m_told.value(it.key()) != it.value())
            changes.insert(it.key(), it.value());
    }
    m_told = now;
    if (changes.isEmpty())
        return;
    QDBusMessage message =
        QDBusMessage::createSignal(ObjectPath, PropertiesInterface, u"PropertiesChanged"_s);
    message << PlayerInterface << changes << QStringList();
    m_bus.send(message);
}

void Mpris::target_Seeked(double seconds)
{
    Q_EMIT findChild<MprisPlayer *>()->Seeked(qRound64(seconds * 1e6));
}

} // namespace media
