#include "platform/linux/LinuxHealth.h"

#include "foundation/DisplayPath.h"
#include "platform/linux/BusProbe.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <algorithm>

namespace orvana::platform::linux_host
{

namespace
{

constexpr int PatienceMilliseconds = 2000;
constexpr double KelvinAtZero = 273.15;
constexpr std::int64_t SecondsOfAnHour = 3600;

const QString Service = QStringLiteral("org.freedesktop.UDisks2");

/// A connection of its own to the disk service, for one look at one disk.
class ServiceLook
{
public:
    ServiceLook()
        : m_connection(doesBusAnswer(BusKind::System)
                           ? QDBusConnection::connectToBus(QDBusConnection::SystemBus, Name)
                           : QDBusConnection(QString()))
    {
    }
    ~ServiceLook()
    {
        m_connection = QDBusConnection(QString());
        QDBusConnection::disconnectFromBus(Name);
    }
    ServiceLook(const ServiceLook &) = delete;
    ServiceLook &operator=(const ServiceLook &) = delete;

    /// Returns the properties of an interface of the object; none when it has no such interface.
    QVariantMap properties(const QString &object, const QString &interface) const
    {
        const auto reply = call(object, QStringLiteral("org.freedesktop.DBus.Properties"),
                                QStringLiteral("GetAll"), {interface});
        return reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty()
                   ? qdbus_cast<QVariantMap>(reply.arguments().constFirst())
                   : QVariantMap();
    }

    /// Asks the service to ask the disk anew. What it knew before stays when it may not.
    void update(const QString &object, const QString &interface) const
    {
        const QVariantMap options{{QStringLiteral("nowakeup"), true},
                                  {QStringLiteral("auth.no_user_interaction"), true}};
        (void)call(object, interface, QStringLiteral("SmartUpdate"), {options});
    }

private:
    QDBusMessage call(const QString &object, const QString &interface, const QString &method,
                      const QVariantList &arguments) const
    {
        if (!m_connection.isConnected())
            return {};
        auto message = QDBusMessage::createMethodCall(Service, object, interface, method);
        message.setArguments(arguments);
        return m_connection.call(message, QDBus::Block, PatienceMilliseconds);
    }

    static inline const QString Name = QStringLiteral("orvana-health");
    QDBusConnection m_connection;
};

// The service writes every byte of a node's name that is no letter or digit as "_" and two digits.
QString objectOf(const std::string &name)
{
    constexpr const char *Digits = "0123456789abcdef";
    std::string object = "/org/freedesktop/UDisks2/block_devices/";
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        if (isPlain)
            object += c;
        else
            object.append("_").append(1, Digits[byte >> 4U]).append(1, Digits[byte & 15U]);
    }
    return QString::fromStdString(object);
}

void addSata(DiskHealth &health, const QVariantMap &facts)
{
    // Without an update all the other values mean nothing.
    if (!facts.value(QStringLiteral("SmartEnabled")).toBool() ||
        facts.value(QStringLiteral("SmartUpdated")).toULongLong() == 0)
        return;
    health.isFailing = facts.value(QStringLiteral("SmartFailing")).toBool();
    if (const auto sectors = facts.value(QStringLiteral("SmartNumBadSectors")).toLongLong(); sectors >= 0)
        health.badSectors = sectors;
    if (const auto kelvin = facts.value(QStringLiteral("SmartTemperature")).toDouble(); kelvin > 0)
        health.celsius = kelvin - KelvinAtZero;
    if (const auto seconds = facts.value(QStringLiteral("SmartPowerOnSeconds")).toLongLong(); seconds > 0)
        health.hours = seconds / SecondsOfAnHour;
    if (const auto failing = facts.value(QStringLiteral("SmartNumAttributesFailing")).toInt(); failing > 0)
        health.failings.push_back(std::to_string(failing) +
                                  (failing == 1 ? " value at its limit" : " values at its limit"));
}

void addNvme(DiskHealth &health, const QVariantMap &facts)
{
    if (facts.value(QStringLiteral("SmartUpdated")).toULongLong() == 0)
        return;
    const auto warnings = qdbus_cast<QStringList>(facts.value(QStringLiteral("SmartCriticalWarning")));
    health.isFailing = !warnings.isEmpty();
    for (const auto &warning : warnings) {
        auto words = displayPath(warning.toStdString());
        std::replace(words.begin(), words.end(), '_', ' ');
        health.failings.push_back(words);
    }
    if (const auto kelvin = facts.value(QStringLiteral("SmartTemperature")).toDouble(); kelvin > 0)
        health.celsius = kelvin - KelvinAtZero;
    if (const auto hours = facts.value(QStringLiteral("SmartPowerOnHours")).toLongLong(); hours > 0)
        health.hours = hours;
}

} // namespace

void addServiceFacts(DiskHealth &health, const std::string &name, const std::string &serial)
{
    const ServiceLook service;
    const auto block = service.properties(objectOf(name), Service + QStringLiteral(".Block"));
    const auto drive = block.value(QStringLiteral("Drive")).value<QDBusObjectPath>().path();
    if (drive.size() < 2)
        return;
    const auto known = service.properties(drive, Service + QStringLiteral(".Drive"))
                           .value(QStringLiteral("Serial"))
                           .toString()
                           .toStdString();
    if (known != serial)
        return;
    const QString sata = Service + QStringLiteral(".Drive.Ata");
    if (!service.properties(drive, sata).isEmpty()) {
        service.update(drive, sata);
        addSata(health, service.properties(drive, sata));
    }
    const QString nvme = Service + QStringLiteral(".NVMe.Controller");
    if (!service.properties(drive, nvme).isEmpty()) {
        service.update(drive, nvme);
        addNvme(health, service.properties(drive, nvme));
    }
}

DiskHealth LinuxHealth::healthOf(const std::string &device)
{
    const auto snapshot = m_machine.snapshot();
    const auto *disk = diskCalled(*snapshot, m_machine.names(), device);
    DiskHealth health;
    if (!disk)
        return health;
    const auto &name = disk->device->name;
    addServiceFacts(health, name, identityOf(*disk).serial.value_or(std::string()));
    addKernelFacts(health, "/sys", name);
    return health;
}

} // namespace orvana::platform::linux_host
