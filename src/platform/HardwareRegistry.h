#pragma once

#include "platform/RegistryValue.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvana::platform
{

/// One entry of the hardware registry, as it was when it was read. Entries form a tree ("IOService" plane);
/// an entry keeps those above it alive.
class RegistryEntry
{
public:
    virtual ~RegistryEntry() = default;

    virtual const RegistryProperties &properties() const = 0;
    virtual std::shared_ptr<const RegistryEntry> parent() const = 0;
    virtual std::vector<std::shared_ptr<const RegistryEntry>> children() const = 0;

    /// Full path in the plane, from its root on.
    virtual std::string path() const = 0;

    /// The registry's name of the entry in bytes; nothing when it cannot be read.
    virtual std::optional<std::string> name() const = 0;
};

using RegistryEntryPtr = std::shared_ptr<const RegistryEntry>;

/// The property of the entry or of the nearest entry above it that has it.
std::optional<RegistryValue> searchUpward(const RegistryEntry &entry, const std::string &key);

/// What a query is made of: the class, and properties that an entry must have with just these values.
struct RegistryMatching
{
    std::string className;
    RegistryProperties properties;
};

/// Status codes of the registry; 0 is success.
inline constexpr int RegistrySuccess = 0;
inline constexpr int RegistryBadArgument = -536870206; // 0xE00002C2, as the registry counts it

enum class RegistryEvent { Published, Terminated };

/// The machine's devices: which there are, and which come and go.
class HardwareRegistry
{
public:
    virtual ~HardwareRegistry() = default;

    struct Answer
    {
        int status = RegistrySuccess;
        std::vector<RegistryEntryPtr> entries; ///< in registry order
    };

    /// The dictionary that matches a class; nothing when the platform has none for it.
    virtual std::optional<RegistryMatching> serviceMatching(const std::string &className)
    {
        return RegistryMatching{className, {}};
    }

    /// The entries that match. Without a dictionary the status is not 0.
    virtual Answer match(const std::optional<RegistryMatching> &matching) = 0;

    using EventHandler = std::function<void(const std::vector<RegistryEntryPtr> &)>;

    /// Reports entries of the class that are published or terminated from now on, on the main queue. The
    /// answer's entries are the first batch: those that are there already (none for terminated ones).
    virtual Answer watch(const std::string &className, RegistryEvent event, EventHandler handler) = 0;

    /// One sentence for each attached device that cannot be used: the reason, and what the user can do.
    virtual std::vector<std::string> remarks() { return {}; }
};

} // namespace orvana::platform
