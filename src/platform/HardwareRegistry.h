#pragma once

#include "platform/RegistryValue.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvana::platform
{

/// One entry of the hardware registry, as it was when it was read. Entries form a tree ("IOService" plane).
/// An entry keeps the entries above it alive.
class RegistryEntry
{
public:
    virtual ~RegistryEntry() = default;

    virtual const RegistryProperties &properties() const = 0;
    virtual std::shared_ptr<const RegistryEntry> parent() const = 0;
    virtual std::vector<std::shared_ptr<const RegistryEntry>> children() const = 0;

    /// Full path in the plane, starting at its root.
    virtual std::string path() const = 0;

    /// The registry's name of the entry, as bytes; nullopt when it cannot be read.
    virtual std::optional<std::string> name() const = 0;
};

using RegistryEntryPtr = std::shared_ptr<const RegistryEntry>;

/// Returns the property of the entry, or of the nearest entry above it that has the property. Returns nullopt
/// when no entry has it.
std::optional<RegistryValue> searchUpward(const RegistryEntry &entry, const std::string &key);

/// A query: the class, and the properties that an entry must have with exactly these values.
struct RegistryMatching
{
    std::string className;
    RegistryProperties properties;
};

/// Status codes of the registry; 0 is success.
inline constexpr int RegistrySuccess = 0;
inline constexpr int RegistryBadArgument = -536870206; // 0xE00002C2, the registry's own number

enum class RegistryEvent { Published, Terminated };

/// The machine's devices. Answers queries for present devices, and reports devices that come or go.
class HardwareRegistry
{
public:
    virtual ~HardwareRegistry() = default;

    struct Answer
    {
        int status = RegistrySuccess;
        std::vector<RegistryEntryPtr> entries; ///< in registry order
    };

    /// Returns the query that matches a class, or nullopt when the platform has no query for the class.
    virtual std::optional<RegistryMatching> serviceMatching(const std::string &className)
    {
        return RegistryMatching{className, {}};
    }

    /// Returns the entries that match. Without a query the status is not 0.
    virtual Answer match(const std::optional<RegistryMatching> &matching) = 0;

    using EventHandler = std::function<void(const std::vector<RegistryEntryPtr> &)>;

    /// Calls `handler` on the main queue with the entries of the class that are published or terminated from
    /// now on. The answer holds the first batch: the entries that are already present, or none for terminated
    /// entries.
    virtual Answer watch(const std::string &className, RegistryEvent event, EventHandler handler) = 0;

    /// One sentence for each attached device that cannot be used: the reason, and what the user can do.
    virtual std::vector<std::string> remarks() { return {}; }
};

} // namespace orvana::platform
