// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/media/Remote.h"

#include <QDBusConnection>
#include <QObject>
#include <QTimer>
#include <QVariantMap>

namespace media {

/**
 * The player on the desktop's session bus (MPRIS2), so that media keys and the desktop's player widget work
 * it. As long as the object lives the player is on the bus; a second one gets a name of its own. Without a
 * bus it does nothing.
 */
class Mpris final : public QObject
{
    Q_OBJECT

public:
    /**
     * @param target must outlive this object
     * @param busAddress empty: the session's bus, as the environment names it; none is started for it
     */
    explicit Mpris(RemoteTarget &target, const QString &busAddress = {});
    ~Mpris() override;

    [[nodiscard]] bool isOnBus() const { return m_bus.isConnected() && !m_service.isEmpty(); }
    [[nodiscard]] QString service() const { return m_service; }

private:
    void enter();
    void tellChanges();
    void target_Seeked(double seconds);
    [[nodiscard]] QVariantMap properties() const;

    RemoteTarget &m_target;
    QString m_connectionName;
    QDBusConnection m_bus;
    QString m_service;
    QTimer m_soon;
    QVariantMap m_told;
};

} // namespace media
