#include "diskutil/DiskFacts.h"

#include "discovery/BayTable.h"
#include "foundation/DisplayPath.h"
#include "platform/linux/LinuxTree.h"
#include "platform/linux/ThunderboltRouters.h"

#include <algorithm>

namespace orvana::diskutil
{

namespace
{

using platform::linux_host::Device;
using platform::linux_host::Disk;
using platform::linux_host::SystemState;

// True for the places where a running system has its parts. A place in `all` includes everything below it.
// Below a place in `tops`, users mount volumes of their own.
bool isSystemPlace(const std::string &point)
{
    const auto all = {"/boot", "/efi", "/etc", "/nix", "/usr", "/var"};
    const auto tops = {"/", "/home", "/opt", "/root", "/srv", "/tmp"};
    return std::any_of(all.begin(), all.end(),
                       [&](const char *place) {
                           return point == place || platform::linux_host::isBelow(point, place);
                       }) ||
           std::any_of(tops.begin(), tops.end(), [&](const char *place) { return point == place; });
}

// A loop device may use the partition itself as its image. The kernel then names no holder.
bool isImage(const SystemState &system, const Device &partition)
{
    const auto blocks = system.devices.ofSubsystem("block");
    return std::any_of(blocks.begin(), blocks.end(), [&](const Device *block) {
        return block->attribute("loop/backing_file") == "/dev/" + partition.name;
    });
}

// A file system, but not one that the machine starts from or that the desktop is told to hide.
bool isForUsers(const Device &partition)
{
    constexpr const char *StartPartition = "c12a7328-f81f-11d2-ba4b-00a0c93ec93b";
    return partition.property("ID_FS_USAGE") == "filesystem" &&
           partition.property("ID_PART_ENTRY_TYPE") != StartPartition &&
           partition.property("UDISKS_IGNORE") != "1";
}

void addPartition(const SystemState &system, const Device &partition, DiskFacts &facts)
{
    facts.isExamined = facts.isExamined && platform::linux_host::hasUdevLooked(partition);
    facts.isMember = facts.isMember || platform::linux_host::isMember(partition);
    facts.isHeld = facts.isHeld || !partition.holders.empty() || isImage(system, partition);
    facts.isSwappedOn = facts.isSwappedOn || system.swaps.contains(partition.name);
    facts.holdsSystem = facts.holdsSystem || system.beneathRoot.contains(partition.name);
    if (isForUsers(partition))
        facts.fileSystems.push_back("/dev/" + partition.name);
    const auto before = facts.mounted.size();
    for (const auto &mount : system.mounts) {
        if (platform::linux_host::deviceOf(system.devices, mount) != &partition)
            continue;
        facts.holdsSystem = facts.holdsSystem || isSystemPlace(mount.target);
        facts.mounted.push_back({"/dev/" + partition.name, mount.target});
    }
    // A pooled file system may be mounted through another disk. It cannot be unmounted for this disk then.
    facts.isHeld = facts.isHeld || (facts.mounted.size() == before && system.isPooled(partition));
}

Outcome<void> refuse(const std::string &node, const char *why)
{
    return trouble(Refused, displayPath(node) + " " + why);
}

template <class T>
bool isSame(const std::optional<T> &expected, const std::optional<T> &found)
{
    return expected && found && *expected == *found;
}

bool isSpared(const std::string &node, const DiskFacts &facts, const Expectation &expected)
{
    const platform::DiskFingerprint marks{.device = node,
                                          .serial = facts.identity.serial,
                                          .wwn = facts.wwn,
                                          .arrival =
                                              static_cast<std::int64_t>(facts.identity.sequence.value_or(0)),
                                          .size = static_cast<std::int64_t>(facts.identity.bytes())};
    return std::any_of(expected.spared.begin(), expected.spared.end(),
                       [&](const auto &spared) { return mayBeTheSame(spared, marks); });
}

} // namespace

std::optional<KnownDisk> knownDisk(const SystemState &system, const Device &device)
{
    // This function does not ask whether somebody else uses the disk; `checkNobodyHas` does.
    const auto disks = disksOf(system, [](const std::string &) { return false; });
    const auto disk =
        std::find_if(disks.begin(), disks.end(), [&](const Disk &one) { return one.device == &device; });
    if (disk == disks.end())
        return std::nullopt;
    KnownDisk known{identityOf(*disk), disk->definedBay.has_value(), disk->wwn, disk->definedBay.has_value()};
    if (known.isInBay || !disk->router || !isFourBayEnclosure(*disk->router))
        return known;
    platform::linux_host::DiskNames names;
    names.bind(disks);
    const auto tree = makeTree(system, disks, names);
    std::vector<platform::RegistryEntryPtr> drivers;
    tree.root->collect({"AppleAHCIDiskDriver", {}}, drivers);
    // The driver's parent is its device, which has the kernel's name of the disk.
    for (const auto &driver : drivers) {
        if (driver->parent()->name() == device.name)
            known.isInBay = bayOf(driver->path()).has_value();
    }
    return known;
}

std::optional<DiskFacts> factsOf(const SystemState &system, const std::string &node, const BayRule &rule)
{
    // Accepts only the kernel's own name: a link may lead elsewhere by the time that the service follows it.
    const std::string folder = "/dev/";
    const auto *device =
        node.starts_with(folder) ? system.devices.blockNamed(node.substr(folder.size())) : nullptr;
    if (!device)
        return std::nullopt;
    DiskFacts facts;
    facts.isRootKnown = !system.beneathRoot.empty();
    facts.isExamined = true;
    addPartition(system, *device, facts);
    for (const auto *partition : system.devices.partitionsOf(*device))
        addPartition(system, *partition, facts);
    const auto known = device->type == "disk" ? rule(system, *device) : std::nullopt;
    facts.isWholeDisk = known.has_value();
    if (known) {
        facts.identity = known->identity;
        facts.wwn = known->wwn;
        facts.isInBay = known->isInBay;
        facts.isInDefinedBay = known->isInDefinedBay;
    }
    return facts;
}

Outcome<void> checkIdentity(const std::string &node, const DiskFacts &facts, const Expectation &expected)
{
    if (!facts.isWholeDisk)
        return refuse(node, "is no disk to work on");
    if (!facts.identity.serial || !facts.identity.sequence)
        return refuse(node,
                      "cannot be told from other disks: it has no serial number, or no number of arrival");
    const bool isSameDisk = isSame(expected.sequence, facts.identity.sequence) &&
                            isSame(expected.serial, facts.identity.serial) &&
                            isSame(expected.size, std::optional(facts.identity.bytes())) &&
                            isSame(expected.bay, std::optional(facts.identity.place));
    if (!isSameDisk)
        return refuse(node, "is not the disk that was meant");
    return isSpared(node, facts, expected)
               ? refuse(node, "is a disk of the source, which must not be touched")
               : Outcome<void>();
}

Outcome<void> checkErasable(const std::string &node, const DiskFacts &facts)
{
    if (!facts.isInBay)
        return refuse(node, "is in no bay of an enclosure");
    if (!facts.isExamined)
        return refuse(node, "is not examined yet: what is on it is not known");
    if (facts.isMember)
        return refuse(node, "is a member of a RAID set or a volume group");
    return checkEjectable(node, facts);
}

Outcome<void> checkMountable(const std::string &node, const DiskFacts &facts)
{
    if (!facts.isInBay)
        return refuse(node, "is in no bay of an enclosure");
    if (facts.isMember)
        return refuse(node, "is a member of a RAID set or a volume group");
    return checkEjectable(node, facts);
}

Outcome<void> checkEjectable(const std::string &node, const DiskFacts &facts)
{
    if (!facts.isRootKnown)
        return refuse(node, "is left alone: it cannot be told which disks hold the running system");
    if (facts.holdsSystem)
        return refuse(node, "holds the running system");
    if (facts.isSwappedOn)
        return refuse(node, "is in use as swap space");
    if (facts.isHeld)
        return refuse(node, "is in use: something is built upon it");
    return {};
}

} // namespace orvana::diskutil
