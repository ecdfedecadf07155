#include "platform/linux/DesktopWorkspace.h"

#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QProcess>
#include <QUrl>
#include <QVariantMap>

namespace orvana::platform::linux_host
{

namespace
{

constexpr int PatienceMilliseconds = 2000;

/// A connection to a bus that ends with the object.
class Bus
{
public:
    Bus(QDBusConnection::BusType type, const std::string &address)
        : m_name(QStringLiteral("orvana-workspace-%1").arg(type)),
          m_connection(address.empty()
                           ? QDBusConnection::connectToBus(type, m_name)
                           : QDBusConnection::connectToBus(QString::fromStdString(address), m_name))
    {
    }
    ~Bus() { QDBusConnection::disconnectFromBus(m_name); }
    Bus(const Bus &) = delete;
    Bus &operator=(const Bus &) = delete;

    QDBusConnection &connection() { return m_connection; }

    /// Calls and waits, at most for the time that a desktop's service takes at its worst.
    QDBusMessage call(const QDBusMessage &message)
    {
        return m_connection.isConnected() ? m_connection.call(message, QDBus::Block, PatienceMilliseconds)
                                          : QDBusMessage();
    }

private:
    QString m_name;
    QDBusConnection m_connection;
};

QString shown(const std::string &text)
{
    return QString::fromStdString(displayPath(text));
}

QDBusMessage inhibit(const QString &what, const std::string &reason)
{
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
    message << what << QStringLiteral("Orvana Plurimo") << shown(reason) << QStringLiteral("block");
    return message;
}

} // namespace

DesktopWorkspace::DesktopWorkspace(std::string sessionBus, std::string systemBus)
    : m_sessionBus(std::move(sessionBus)), m_systemBus(std::move(systemBus))
{
}

void DesktopWorkspace::openPage(const std::string &address)
{
    const QUrl page(QString::fromStdString(address));
    if (page.scheme() != QStringLiteral("https") && page.scheme() != QStringLiteral("http")) {
        systemLog(displayPath(address) + " is no page of the web");
        return;
    }
    const auto text = page.toString(QUrl::FullyEncoded);
    // The portal knows the way out of a sandbox, and which browser the user chose.
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.OpenURI"), QStringLiteral("OpenURI"));
    message << QString() << text << QVariantMap();
    if (Bus(QDBusConnection::SessionBus, m_sessionBus).call(message).type() == QDBusMessage::ReplyMessage)
        return;
    if (!QProcess::startDetached(QStringLiteral("xdg-open"), {text}))
        systemLog("No browser could be started for " + displayPath(address));
}

void DesktopWorkspace::notify(const std::string &title, const std::string &text)
{
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    message << QStringLiteral("Orvana Plurimo") << 0U << QStringLiteral("orvana-plurimo") << shown(title)
            << shown(text).toHtmlEscaped() << QStringList()
            << QVariantMap{{QStringLiteral("desktop-entry"), QStringLiteral("orvana-plurimo")}} << -1;
    Bus(QDBusConnection::SessionBus, m_sessionBus).call(message);
}

std::shared_ptr<void> DesktopWorkspace::holdOffSleep(const std::string &reason)
{
    Bus bus(QDBusConnection::SystemBus, m_systemBus);
    // Not every user may keep the lid from putting the machine to sleep.
    for (const auto *what : {"sleep:idle:handle-lid-switch", "sleep:idle"}) {
        const auto reply = bus.call(inhibit(QString::fromLatin1(what), reason));
        if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
            continue;
        const auto held = reply.arguments().constFirst().value<QDBusUnixFileDescriptor>();
        if (held.isValid())
            return std::make_shared<QDBusUnixFileDescriptor>(held); // sleep is held off while it is open
    }
    return nullptr;
}

} // namespace orvana::platform::linux_host
