#pragma once

#include "diskutil/Outcome.h"

#include <QDBusConnection>
#include <QVariant>

namespace orvana::diskutil
{

constexpr int SoonMilliseconds = 30 * 1000;
/// For calls in which the service may ask the user for a password, or make file systems of any size.
constexpr int InTimeMilliseconds = 30 * 60 * 1000;

/// Calls the objects of the disk service. Interfaces are named without their common start: "Block".
class UdisksBus
{
public:
    UdisksBus();
    ~UdisksBus();
    UdisksBus(const UdisksBus &) = delete;
    UdisksBus &operator=(const UdisksBus &) = delete;

    /// Returns the reply, or the trouble of an error. `otherwise` is the status of the trouble if the error
    /// gives no better one.
    Outcome<QVariantList> call(const QString &object, const char *interface, const char *method,
                               const QVariantList &arguments, ExitStatus otherwise,
                               int milliseconds = SoonMilliseconds);

    /// Calls a method of a device node's object, without arguments and options.
    Outcome<QVariantList> simply(const std::string &node, const char *interface, const char *method,
                                 ExitStatus otherwise);

    /// The service's object of a device node.
    Outcome<QString> objectOf(const std::string &node);

    Outcome<QVariant> property(const QString &object, const char *interface, const char *name);

    /// True when the property is there and true.
    bool flag(const QString &object, const char *interface, const char *name);

    /// Asks the user for the right to an action. This process then keeps the right for a while.
    Outcome<void> obtain(const QString &action);

private:
    QDBusConnection m_connection;
};

} // namespace orvana::diskutil
