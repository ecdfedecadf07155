#include "platform/simulator/MachineTree.h"

namespace orvana::platform::simulator
{

namespace
{

std::string diskName(int number)
{
    return "disk" + std::to_string(number);
}

std::string partitionName(int number, std::size_t index)
{
    return diskName(number) + "s" + std::to_string(index + 1);
}

std::vector<std::uint8_t> data(std::uint32_t number)
{
    const auto *bytes = reinterpret_cast<const std::uint8_t *>(&number);
    return {bytes, bytes + sizeof number};
}

RegistryValue dictionary(RegistryProperties values)
{
    return std::make_shared<const RegistryDictionary>(RegistryDictionary{std::move(values)});
}

void setText(RegistryProperties &properties, const char *key, const std::optional<std::string> &text)
{
    if (text)
        properties[key] = *text;
}

// Adds the disk's media: the whole disk, its partition scheme, and a partition for each volume.
void addMedia(RegistryNode &driver, const Disk &disk, int number)
{
    const bool hasPartitions = !disk.volumes.empty() && !disk.isRaid;
    RegistryProperties whole{{"Whole", true},
                             {"Leaf", !hasPartitions},
                             {"Open", disk.isFormatted || disk.isRaid || hasPartitions},
                             {"Size", disk.size},
                             {"BSD Name", diskName(number)},
                             {"Content", std::string(disk.isFormatted ? "GUID_partition_scheme" : "")}};
    if (disk.isRaid)
        whole["RAID"] = true;
    auto &media = driver.add("IOBlockStorageDriver", "IOBlockStorageDriver")
                      .add("IOMedia", disk.model.value_or("Disk") + " Media@0", std::move(whole));
    if (!hasPartitions)
        return;
    auto &scheme = media.add("IOGUIDPartitionScheme", "IOGUIDPartitionScheme");
    for (std::size_t i = 0; i < disk.volumes.size(); ++i) {
        const auto &volume = disk.volumes[i];
        scheme.add("IOMedia", volume.name + "@" + std::to_string(i + 1),
                   {{"Whole", false},
                    {"Leaf", true},
                    {"Open", volume.isMounted},
                    {"Size", volume.capacity},
                    {"BSD Name", partitionName(number, i)},
                    {"Volume UUID", volume.id},
                    {"Content", std::string("48465300-0000-11AA-AA11-00306543ECAC")}});
    }
}

// Sets the marks that distinguish the disk from others. The disk's number is never given to another disk.
void setMarks(RegistryProperties &properties, const Disk &disk, int number)
{
    properties["Arrival Number"] = std::int64_t{number};
    setText(properties, "World Wide Name", disk.wwn);
    setText(properties, "Unit Serial Number", disk.serial);
}

RegistryProperties driverProperties(const Disk &disk, const char *location, int number)
{
    RegistryProperties properties{{"Physical Interconnect Location", std::string(location)}};
    setText(properties, "Model", disk.model);
    setText(properties, "Serial Number", disk.serial);
    setMarks(properties, disk, number);
    return properties;
}

void addInternal(RegistryNode &bus, const Disk &disk, int port, int number)
{
    const auto at = std::to_string(port);
    auto &driver =
        bus.add("IOAHCIPort", "PRT" + at + "@" + at)
            .add("IOAHCIDevice", "IOAHCIDevice@0")
            .add("AppleAHCIDiskDriver", "AppleAHCIDiskDriver", driverProperties(disk, "Internal", number));
    addMedia(driver, disk, number);
}

void addExternal(RegistryNode &bus, const Disk &disk, int number)
{
    RegistryProperties device;
    setText(device, "Vendor Name", disk.vendor);
    setText(device, "Product Name", disk.product);
    RegistryProperties protocol{
        {"Physical Interconnect", std::string(disk.kind == DiskKind::Usb ? "USB" : "FireWire")},
        {"Physical Interconnect Location", disk.location}};
    RegistryProperties properties{{"Device Characteristics", dictionary(std::move(device))},
                                  {"Protocol Characteristics", dictionary(std::move(protocol))}};
    setMarks(properties, disk, number);
    auto &services = bus.add("IOBlockStorageServices", "IOBlockStorageServices@" + std::to_string(number),
                             std::move(properties));
    addMedia(services, disk, number);
}

struct BayPlace
{
    std::int64_t bridge;
    int port;
};

// Returns where a bay's disk is connected. With two-port controllers two bays share a controller, and the
// controllers are behind bridges 0 and 3.
BayPlace placeOf(const Enclosure &enclosure, const Disk &disk)
{
    const int bay = disk.bay.front() - 'A';
    if (enclosure.controller == "612")
        return {disk.bridge.value_or(bay), 0};
    return {disk.bridge.value_or(bay < 2 ? 0 : 3), bay % 2};
}

RegistryNode &addController(RegistryNode &chain, const std::string &controller, std::int64_t bridge)
{
    const auto name = "pci1b21," + controller;
    const auto device = static_cast<std::uint32_t>(std::stoul(controller, nullptr, 16));
    return chain.add("IOPCIDevice", "pci-bridge@" + std::to_string(bridge))
        .add("IOPCI2PCIBridge", "IOPP")
        .add("IOPCIDevice", name + "@0", {{"vendor-id", data(0x1b21)}, {"device-id", data(device)}})
        .add("AppleAHCI", "AppleAHCI");
}

void addBays(RegistryNode &chain, const Enclosure &enclosure, const DiskNumbers &numbers)
{
    // A controller exists even when no disk is behind it.
    std::map<std::int64_t, RegistryNode *> controllers;
    const auto controllerAt = [&](std::int64_t bridge) -> RegistryNode & {
        auto &found = controllers[bridge];
        if (!found)
            found = &addController(chain, enclosure.controller, bridge);
        return *found;
    };
    for (const std::int64_t bridge : {0, 1, 2, 3}) {
        if (enclosure.controller == "612" || bridge == 0 || bridge == 3)
            controllerAt(bridge);
    }
    for (const auto &disk : enclosure.bays) {
        if (!disk.isAttached)
            continue;
        const auto place = placeOf(enclosure, disk);
        const std::string port = std::to_string(place.port);
        const int number = numbers(disk.where);
        const auto portName = std::string("PRT").append(port).append("@").append(port);
        auto &driver = controllerAt(place.bridge)
                           .add("IOAHCIPort", portName)
                           .add("IOAHCIDevice", "IOAHCIDevice@0")
                           .add("AppleAHCIDiskDriver", "AppleAHCIDiskDriver",
                                driverProperties(disk, "External", number));
        addMedia(driver, disk, number);
    }
}

void addEnclosure(RegistryNode &root, const Enclosure &enclosure, std::size_t index,
                  const DiskNumbers &numbers)
{
    const auto at = std::to_string(index);
    auto &host = root.add("IOPCIDevice", "NHI" + at + "@0")
                     .add("AppleThunderboltHAL", "AppleThunderboltHAL")
                     .add("IOThunderboltController", "IOThunderboltController")
                     .add("IOThunderboltSwitch", "IOThunderboltSwitch@0",
                          {{"Depth", std::int64_t{0}},
                           {"UID", static_cast<std::int64_t>(index) + 1},
                           {"Route String", std::int64_t{0}},
                           {"Device Vendor ID", std::int64_t{1}},
                           {"Device Model ID", std::int64_t{0x0a}},
                           {"Device Vendor Name", std::string("Host")}});
    RegistryProperties properties{{"Depth", enclosure.depth},
                                  {"UID", enclosure.uid},
                                  {"Route String", enclosure.route},
                                  {"Device Vendor ID", enclosure.vendor},
                                  {"Device Model ID", enclosure.model},
                                  {"Device Model Name", enclosure.name},
                                  {"Device Vendor Name", enclosure.vendorName}};
    if (!enclosure.definition.empty())
        properties["Enclosure Definition"] = enclosure.definition;
    const auto &device =
        host.add("IOThunderboltSwitch", "IOThunderboltSwitch@" + std::to_string(enclosure.route),
                 std::move(properties));
    auto &chain = root.add("IOPCIDevice", "RP" + at + "@1C")
                      .add("IOPCI2PCIBridge", "IOPP")
                      .add("IOPCIDevice", "UPS" + at + "@0",
                           {{"Thunderbolt Path", device.path() + "/IOThunderboltPort@7"}})
                      .add("IOPCI2PCIBridge", "IOPP");
    addBays(chain, enclosure, numbers);
}

template <class Visit>
void visitDisks(const Machine &machine, Visit visit)
{
    for (const auto &disk : machine.disks) {
        if (disk.isAttached)
            visit(disk);
    }
    for (const auto &enclosure : machine.enclosures) {
        for (const auto &disk : enclosure.bays) {
            if (enclosure.isAttached && disk.isAttached)
                visit(disk);
        }
    }
}

} // namespace

std::shared_ptr<RegistryNode> makeTree(const Machine &machine, const DiskNumbers &numbers)
{
    auto root = RegistryNode::makeRoot();
    auto &pci = root->add("IOPlatformExpertDevice", "Simulated").add("IOPCIBridge", "PCI0@0");
    auto &sata = pci.add("IOPCIDevice", "SATA@1F,2").add("AppleAHCI", "AppleAHCI");
    auto &ports = pci.add("IOPCIDevice", "XHC1@14");
    int port = 0;
    for (const auto &disk : machine.disks) {
        if (!disk.isAttached)
            continue;
        if (disk.kind == DiskKind::Internal)
            addInternal(sata, disk, port++, numbers(disk.where));
        else
            addExternal(ports, disk, numbers(disk.where));
    }
    for (std::size_t i = 0; i < machine.enclosures.size(); ++i) {
        if (machine.enclosures[i].isAttached)
            addEnclosure(pci, machine.enclosures[i], i, numbers);
    }
    return root;
}

std::vector<MountedVolume> mountedVolumes(const Machine &machine, const DiskNumbers &numbers)
{
    std::vector<MountedVolume> mounted;
    visitDisks(machine, [&](const Disk &disk) {
        for (std::size_t i = 0; i < disk.volumes.size() && !disk.isRaid; ++i) {
            if (disk.volumes[i].isMounted)
                mounted.push_back({&disk, &disk.volumes[i], "/dev/" + partitionName(numbers(disk.where), i)});
        }
    });
    return mounted;
}

} // namespace orvana::platform::simulator
