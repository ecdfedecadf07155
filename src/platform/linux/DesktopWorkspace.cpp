#include "platform/linux/DesktopWorkspace.h"

#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "platform/linux/BusProbe.h"
#include "platform/linux/NoticeButtons.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QProcess>
#include <QUrl>
#include <QVariantMap>
#include <utility>

namespace orvana::platform::linux_host
{

namespace
{

constexpr int PatienceMilliseconds = 2000;

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

QDBusMessage openPageMessage(const QString &address)
{
    // The portal works from inside a sandbox, and knows which browser the user chose.
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.OpenURI"), QStringLiteral("OpenURI"));
    message << QString() << address << QVariantMap();
    return message;
}

void startOpener(const QString &address)
{
    if (!QProcess::startDetached(QStringLiteral("xdg-open"), {address}))
        systemLog("Nothing could be started to show " + displayPath(address.toStdString()));
}

} // namespace

/// A connection to a bus that ends with the object.
class DesktopWorkspace::Bus
{
public:
    Bus(BusKind kind, const std::string &address)
        : m_name(QStringLiteral("orvana-workspace-%1").arg(static_cast<int>(kind))),
          m_connection(doesBusAnswer(kind, address) ? connectionTo(kind, address, m_name)
                                                    : QDBusConnection(QString()))
    {
    }
    ~Bus() { QDBusConnection::disconnectFromBus(m_name); }
    Bus(const Bus &) = delete;
    Bus &operator=(const Bus &) = delete;

    bool isConnected() const { return m_connection.isConnected(); }

    /// True when the bus was connected and is not connected any more.
    bool isLost() const { return m_wasConnected && !isConnected(); }

    /// Calls and waits for the reply, at most as long as a slow desktop service needs.
    QDBusMessage call(const QDBusMessage &message)
    {
        return isConnected() ? m_connection.call(message, QDBus::Block, PatienceMilliseconds)
                             : QDBusMessage();
    }

    /// Sends the message. The answer does not matter.
    void send(const QDBusMessage &message)
    {
        if (isConnected())
            m_connection.send(message);
    }

    void listenTo(NoticeButtons &buttons)
    {
        m_connection.connect(QString(), QStringLiteral("/org/freedesktop/Notifications"),
                             QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("ActionInvoked"),
                             &buttons, SLOT(ActionInvoked(uint, QString)));
    }

private:
    static QDBusConnection connectionTo(BusKind kind, const std::string &address, const QString &name)
    {
        const auto own = kind == BusKind::Session ? QDBusConnection::SessionBus : QDBusConnection::SystemBus;
        return address.empty() ? QDBusConnection::connectToBus(own, name)
                               : QDBusConnection::connectToBus(QString::fromStdString(address), name);
    }

    QString m_name;
    QDBusConnection m_connection;
    bool m_wasConnected = m_connection.isConnected();
};

DesktopWorkspace::DesktopWorkspace(std::string sessionBus, std::string systemBus)
    : m_sessionBus(std::move(sessionBus)), m_systemBus(std::move(systemBus)),
      m_buttons(std::make_unique<NoticeButtons>())
{
}

DesktopWorkspace::~DesktopWorkspace() = default;

DesktopWorkspace::Bus &DesktopWorkspace::session()
{
    constexpr std::chrono::minutes BetweenTries{1};
    const auto now = std::chrono::steady_clock::now();
    if (!m_session || m_session->isLost() || (!m_session->isConnected() && now >= m_nextTry)) {
        m_session.reset(); // frees its name for the next connection
        m_session = std::make_unique<Bus>(BusKind::Session, m_sessionBus);
        m_session->listenTo(*m_buttons);
        m_nextTry = now + BetweenTries;
    }
    return *m_session;
}

void DesktopWorkspace::openPage(const std::string &address)
{
    const QUrl page(QString::fromStdString(address));
    if (page.scheme() != QStringLiteral("https") && page.scheme() != QStringLiteral("http")) {
        systemLog(displayPath(address) + " is no page of the web");
        return;
    }
    const auto text = page.toString(QUrl::FullyEncoded);
    if (session().call(openPageMessage(text)).type() != QDBusMessage::ReplyMessage)
        startOpener(text);
}

void DesktopWorkspace::openFolder(const std::string &path)
{
    // The path is encoded as bytes, because it need not be UTF-8.
    const auto address =
        QString::fromLatin1("file://" + QByteArray::fromStdString(path).toPercentEncoding("/"));
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowFolders"));
    message << QStringList{address} << QString();
    if (session().call(message).type() != QDBusMessage::ReplyMessage)
        startOpener(address);
}

void DesktopWorkspace::notify(const DesktopNotice &notice)
{
    QStringList buttons;
    if (!notice.button.empty())
        buttons << m_buttons->add(notice.pressed) << shown(notice.button);
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    message << QStringLiteral("Orvana Plurimo") << 0U << QStringLiteral("orvana-plurimo")
            << shown(notice.title) << shown(notice.text).toHtmlEscaped() << buttons
            << QVariantMap{{QStringLiteral("desktop-entry"), QStringLiteral("orvana-plurimo")}} << -1;
    session().send(message);
}

void DesktopWorkspace::showProgress(std::optional<double> fraction)
{
    const auto percent = fraction ? std::optional(static_cast<int>(*fraction * 100)) : std::nullopt;
    if (std::exchange(m_percent, percent) == percent)
        return;
    auto message = QDBusMessage::createSignal(QStringLiteral("/example/orvana/plurimo"),
                                              QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                              QStringLiteral("Update"));
    message << QStringLiteral("application://orvana-plurimo.desktop")
            << QVariantMap{{QStringLiteral("progress"), percent.value_or(0) / 100.0},
                           {QStringLiteral("progress-visible"), percent.has_value()}};
    session().send(message);
}

std::shared_ptr<void> DesktopWorkspace::holdOffSleep(const std::string &reason)
{
    Bus bus(BusKind::System, m_systemBus);
    // Not every user may prevent the sleep that closing the lid causes.
    for (const auto *what : {"sleep:idle:handle-lid-switch", "sleep:idle"}) {
        const auto reply = bus.call(inhibit(QString::fromLatin1(what), reason));
        if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
            continue;
        const auto held = reply.arguments().constFirst().value<QDBusUnixFileDescriptor>();
        if (held.isValid())
            return std::make_shared<QDBusUnixFileDescriptor>(held); // sleep is held off while this is open
    }
    return nullptr;
}

} // namespace orvana::platform::linux_host
