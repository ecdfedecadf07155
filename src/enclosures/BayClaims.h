#pragma once

#include "enclosures/Definition.h"

#include <map>
#include <string>
#include <vector>

namespace orvana::enclosures
{

/// A device of the machine that a definition could name as its anchor.
struct AnchorDevice
{
    std::string key; ///< any text that tells it from all other devices, such as the kernel's path
    Anchor ids;      ///< with the serial number that it reports
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::string disallowed{}; ///< why it cannot be an anchor, or empty
    bool canMove = true;      ///< it can be plugged in elsewhere
};

/// The place of a disk below one of the devices above it.
struct PlaceBelow
{
    std::string anchorKey;
    std::string below; ///< in the form of `Port::below`
};

/// All names of the place where a disk is.
struct DiskPlace
{
    std::string disk; ///< any text that tells the disk from all other disks
    std::string path; ///< in the form of udev's ID_PATH; empty when it is not known
    std::optional<int> lun;
    std::vector<PlaceBelow> below; ///< nearest device first
    /// For USB the same as newer versions of udev write it, with the revision of the bus:
    /// "pci-...-usbv3-0:...".
    std::string revisedPath{}; // NOLINT(readability-redundant-member-init): lets an aggregate leave it out
};

/// The bay that a disk is in.
struct BayClaim
{
    std::size_t definition = 0; ///< index in the list of definitions
    char bay = 'A';
};

/// The bays that the definitions make on the machine as it is now. A place that is not clear is no bay.
struct BayClaims
{
    std::vector<bool> isPresent;          ///< for each definition: its anchor is there, or it needs none
    std::map<std::string, BayClaim> bays; ///< by disk
    std::map<std::string, std::string> unclear; ///< by disk: why a disk whose port is named is in no bay
    std::vector<std::string> remarks;           ///< definitions that cannot be used now, each with the reason
};

/// Finds the bay of each disk. A disk is in a bay if exactly one bay of one definition names its port, no
/// other disk is at that bay's ports, and each anchor of the definition is there at most once.
BayClaims claimBays(const std::vector<Definition> &definitions, const std::vector<AnchorDevice> &anchors,
                    const std::vector<DiskPlace> &disks);

/// Returns a sentence for each port that two of the definitions name.
std::vector<std::string> sharedPorts(const std::vector<Definition> &definitions);

} // namespace orvana::enclosures
