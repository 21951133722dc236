// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>

namespace quaverly {

/**
 * Tells a second start of the program from the first one of this user. Belongs to the
 * user-interface thread and lives as long as the program.
 */
class SingleInstance final : public QObject
{
    Q_OBJECT

public:
    /**
     * Takes the place of the running program if it is free. A holder that crashed doesn't keep it, and
     * a @p folder that can't be used (no private one exists) never keeps the program from starting.
     */
    explicit SingleInstance(const QString &folder, QObject *parent = nullptr);
    ~SingleInstance() override;

    /** True when the program was running already when this object was made. */
    [[nodiscard]] bool PrevInstance() const { return m_prevInstance; }

    /** Asks the running program to raise its window; false when it could not be reached. */
    bool raiseOther();

Q_SIGNALS:
    /** A second start has asked for this program's window. */
    void raiseRequested();

private:
    void takeLock();
    void listen();
    void server_NewConnection();

    QString m_lockFile;
    QString m_socketFile;
    QLocalServer m_server;
    int m_lock = -1;
    bool m_prevInstance = false;
};

} // namespace quaverly
