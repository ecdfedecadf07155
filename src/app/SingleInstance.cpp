#include "app/SingleInstance.h"

#include <QCryptographicHash>
#include <QLocalSocket>

#include <unistd.h>
#include <utility>

namespace orvana
{

namespace
{

constexpr int PatienceMilliseconds = 2000;

} // namespace

SingleInstance::SingleInstance(const QString &machine)
{
    const auto digest = QCryptographicHash::hash(machine.toUtf8(), QCryptographicHash::Sha256).toHex();
    m_name = QStringLiteral("orvana-plurimo-%1-%2").arg(::getuid()).arg(QString::fromLatin1(digest.left(16)));
}

bool SingleInstance::askTheFirst() const
{
    QLocalSocket socket;
    socket.connectToServer(m_name);
    // A program that is erasing disks cannot answer, but the connection succeeds. The socket that a killed
    // program left behind refuses the connection.
    return socket.waitForConnected(PatienceMilliseconds);
}

void SingleInstance::listen(std::function<void()> raise)
{
    QLocalServer::removeServer(m_name);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this, raise = std::move(raise)] {
        while (auto *socket = m_server.nextPendingConnection()) {
            QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            socket->disconnectFromServer();
            raise();
        }
    });
    m_server.listen(m_name);
}

} // namespace orvana
