#include "diskutil/UdisksService.h"

#include "diskutil/UdisksBus.h"
#include "foundation/DisplayPath.h"
#include "platform/posix/Descriptor.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <cerrno>
#include <fcntl.h>

namespace orvana::diskutil
{

namespace
{

constexpr std::uint64_t FirstByte = 1'048'576;
constexpr std::uint64_t AllThatIsLeft = 0;

// Options for calls that must not wait for a question to the user.
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

UdisksService::UdisksService() : m_bus(std::make_unique<UdisksBus>()) {}

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
    // The service has no error name of its own for a busy disk.
    if (!reply && reply.error().reason.find("busy") != std::string::npos)
        return inUse;
    if (!reply)
        return trouble(reply.error().status,
                       displayPath(node) +
                           ": it cannot be checked whether it is in use: " + reply.error().reason);
    return {};
}

Outcome<std::unique_ptr<RawDisk>> UdisksService::openAlone(const std::string &node)
{
    constexpr int Flags = O_EXCL | O_DIRECT | O_NONBLOCK | O_CLOEXEC;
    const int own = ::open(node.c_str(), O_RDWR | Flags);
    if (own >= 0)
        return rawDiskOf(own, node);
    if (errno == EBUSY)
        return trouble(Refused, displayPath(node) + " is in use by another program");
    const auto object = m_bus->objectOf(node);
    if (!object)
        return tl::unexpected(object.error());
    auto options = withoutAsking();
    options.insert(QStringLiteral("flags"), Flags);
    const auto reply = m_bus->call(*object, "Block", "OpenDevice", {QStringLiteral("rw"), options}, Refused);
    if (!reply)
        return tl::unexpected(reply.error());
    const auto descriptor = reply->value(0).value<QDBusUnixFileDescriptor>();
    const int copy = ::fcntl(descriptor.fileDescriptor(), F_DUPFD_CLOEXEC, 0);
    if (copy < 0)
        return trouble(Refused, displayPath(node) + " cannot be opened");
    return rawDiskOf(copy, node);
}

std::vector<std::string> UdisksService::rightsToChange(const std::string &node)
{
    const std::string right = "org.freedesktop.udisks2.modify-device";
    const auto object = m_bus->objectOf(node);
    if (object && m_bus->flag(*object, "Block", "HintSystem"))
        return {right + "-system"};
    return {right, right + "-other-seat"};
}

Outcome<void> UdisksService::askFor(const std::string &right)
{
    return m_bus->obtain(QString::fromStdString(right));
}

Outcome<void> UdisksService::makeTable(const std::string &node)
{
    const auto object = m_bus->objectOf(node);
    if (!object)
        return tl::unexpected(object.error());
    const auto reply = m_bus->call(*object, "Block", "Format", {QStringLiteral("gpt"), withoutAsking()},
                                   SomethingFailed, InTimeMilliseconds);
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
    const QVariantMap formatting{{QStringLiteral("label"), QString::fromStdString(name)},
                                 {QStringLiteral("take-ownership"), true},
                                 {QStringLiteral("auth.no_user_interaction"), true}};
    const auto reply =
        m_bus->call(*object, "PartitionTable", "CreatePartitionAndFormat",
                    {quint64{FirstByte}, quint64{AllThatIsLeft}, QString::fromLatin1(format.partitionType),
                     QString(), withoutAsking(), QString::fromLatin1(format.type), formatting},
                    SomethingFailed, InTimeMilliseconds);
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
    const auto reply = m_bus->simply(node, "Filesystem", "Mount", SomethingFailed);
    if (reply)
        return reply->value(0).toString().toStdString();
    // The desktop may have mounted it first.
    const auto object = m_bus->objectOf(node);
    if (const auto points = object ? m_bus->property(*object, "Filesystem", "MountPoints")
                                   : Outcome<QVariant>(trouble(SomethingFailed, {}))) {
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
        // Powering the drive off would also power off its siblings.
        const auto sibling = m_bus->property(path, "Drive", "SiblingId");
        if (sibling && sibling->toString().isEmpty())
            method = "PowerOff";
    }
    if (!method) {
        // In standby a SATA disk writes out its own memory and parks its heads. If that fails, the disk is
        // unmounted all the same.
        m_bus->call(path, "Drive.Ata", "PmStandby", {withoutAsking()}, SomethingFailed);
        return {};
    }
    const auto reply =
        m_bus->call(path, "Drive", method, {withoutAsking()}, SomethingFailed, InTimeMilliseconds);
    if (!reply && reply.error().status != Refused)
        return trouble(reply.error().status,
                       displayPath(node) + " is unmounted, but cannot be ejected: " + reply.error().reason);
    return {};
}

} // namespace orvana::diskutil
