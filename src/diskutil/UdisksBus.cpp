#include "diskutil/UdisksBus.h"

#include "foundation/DisplayPath.h"
#include "platform/linux/BusProbe.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace orvana::diskutil
{

namespace
{

constexpr const char *NotAuthorised = "you are not authorised to do this";
constexpr const char *NotAllowed = "you were asked, and did not allow it";

const QString Interfaces = QStringLiteral("org.freedesktop.UDisks2.");

QString fromText(const std::string &text)
{
    return QString::fromStdString(text);
}

std::string reasonOf(const QDBusMessage &reply)
{
    const auto name = reply.errorName();
    if (name.endsWith(QStringLiteral("NotAuthorizedDismissed")))
        return NotAllowed;
    if (name.contains(QStringLiteral("NotAuthorized")) || name.endsWith(QStringLiteral("AccessDenied")))
        return NotAuthorised;
    if (name.endsWith(QStringLiteral("DeviceBusy")))
        return "it is in use";
    if (name.endsWith(QStringLiteral("NoReply")) || name.endsWith(QStringLiteral("Timeout")))
        return "the disk service did not answer in time";
    // Only the first line is kept: the programs that the service runs may add pages of advice.
    const auto text = reply.errorMessage().toStdString();
    return displayPath(text.substr(0, text.find('\n')));
}

bool isMissing(const QDBusMessage &reply)
{
    const auto name = reply.errorName();
    return name.endsWith(QStringLiteral("ServiceUnknown")) || name.endsWith(QStringLiteral("NameHasNoOwner"));
}

// True if the service refused the call before it did anything.
bool isRefusal(const QDBusMessage &reply)
{
    const auto name = reply.errorName();
    return name.contains(QStringLiteral("NotAuthorized")) || name.endsWith(QStringLiteral("AccessDenied"));
}

Trouble troubleOf(const QDBusMessage &reply, ExitStatus otherwise)
{
    if (isMissing(reply))
        return {NotThere, "The disk service (udisks2) is not there"};
    return {isRefusal(reply) ? Refused : otherwise, reasonOf(reply),
            reply.errorName().endsWith(QStringLiteral("NotAuthorizedCanObtain"))};
}

} // namespace

UdisksBus::UdisksBus()
    : m_connection(platform::linux_host::doesBusAnswer(platform::linux_host::BusKind::System)
                       ? QDBusConnection::connectToBus(QDBusConnection::SystemBus, QStringLiteral("udisks"))
                       : QDBusConnection(QString()))
{
}

UdisksBus::~UdisksBus()
{
    QDBusConnection::disconnectFromBus(QStringLiteral("udisks"));
}

Outcome<QVariantList> UdisksBus::call(const QString &object, const char *interface, const char *method,
                                      const QVariantList &arguments, ExitStatus otherwise, int milliseconds)
{
    if (!m_connection.isConnected())
        return trouble(NotThere, "There is no system bus, and so no disk service (udisks2)");
    auto message = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.UDisks2"), object,
                                                  Interfaces + QString::fromLatin1(interface),
                                                  QString::fromLatin1(method));
    message.setArguments(arguments);
    message.setInteractiveAuthorizationAllowed(true);
    const auto reply = m_connection.call(message, QDBus::Block, milliseconds);
    if (reply.type() != QDBusMessage::ReplyMessage)
        return tl::unexpected(troubleOf(reply, otherwise));
    return reply.arguments();
}

Outcome<QString> UdisksBus::objectOf(const std::string &node)
{
    const auto reply = call(QStringLiteral("/org/freedesktop/UDisks2/Manager"), "Manager", "ResolveDevice",
                            {QVariantMap{{QStringLiteral("path"), fromText(node)}}, QVariantMap()}, NotThere);
    if (!reply)
        return tl::unexpected(reply.error());
    const auto objects = qdbus_cast<QList<QDBusObjectPath>>(reply->value(0));
    if (objects.size() != 1)
        return trouble(NotThere, displayPath(node) + ": the disk service does not know it");
    return objects[0].path();
}

Outcome<QVariant> UdisksBus::property(const QString &object, const char *interface, const char *name)
{
    if (!m_connection.isConnected())
        return trouble(NotThere, "There is no system bus, and so no disk service (udisks2)");
    auto message = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.UDisks2"), object,
                                                  QStringLiteral("org.freedesktop.DBus.Properties"),
                                                  QStringLiteral("Get"));
    message << QString(Interfaces + QString::fromLatin1(interface)) << QString::fromLatin1(name);
    const auto reply = m_connection.call(message, QDBus::Block, SoonMilliseconds);
    if (reply.type() != QDBusMessage::ReplyMessage)
        return tl::unexpected(troubleOf(reply, SomethingFailed));
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

bool UdisksBus::flag(const QString &object, const char *interface, const char *name)
{
    const auto value = property(object, interface, name);
    return value && value->toBool();
}

Outcome<void> UdisksBus::obtain(const QString &action)
{
    constexpr quint32 MayAsk = 1;
    QDBusArgument subject;
    subject.beginStructure();
    subject << QStringLiteral("system-bus-name")
            << QVariantMap{{QStringLiteral("name"), m_connection.baseService()}};
    subject.endStructure();
    QDBusArgument details;
    details.beginMap(QMetaType(QMetaType::QString), QMetaType(QMetaType::QString));
    details.endMap();
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.PolicyKit1"), QStringLiteral("/org/freedesktop/PolicyKit1/Authority"),
        QStringLiteral("org.freedesktop.PolicyKit1.Authority"), QStringLiteral("CheckAuthorization"));
    message << QVariant::fromValue(subject) << action << QVariant::fromValue(details) << MayAsk << QString();
    const auto reply = m_connection.call(message, QDBus::Block, InTimeMilliseconds);
    if (reply.type() != QDBusMessage::ReplyMessage)
        return trouble(Refused, reasonOf(reply));
    bool isAuthorised = false;
    bool isChallenge = false;
    QMap<QString, QString> about;
    const auto answer = reply.arguments().value(0).value<QDBusArgument>();
    answer.beginStructure();
    answer >> isAuthorised >> isChallenge >> about;
    answer.endStructure();
    if (isAuthorised)
        return {};
    return trouble(Refused, about.contains(QStringLiteral("polkit.dismissed")) ? NotAllowed : NotAuthorised);
}

Outcome<QVariantList> UdisksBus::simply(const std::string &node, const char *interface, const char *method,
                                        ExitStatus otherwise)
{
    const auto object = objectOf(node);
    if (!object)
        return tl::unexpected(object.error());
    return call(*object, interface, method, {QVariantMap()}, otherwise, InTimeMilliseconds);
}

} // namespace orvana::diskutil
