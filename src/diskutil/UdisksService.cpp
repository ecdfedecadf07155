#include "diskutil/UdisksService.h"

#include "foundation/DisplayPath.h"
#include "platform/posix/Descriptor.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <QVariantMap>
#include <cerrno>
#include <fcntl.h>

namespace orvana::diskutil
{

namespace
{

using Arguments = QVariantList;

constexpr int SoonMilliseconds = 30 * 1000;
// The service may ask the user for a password, and make file systems of any size.
constexpr int InTimeMilliseconds = 30 * 60 * 1000;

constexpr std::uint64_t FirstByte = 1'048'576;
constexpr std::uint64_t AllThatIsLeft = 0;

constexpr const char *NotAuthorised = "you are not authorised to do this, and nobody could be asked";
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
    // The programs that the service runs may add pages of advice.
    const auto text = reply.errorMessage().toStdString();
    return displayPath(text.substr(0, text.find('\n')));
}

bool isMissing(const QDBusMessage &reply)
{
    const auto name = reply.errorName();
    return name.endsWith(QStringLiteral("ServiceUnknown")) || name.endsWith(QStringLiteral("NameHasNoOwner"));
}

// Refused before anything was done, whatever the caller was about to do.
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

// For calls that must not wait for a question that somebody is asked.
QVariantMap withoutAsking()
{
    return {{QStringLiteral("auth.no_user_interaction"), true}};
}

// A text that the service gives in bytes ends with a NUL.
std::string textOf(const QByteArray &bytes)
{
    return bytes.constData();
}

} // namespace

/// Calls to the service's objects.
class UdisksService::Bus
{
public:
    Bus() : m_connection(QDBusConnection::connectToBus(QDBusConnection::SystemBus, QStringLiteral("udisks")))
    {
    }
    ~Bus() { QDBusConnection::disconnectFromBus(QStringLiteral("udisks")); }
    Bus(const Bus &) = delete;
    Bus &operator=(const Bus &) = delete;

    /// The reply, or the trouble of an error; `otherwise` is its status where the error says nothing better.
    Outcome<QVariantList> call(const QString &object, const char *interface, const char *method,
                               const Arguments &arguments, ExitStatus otherwise,
                               int milliseconds = SoonMilliseconds)
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

    /// The service's object of a device node.
    Outcome<QString> objectOf(const std::string &node)
    {
        const auto reply =
            call(QStringLiteral("/org/freedesktop/UDisks2/Manager"), "Manager", "ResolveDevice",
                 {QVariantMap{{QStringLiteral("path"), fromText(node)}}, QVariantMap()}, NotThere);
        if (!reply)
            return tl::unexpected(reply.error());
        const auto objects = qdbus_cast<QList<QDBusObjectPath>>(reply->value(0));
        if (objects.size() != 1)
            return trouble(NotThere, displayPath(node) + ": the disk service does not know it");
        return objects[0].path();
    }

    Outcome<QVariant> property(const QString &object, const char *interface, const char *name)
    {
        if (!m_connection.isConnected())
            return trouble(NotThere, "There is no system bus, and so no disk service (udisks2)");
        auto message = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.UDisks2"), object,
                                                      QStringLiteral("org.freedesktop.DBus.Properties"),
                                                      QStringLiteral("Get"));
        message << QString(Interfaces + QString::fromLatin1(interface)) << QString::fromLatin1(name);
        const auto reply = m_connection.call(message, QDBus::Block, SoonMilliseconds);
        if (reply.type() != QDBusMessage::ReplyMessage)
            return tl::unexpected(troubleOf(reply, Failed));
        return reply.arguments().value(0).value<QDBusVariant>().variant();
    }

    /// True when the property is there and true.
    bool flag(const QString &object, const char *interface, const char *name)
    {
        const auto value = property(object, interface, name);
        return value && value->toBool();
    }

    /// Asks the user for the right to an action, which this process then keeps for a while.
    Outcome<void> obtain(const QString &action)
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
        auto message = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.PolicyKit1"),
                                                      QStringLiteral("/org/freedesktop/PolicyKit1/Authority"),
                                                      QStringLiteral("org.freedesktop.PolicyKit1.Authority"),
                                                      QStringLiteral("CheckAuthorization"));
        message << QVariant::fromValue(subject) << action << QVariant::fromValue(details) << MayAsk
                << QString();
        const auto reply = m_connection.call(message, QDBus::Block, InTimeMilliseconds);
        if (reply.type() != QDBusMessage::ReplyMessage)
            return trouble(Refused, NotAuthorised);
        bool isAuthorised = false;
        bool isChallenge = false;
        const auto answer = reply.arguments().value(0).value<QDBusArgument>();
        answer.beginStructure();
        answer >> isAuthorised >> isChallenge;
        return isAuthorised ? Outcome<void>() : trouble(Refused, NotAuthorised);
    }

    /// Calls a method without arguments and options.
    Outcome<QVariantList> simply(const std::string &node, const char *interface, const char *method,
                                 ExitStatus otherwise)
    {
        const auto object = objectOf(node);
        if (!object)
            return tl::unexpected(object.error());
        return call(*object, interface, method, {QVariantMap()}, otherwise, InTimeMilliseconds);
    }

private:
    QDBusConnection m_connection;
};

UdisksService::UdisksService() : m_bus(std::make_unique<Bus>()) {}

UdisksService::~UdisksService() = default;

Outcome<void> UdisksService::checkFormat(const VolumeFormat &format)
{
    const auto reply = m_bus->call(QStringLiteral("/org/freedesktop/UDisks2/Manager"), "Manager", "CanFormat",
                                   {QString::fromLatin1(format.type)}, Refused);
    if (!reply)
        return tl::unexpected(reply.error());
    bool isPossible = false;
    QString missing;
    const auto answer = reply->value(0).value<QDBusArgument>();
    answer.beginStructure();
    answer >> isPossible >> missing;
    answer.endStructure();
    if (isPossible)
        return {};
    return trouble(Refused, std::string(format.type) + " cannot be made on this machine: " +
                                displayPath(missing.toStdString()) + " is missing");
}

Outcome<void> UdisksService::unmount(const std::string &node)
{
    const auto reply = m_bus->simply(node, "Filesystem", "Unmount", Refused);
    if (!reply)
        return tl::unexpected(reply.error());
    return {};
}

Outcome<void> UdisksService::checkNobodyHas(const std::string &node, Password password)
{
    const auto inUse = trouble(Refused, displayPath(node) + " is in use by another program");
    const platform::posix::Descriptor own(::open(node.c_str(), O_RDONLY | O_EXCL | O_NONBLOCK | O_CLOEXEC));
    if (own.isOpen())
        return {};
    if (errno == EBUSY)
        return inUse;
    if (password == Password::IsNotAskedFor)
        return {};
    // An ordinary user may not open disks; the service can do it in their place.
    const auto object = m_bus->objectOf(node);
    if (!object)
        return tl::unexpected(object.error());
    const QVariantMap options{{QStringLiteral("flags"), O_EXCL | O_NONBLOCK | O_CLOEXEC}};
    const auto reply = m_bus->call(*object, "Block", "OpenDevice", {QStringLiteral("r"), options}, Refused,
                                   InTimeMilliseconds);
    if (!reply)
        return trouble(reply.error().status,
                       displayPath(node) +
                           ": it cannot be checked whether it is in use: " + reply.error().reason);
    return {};
}

Outcome<void> UdisksService::askForRight(const std::string &node)
{
    const auto object = m_bus->objectOf(node);
    if (!object)
        return tl::unexpected(object.error());
    // The service decides by the same two: a system's disk, or else one that is not at this user's own seat.
    return m_bus->obtain(m_bus->flag(*object, "Block", "HintSystem")
                             ? QStringLiteral("org.freedesktop.udisks2.modify-device-system")
                             : QStringLiteral("org.freedesktop.udisks2.modify-device-other-seat"));
}

Outcome<void> UdisksService::makeTable(const std::string &node)
{
    const auto object = m_bus->objectOf(node);
    if (!object)
        return tl::unexpected(object.error());
    const auto reply = m_bus->call(*object, "Block", "Format", {QStringLiteral("gpt"), withoutAsking()},
                                   Failed, InTimeMilliseconds);
    if (!reply)
        return tl::unexpected(reply.error());
    return {};
}

Outcome<std::string> UdisksService::makeVolume(const std::string &node, const VolumeFormat &format,
                                               const std::string &name)
{
    const auto object = m_bus->objectOf(node);
    if (!object)
        return tl::unexpected(object.error());
    const QVariantMap formatting{{QStringLiteral("label"), fromText(name)},
                                 {QStringLiteral("take-ownership"), true}};
    const auto reply =
        m_bus->call(*object, "PartitionTable", "CreatePartitionAndFormat",
                    {quint64{FirstByte}, quint64{AllThatIsLeft}, QString::fromLatin1(format.partitionType),
                     QString(), withoutAsking(), QString::fromLatin1(format.type), formatting},
                    Failed, InTimeMilliseconds);
    if (!reply)
        return tl::unexpected(reply.error());
    const auto partition = reply->value(0).value<QDBusObjectPath>().path();
    const auto device = m_bus->property(partition, "Block", "Device");
    if (!device)
        return tl::unexpected(device.error());
    return textOf(device->toByteArray());
}

Outcome<std::string> UdisksService::mount(const std::string &node)
{
    const auto reply = m_bus->simply(node, "Filesystem", "Mount", Failed);
    if (reply)
        return reply->value(0).toString().toStdString();
    // The desktop may have been quicker.
    const auto object = m_bus->objectOf(node);
    if (const auto points = object ? m_bus->property(*object, "Filesystem", "MountPoints")
                                   : Outcome<QVariant>(trouble(Failed, {}))) {
        const auto list = qdbus_cast<QList<QByteArray>>(*points);
        if (!list.isEmpty())
            return textOf(list[0]);
    }
    return tl::unexpected(reply.error());
}

Outcome<void> UdisksService::release(const std::string &node)
{
    const auto object = m_bus->objectOf(node);
    if (!object)
        return tl::unexpected(object.error());
    const auto drive = m_bus->property(*object, "Block", "Drive");
    const auto path = drive ? drive->value<QDBusObjectPath>().path() : QString();
    if (path.size() < 2)
        return {}; // without a drive, unmounting is all there is to do
    const char *method = nullptr;
    if (m_bus->flag(path, "Drive", "Ejectable")) {
        method = "Eject";
    } else if (m_bus->flag(path, "Drive", "CanPowerOff")) {
        // A drive with siblings would take them along.
        const auto sibling = m_bus->property(path, "Drive", "SiblingId");
        if (sibling && sibling->toString().isEmpty())
            method = "PowerOff";
    }
    if (!method) {
        // A SATA disk writes out its own memory and parks its heads; where it cannot, it is unmounted all the
        // same.
        m_bus->call(path, "Drive.Ata", "PmStandby", {withoutAsking()}, Failed);
        return {};
    }
    const auto reply = m_bus->call(path, "Drive", method, {QVariantMap()}, Failed, InTimeMilliseconds);
    if (!reply)
        return trouble(reply.error().status,
                       displayPath(node) + " is unmounted, but cannot be ejected: " + reply.error().reason);
    return {};
}

} // namespace orvana::diskutil
