#pragma once

#include "enclosures/BayClaims.h"
#include "enclosures/DefinitionFolder.h"

#include <cstdint>
#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace orvana::enclosures
{

/// A disk with the place where it is.
struct PlacedDisk
{
    DiskPlace place;
    std::string arrival; ///< tells this arrival of the disk from every other, also at the same port
    std::string model;   ///< as the disk reports it; may be empty, as may the serial number
    std::string serial;
    std::uint64_t bytes = 0;
    std::string bay;     ///< the bay that it is in: "Slot-A of Desk dock"; empty when it is in none
    std::string refusal; ///< why it can be in no bay, in words that go on from its name; or empty
};

/// The disks and the devices above them, at one moment.
struct PortSnapshot
{
    std::vector<PlacedDisk> disks;
    std::vector<AnchorDevice> anchors;
};

/// The part of a machine with which enclosures are set up.
class EnclosureSetup
{
public:
    virtual ~EnclosureSetup() = default;

    /// Looks at the machine. Nothing is written to any disk. Main thread only.
    virtual PortSnapshot look() = 0;

    /// Reads the definitions. Callable from any thread, as the following functions are.
    virtual DefinitionSet definitions() = 0;

    /// Writes a definition, which must have a new id. May ask the user for a password, and waits for the
    /// answer. The error is a sentence for the user.
    virtual tl::expected<void, std::string> add(const Definition &definition) = 0;

    /// Removes the definition of that id, in the same way.
    virtual tl::expected<void, std::string> remove(const std::string &id) = 0;
};

/// A machine without ports.
class NullEnclosureSetup final : public EnclosureSetup
{
public:
    PortSnapshot look() override { return {}; }
    DefinitionSet definitions() override { return {}; }
    tl::expected<void, std::string> add(const Definition &) override
    {
        return tl::unexpected(std::string("this machine has no ports"));
    }
    tl::expected<void, std::string> remove(const std::string &) override
    {
        return tl::unexpected(std::string("this machine has no ports"));
    }
};

} // namespace orvana::enclosures
