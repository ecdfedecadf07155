#include "platform/linux/LinuxTree.h"

#include "foundation/DeviceBlocks.h"
#include "foundation/TextHash.h"
#include "platform/EnclosureModels.h"
#include "platform/linux/ThunderboltRouters.h"

#include <algorithm>
#include <charconv>

namespace orvana::platform::linux_host
{

namespace
{

std::string hex(long number)
{
    char text[2 * sizeof number]{};
    const auto end = std::to_chars(std::begin(text), std::end(text), number < 0 ? 0 : number, 16).ptr;
    return {text, end};
}

std::vector<std::uint8_t> data(long number)
{
    const auto value = static_cast<std::uint32_t>(number);
    const auto *bytes = reinterpret_cast<const std::uint8_t *>(&value);
    return {bytes, bytes + sizeof value};
}

RegistryValue dictionary(RegistryProperties values)
{
    return std::make_shared<const RegistryDictionary>(RegistryDictionary{std::move(values)});
}

void setText(RegistryProperties &properties, const char *key, const std::optional<std::string> &text)
{
    if (text && !text->empty())
        properties[key] = *text;
}

void setNumber(RegistryProperties &properties, const char *key, const std::string &text)
{
    if (const auto number = hexNumber(text); number >= 0)
        properties[key] = std::int64_t{number};
}

// The registry needs a number. Newer routers have an identifier that is twice as long and has no meaning of
// its own, so its hash is used.
std::int64_t uidOf(const Device &router)
{
    return textHash(router.attribute("unique_id"));
}

// The program takes an enclosure with a definition for one of the maker's with four one-port controllers.
RegistryProperties enclosureProperties(const enclosures::Definition &definition)
{
    return {{"Route String", std::int64_t{1}},
            {"Depth", std::int64_t{1}},
            {"UID", textHash("enclosure:" + definition.id)},
            {"Device Vendor ID", MakerVendor},
            {"Device Model ID", FourBayModels.front()},
            {"Device Vendor Name", std::string("Definition")},
            {"Device Model Name", definition.name},
            {"Enclosure Definition", definition.id}};
}

RegistryProperties routerProperties(const Device &router)
{
    RegistryProperties properties{{"Route String", std::int64_t{routeOf(router)}},
                                  {"Depth", std::int64_t{depthOf(router)}},
                                  {"UID", uidOf(router)}};
    setNumber(properties, "Device Vendor ID", router.attribute("vendor"));
    setNumber(properties, "Device Model ID", router.attribute("device"));
    setText(properties, "Device Vendor Name", router.attribute("vendor_name"));
    setText(properties, "Device Model Name", router.attribute("device_name"));
    return properties;
}

RegistryProperties mediaProperties(const std::string &name, bool isWhole, bool isLeaf, bool isOpen,
                                   std::int64_t size, const std::string &content)
{
    return {{"BSD Name", name}, {"Whole", isWhole}, {"Leaf", isLeaf},
            {"Open", isOpen},   {"Size", size},     {"Content", content}};
}

class TreeBuilder
{
public:
    TreeBuilder(const SystemState &system, const DiskNames &names)
        : m_devices(system.devices), m_defined(system.defined), m_names(names)
    {
        m_platform = &m_tree.root->add("IOPlatformExpertDevice", "Machine");
    }

    LinuxTree build(const std::vector<Disk> &disks)
    {
        for (const auto *pci : m_devices.ofSubsystem("pci"))
            addPci(*pci);
        for (const auto *router : routersOf(m_devices))
            addRouter(*router);
        addDefinedEnclosures();
        for (const auto &disk : disks)
            addDisk(disk);
        for (const auto &[path, node] : m_pci)
            m_tree.pci[path] = RegistryEntryPtr(m_tree.root, node);
        return std::move(m_tree);
    }

private:
    // Devices come in the order of their paths, so the device above is already in the tree.
    void addPci(const Device &pci)
    {
        auto &parent = aboveOf(pci);
        const auto dot = pci.name.rfind('.');
        const auto function = dot == std::string::npos ? std::string("0") : pci.name.substr(dot + 1);
        auto place = hex(std::max(slotNumberOf(pci), 0L));
        if (function != "0")
            place.append(",").append(function);
        if (isUnknownBay(pci))
            place = pci.name;
        const auto name = isBridge(pci) ? std::string("pci-bridge") : pciNameOf(pci);
        // One bridge may lead to several buses, and each bus has the same places.
        if (!m_places.insert(parent.path() + "/" + name + "@" + place).second)
            place = pci.name;
        auto &node = parent.add("IOPCIDevice", name + "@" + place,
                                {{"vendor-id", data(hexNumber(pci.attribute("vendor")))},
                                 {"device-id", data(hexNumber(pci.attribute("device")))}});
        m_pci[pci.path] = &node;
        m_below[pci.path] = isBridge(pci) ? &node.add("IOPCI2PCIBridge", "IOPP") : &node;
    }

    // The number of the bridge above a controller names the bay, but only when all bridges are exactly those
    // of an enclosure. The number alone proves nothing.
    bool isUnknownBay(const Device &port) const
    {
        const auto controllers = m_devices.childrenOf(port);
        const auto *bridge = m_devices.at(pathAbove(port.path));
        return std::any_of(controllers.begin(), controllers.end(),
                           [](const Device *device) { return isBayController(*device); }) &&
               !(bridge && isEnclosureBridge(m_devices, *bridge));
    }

    // Returns the entry of the device directly above, which must be in the same snapshot. If that device is
    // missing, the next device above would give `pci` the place of another bridge.
    RegistryNode &aboveOf(const Device &pci)
    {
        const auto folder = pathAbove(pci.path);
        const auto found = m_below.find(folder);
        if (found != m_below.end())
            return *found->second;
        return m_devices.above(pci, "pci") ? m_platform->add("IOPCIBridge", "Unknown@" + pci.name)
                                           : busOf(pci);
    }

    // "/sys/devices/pci0000:00" is the folder of the root bus. It is not a device.
    RegistryNode &busOf(const Device &pci)
    {
        const auto folder = pathAbove(pci.path);
        auto *&bus = m_buses[folder];
        if (!bus)
            bus = &m_platform->add("IOPCIBridge", folder.substr(folder.rfind('/') + 1) + "@0");
        return *bus;
    }

    void addRouter(const Device &router)
    {
        auto &parent = aboveRouter(router);
        m_routers[router.path] = &parent.add(
            "IOThunderboltSwitch", "IOThunderboltSwitch@" + hex(routeOf(router)), routerProperties(router));
    }

    void addDefinedEnclosures()
    {
        for (std::size_t i = 0; i < m_defined.definitions.size(); ++i) {
            if (m_defined.isPresent[i])
                addDefined(m_defined.definitions[i]);
        }
    }

    // Each bay has a controller behind a bridge of its own, with the numbers by which bays are told.
    void addDefined(const enclosures::Definition &definition)
    {
        auto &enclosure = m_platform->add("IOThunderboltSwitch", "IOThunderboltSwitch@" + definition.id,
                                          enclosureProperties(definition));
        m_enclosures[&definition] = enclosure.path();
        for (const auto &[bay, ports] : definition.bays) {
            auto &bridge = enclosure.add("IOPCIDevice", "pci-bridge@" + std::to_string(bay - 'A'))
                               .add("IOPCI2PCIBridge", "IOPP");
            m_pci[keyOf({&definition, bay})] = &bridge.add("IOPCIDevice", "pci1b21,612@0");
        }
    }

    RegistryNode &aboveRouter(const Device &router)
    {
        const auto *above = m_devices.above(router, "thunderbolt");
        if (above) {
            if (const auto found = m_routers.find(above->path); found != m_routers.end())
                return *found->second;
        }
        auto *&domain = m_domains[above ? above->path : std::string()];
        if (!domain) {
            const auto *controller = m_devices.above(router, "pci");
            auto &parent = controller ? *m_below.at(controller->path) : *m_platform;
            domain = &parent.add("IOThunderboltController", above ? above->name : "IOThunderboltController");
        }
        return *domain;
    }

    void addDisk(const Disk &disk)
    {
        auto &parent = disk.definedBay   ? *m_pci.at(keyOf(*disk.definedBay))
                       : disk.controller ? *m_below.at(disk.controller->path)
                                         : *m_platform;
        if (disk.diskClass == DiskClass::Services)
            addMedia(addServices(parent, disk), disk);
        else
            addMedia(addDriver(parent, disk), disk);
    }

    static RegistryNode &addServices(RegistryNode &parent, const Disk &disk)
    {
        RegistryProperties device;
        setText(device, "Vendor Name", disk.vendor);
        setText(device, "Product Name", disk.product);
        RegistryProperties properties{
            {"Device Characteristics", dictionary(std::move(device))},
            {"Protocol Characteristics", dictionary({{"Physical Interconnect", disk.interconnect},
                                                     {"Physical Interconnect Location", locationOf(disk)}})}};
        setMarks(properties, disk);
        return parent.add("IOBlockStorageServices", "IOBlockStorageServices@" + disk.device->name,
                          std::move(properties));
    }

    static void setMarks(RegistryProperties &properties, const Disk &disk)
    {
        setText(properties, "Unit Serial Number", disk.serial);
        setText(properties, "World Wide Name", disk.wwn);
        if (disk.sequence)
            properties["Arrival Number"] = static_cast<std::int64_t>(*disk.sequence);
    }

    RegistryNode &addDriver(RegistryNode &parent, const Disk &disk)
    {
        RegistryProperties properties{{"Physical Interconnect Location", locationOf(disk)}};
        setText(properties, "Model", disk.model);
        setText(properties, "Serial Number", disk.serial);
        setMarks(properties, disk);
        if (disk.definedBay)
            properties["Thunderbolt Path"] =
                m_enclosures.at(disk.definedBay->definition) + "/IOThunderboltPort@7";
        else if (disk.router)
            properties["Thunderbolt Path"] = m_routers.at(disk.router->path)->path() + "/IOThunderboltPort@7";
        auto *above = &parent;
        if (disk.port) {
            const auto number = std::to_string(*disk.port);
            auto name = "PRT" + number;
            name.append("@").append(number);
            above = &controllerAt(parent).add("IOAHCIPort", name);
        }
        // Disks of one controller may have everything else in common, but each has its own kernel name.
        return above->add("IOBlockStorageDevice", disk.device->name + "@" + std::to_string(disk.channel))
            .add("AppleAHCIDiskDriver", "AppleAHCIDiskDriver", std::move(properties));
    }

    RegistryNode &controllerAt(RegistryNode &pci)
    {
        auto *&controller = m_controllers[&pci];
        if (!controller)
            controller = &pci.add("AppleAHCI", "AppleAHCI");
        return *controller;
    }

    static std::string locationOf(const Disk &disk) { return disk.isExternal ? "External" : "Internal"; }

    void addMedia(RegistryNode &driver, const Disk &disk)
    {
        const auto number = m_names.numberOf(disk);
        if (!number || disk.blocks == 0)
            return; // a card reader without a card
        auto whole = mediaProperties(DiskNames::nameOf(*number), true, disk.partitions.empty(), disk.isOpen,
                                     static_cast<std::int64_t>(disk.blocks) * DeviceBlockBytes, disk.content);
        if (disk.isRaid)
            whole["RAID"] = true;
        auto &media = driver.add("IOBlockStorageDriver", "IOBlockStorageDriver")
                          .add("IOMedia", "Media@0", std::move(whole));
        if (disk.partitions.empty())
            return;
        auto &scheme = media.add("IOPartitionScheme", "IOPartitionScheme");
        for (const auto &partition : disk.partitions)
            addPartition(scheme, partition, *number);
    }

    static void addPartition(RegistryNode &scheme, const Partition &partition, int number)
    {
        const auto size = std::max(decimalNumber(partition.device->attribute("size")), 0L) * DeviceBlockBytes;
        const auto content = partition.number == 0 ? partition.device->property("ID_FS_TYPE")
                                                   : partition.device->property("ID_PART_ENTRY_TYPE");
        // When an open medium is not a leaf, the scan takes its node for the node of the whole disk. A member
        // of a volume group is neither a volume nor the whole disk, so it is not shown as open.
        auto properties = mediaProperties(DiskNames::nameOf(number, partition), false, partition.isLeaf,
                                          partition.isOpen && partition.isLeaf, size, content);
        setText(properties, "Volume UUID", partition.device->property("ID_FS_UUID"));
        const auto name = "Media@" + std::to_string(partition.number);
        auto &media = scheme.add("IOMedia", name, std::move(properties));
        if (!partition.isLeaf && partition.holdsRoot)
            media.add("IOMedia", "Media@1",
                      mediaProperties(nameOfRootAbove(number, partition), false, true, true, size, {}));
    }

    const DeviceList &m_devices;
    const DefinedBays &m_defined;
    const DiskNames &m_names;
    LinuxTree m_tree{RegistryNode::makeRoot(), {}};
    RegistryNode *m_platform;
    std::set<std::string> m_places;
    std::map<std::string, RegistryNode *> m_buses;
    std::map<std::string, RegistryNode *> m_pci;   // the entries of the devices themselves
    std::map<std::string, RegistryNode *> m_below; // the entries that hold the devices below them
    std::map<const enclosures::Definition *, std::string> m_enclosures; // paths of the defined ones
    std::map<std::string, RegistryNode *> m_domains;
    std::map<std::string, RegistryNode *> m_routers;
    std::map<RegistryNode *, RegistryNode *> m_controllers;
};

} // namespace

LinuxTree makeTree(const SystemState &system, const std::vector<Disk> &disks, const DiskNames &names)
{
    return TreeBuilder(system, names).build(disks);
}

std::optional<std::string> controllerOf(const Disk &disk)
{
    if (disk.definedBay)
        return keyOf(*disk.definedBay);
    return disk.controller ? std::optional(disk.controller->path) : std::nullopt;
}

std::string pciNameOf(const Device &pci)
{
    return "pci" + hex(hexNumber(pci.attribute("vendor"))) + "," + hex(hexNumber(pci.attribute("device")));
}

std::string nameOfRootAbove(int number, const Partition &partition)
{
    return DiskNames::nameOf(number, partition) + "s1";
}

} // namespace orvana::platform::linux_host
