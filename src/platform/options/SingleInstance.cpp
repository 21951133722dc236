// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/options/SingleInstance.h"

#include <QFile>
#include <QLocalSocket>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int PatienceMs = 1000;
constexpr qint64 LongestRequest = 1024;
const QByteArray RaiseRequest = "raise";
constexpr char ActivationToken[] = "XDG_ACTIVATION_TOKEN";

} // namespace

SingleInstance::SingleInstance(const QString &folder, QObject *parent)
    : QObject(parent), m_lockFile(folder + u"Quaverly.lock"_s), m_socketFile(folder + u"Quaverly.socket"_s)
{
    takeLock();
    if (m_lock >= 0)
        listen();
}

SingleInstance::~SingleInstance()
{
    m_server.close();
    if (m_lock >= 0)
        ::close(m_lock);
}

void SingleInstance::takeLock()
{
    m_lock = ::open(QFile::encodeName(m_lockFile).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW,
                    S_IRUSR | S_IWUSR);
    // The kernel drops this lock with the process that holds it, however that one ends.
    if (m_lock < 0 || ::flock(m_lock, LOCK_EX | LOCK_NB) == 0)
        return;
    m_prevInstance = errno == EWOULDBLOCK;
    ::close(m_lock);
    m_lock = -1;
}

void SingleInstance::listen()
{
    QLocalServer::removeServer(m_socketFile); // what a crash left behind; the lock says that it is nobody's
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::server_NewConnection);
    m_server.listen(m_socketFile);
}

void SingleInstance::server_NewConnection()
{
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        socket->setReadBufferSize(LongestRequest);
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        const auto read = [this, socket] {
            if (!socket->canReadLine())
                return;
            const QList<QByteArray> words = socket->readLine(LongestRequest).trimmed().split(' ');
            socket->disconnectFromServer();
            if (words.first() != RaiseRequest)
                return;
            // On Wayland a window comes to the front only with the token of the start that asked for it.
            if (words.size() > 1)
                qputenv(ActivationToken, words.at(1));
            Q_EMIT raiseRequested();
        };
        connect(socket, &QLocalSocket::readyRead, this, read);
        read();
    }
}

bool SingleInstance::raiseOther()
{
    QLocalSocket socket;
    socket.connectToServer(m_socketFile);
    if (!socket.waitForConnected(PatienceMs))
        return false;
    const QByteArray token = qgetenv(ActivationToken);
    socket.write(RaiseRequest + (token.isEmpty() ? token : ' ' + token) + '\n');
    const bool sent = socket.waitForBytesWritten(PatienceMs);
    socket.disconnectFromServer();
    return sent;
}

} // namespace quaverly
