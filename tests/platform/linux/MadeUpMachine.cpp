#include "platform/linux/MadeUpMachine.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <thread>
#include <umockdev.h>
#include <unistd.h>

namespace orvana::test
{

namespace
{

constexpr const char *Library = "libumockdev-preload.so.0";

std::string nameOf(const std::string &path)
{
    return path.substr(path.rfind('/') + 1);
}

std::string twoDigits(int number)
{
    const char *digits = "0123456789abcdef";
    return {digits[number / 16 % 16], digits[number % 16]};
}

} // namespace

bool hasMadeUpDevices()
{
    const char *preloaded = std::getenv("LD_PRELOAD");
    return preloaded && std::string(preloaded).find(Library) != std::string::npos;
}

void startWithMadeUpDevices(char **arguments)
{
    ::setenv("LD_PRELOAD", Library, 1);
    // The address sanitizer asks to be loaded first, but it also works when it is loaded second.
    ::setenv("ASAN_OPTIONS", "verify_asan_link_order=0", 0);
    ::execv("/proc/self/exe", arguments);
}

struct MadeUpMachine::Testbed
{
    UMockdevTestbed *bed = umockdev_testbed_new();

    Testbed() = default;
    ~Testbed() { g_object_unref(bed); }
    Testbed(const Testbed &) = delete;
    Testbed &operator=(const Testbed &) = delete;
};

MadeUpMachine::MadeUpMachine() : m_testbed(std::make_unique<Testbed>())
{
    writeMounts();
    m_tree.file("swaps", "Filename\tType\tSize\tUsed\tPriority\n");
}

MadeUpMachine::~MadeUpMachine() = default;

std::string MadeUpMachine::add(const std::string &path, const std::string &subsystem,
                               const std::vector<std::string> &lines)
{
    std::string text = "P: " + path.substr(4) + "\n";
    for (const auto &line : lines)
        text.append(line).append("\n");
    text.append("E: SUBSYSTEM=").append(subsystem).append("\n\n");
    GError *error = nullptr;
    if (!umockdev_testbed_add_from_string(m_testbed->bed, text.c_str(), &error))
        throw std::runtime_error(error->message);
    letReadersKeepUp();
    m_paths.push_back(path);
    return path;
}

void MadeUpMachine::load(const std::string &file) const
{
    GError *error = nullptr;
    if (!umockdev_testbed_add_from_file(m_testbed->bed, file.c_str(), &error))
        throw std::runtime_error(error->message);
}

std::string MadeUpMachine::addPci(const std::string &above, const std::string &name,
                                  const std::string &vendor, const std::string &device,
                                  const std::string &pciClass, const std::vector<std::string> &lines)
{
    std::vector<std::string> all{"A: vendor=" + vendor, "A: device=" + device, "A: class=" + pciClass};
    all.insert(all.end(), lines.begin(), lines.end());
    return add((above.empty() ? "/sys/devices/pci0000:00" : above) + "/" + name, "pci", all);
}

std::string MadeUpMachine::addBridge(const std::string &above, const std::string &name,
                                     const std::vector<std::string> &lines)
{
    return addPci(above, name, "0x8086", "0x156d", "0x060400", lines);
}

std::string MadeUpMachine::addAhci(const std::string &above, const std::string &name,
                                   const std::string &vendor, const std::string &device)
{
    return addPci(above, name, vendor, device, "0x010601");
}

std::string MadeUpMachine::addThunderbolt(const std::string &above, const std::string &name, int domain)
{
    const auto number = std::to_string(domain);
    const auto controller = addPci(above, name, "0x8086", "0x9a1b", "0x0c0340");
    const auto bus = add(controller + "/domain" + number, "thunderbolt",
                         {"E: DEVTYPE=thunderbolt_domain", "A: security=user"});
    return add(bus + "/" + number + "-0", "thunderbolt",
               {"E: DEVTYPE=thunderbolt_device", "A: vendor=0x8086", "A: device=0x1",
                "A: unique_id=d4010000-0070-6508-2333-1f0e8a10a91" + number, "A: authorized=1"});
}

std::string MadeUpMachine::addRouter(const std::string &above, const std::string &route,
                                     const std::string &vendor, const std::string &model,
                                     const std::string &authorized)
{
    const auto name = nameOf(above);
    return add(above + "/" + name.substr(0, name.find('-')) + "-" + route, "thunderbolt",
               {"E: DEVTYPE=thunderbolt_device", "A: vendor=" + vendor, "A: device=" + model,
                "A: vendor_name=Orvana", "A: device_name=Four Bay " + route,
                "A: unique_id=e6d5c4b3-a201-3412-ffff-00000000" + name.substr(0, 1) + route,
                "A: authorized=" + authorized});
}

std::string MadeUpMachine::addEnclosureBridges(const std::string &port, const std::string &controller,
                                               int bus)
{
    const auto at = [](int number, int slot) {
        return "0000:" + twoDigits(number) + ":" + twoDigits(slot) + ".0";
    };
    const auto upper = addBridge(port, at(bus, 0));
    const std::vector<int> bridges = controller == "612" ? std::vector{0, 1, 2, 3} : std::vector{0, 3};
    for (const int bridge : bridges)
        addAhci(addBridge(upper, at(bus + 1, bridge)), at(bus + 2 + bridge, 0), "0x1b21", "0x0" + controller);
    return upper;
}

std::string MadeUpMachine::controllerOf(const std::string &upperSide, int bridge) const
{
    const auto port = ":" + twoDigits(bridge) + ".0/";
    const auto found = std::find_if(m_paths.begin(), m_paths.end(), [&](const std::string &path) {
        return path.starts_with(upperSide + "/") &&
               std::count(path.begin(), path.end(), '/') ==
                   std::count(upperSide.begin(), upperSide.end(), '/') + 2 &&
               path.find(port, upperSide.size()) != std::string::npos;
    });
    return found == m_paths.end() ? throw std::runtime_error("no controller there") : *found;
}

std::string MadeUpMachine::addSataDisk(const std::string &controller, int port, const MadeUpDisk &disk)
{
    const auto host = std::to_string(++m_host);
    const auto ata = controller + "/ata" + host;
    add(ata, "ata"); // the kernel gives it no subsystem, but here each device has one
    add(ata + "/ata_port/ata" + host, "ata_port", {"A: port_no=" + std::to_string(port + 1)});
    const auto scsiHost = add(ata + "/host" + host, "scsi", {"E: DEVTYPE=scsi_host"});
    const auto scsi = scsiHost + "/target" + host + ":0:0/" + host + ":0:0:0";
    add(scsi, "scsi", {"E: DEVTYPE=scsi_device", "A: vendor=ATA     ", "A: model=" + disk.model});
    return addBlock(scsi, disk);
}

std::string MadeUpMachine::addUsbController(const std::string &name, int bus)
{
    const auto controller = addPci({}, name, "0x8086", "0xa36d", "0x0c0330");
    return add(controller + "/usb" + std::to_string(bus), "usb",
               {"E: DEVTYPE=usb_device", "A: idVendor=1d6b", "A: idProduct=0003", "A: serial=" + name,
                "A: removable=unknown"});
}

std::string MadeUpMachine::addUsb(const std::string &hub, int port, const std::string &ids,
                                  const std::string &serial, const std::string &removable)
{
    const auto above = nameOf(hub);
    const auto name = (above.starts_with("usb") ? above.substr(3) + "-" : above + ".") + std::to_string(port);
    std::vector<std::string> lines{"E: DEVTYPE=usb_device", "A: idVendor=" + ids.substr(0, 4),
                                   "A: idProduct=" + ids.substr(5), "A: removable=" + removable};
    if (!serial.empty())
        lines.push_back("A: serial=" + serial);
    return add(hub + "/" + name, "usb", lines);
}

std::string MadeUpMachine::addUsbDisk(const std::string &device, const MadeUpDisk &disk, int lun)
{
    const auto interface = device + "/" + nameOf(device) + ":1.0";
    if (lun == 0) {
        add(interface, "usb", {"E: DEVTYPE=usb_interface"});
        ++m_host;
        add(interface + "/host" + std::to_string(m_host), "scsi", {"E: DEVTYPE=scsi_host"});
    }
    const auto host = std::to_string(m_host);
    const auto scsi =
        interface + "/host" + host + "/target" + host + ":0:0/" + host + ":0:0:" + std::to_string(lun);
    add(scsi, "scsi", {"E: DEVTYPE=scsi_device", "A: vendor=Dock    ", "A: model=" + disk.model});
    auto usbDisk = disk;
    usbDisk.properties.push_back("ID_BUS=usb");
    return addBlock(scsi, usbDisk);
}

std::string MadeUpMachine::addNvmeDisk(const std::string &controller, const MadeUpDisk &disk)
{
    const auto nvme = add(controller + "/nvme/" + disk.node.substr(0, disk.node.size() - 2), "nvme",
                          {"A: model=" + disk.model, "A: serial=" + disk.serial});
    const auto number = std::to_string(m_numbers.size() * 16);
    m_numbers[disk.node] = "259:" + number;
    const auto path = add(nvme + "/" + disk.node, "block",
                          {"N: " + disk.node, "E: DEVTYPE=disk", "E: MAJOR=259", "E: MINOR=" + number,
                           "E: DEVNAME=/dev/" + disk.node, "E: DISKSEQ=" + std::to_string(m_paths.size()),
                           "E: ID_MODEL=" + disk.model, "E: ID_SERIAL_SHORT=" + disk.serial, "A: nsid=1",
                           "A: size=" + std::to_string(disk.blocks)});
    makeFolder(path + "/holders");
    return path;
}

std::string MadeUpMachine::addBlock(const std::string &above, const MadeUpDisk &disk)
{
    const auto number = std::to_string(m_numbers.size() * 16);
    m_numbers[disk.node] = "8:" + number;
    std::vector<std::string> lines{"N: " + disk.node,
                                   "E: DEVTYPE=disk",
                                   "E: MAJOR=8",
                                   "E: MINOR=" + number,
                                   "E: DEVNAME=/dev/" + disk.node,
                                   "E: DISKSEQ=" + std::to_string(m_paths.size()),
                                   "E: ID_MODEL=" + disk.model,
                                   "A: size=" + std::to_string(disk.blocks)};
    if (!disk.serial.empty())
        lines.push_back("E: ID_SERIAL_SHORT=" + disk.serial);
    for (const auto &property : disk.properties)
        lines.push_back("E: " + property);
    const auto path = add(above + "/block/" + disk.node, "block", lines);
    makeFolder(path + "/holders");
    return path;
}

std::string MadeUpMachine::addPartition(const std::string &disk, int number,
                                        const std::vector<std::string> &properties)
{
    const auto whole = nameOf(disk);
    const auto node = whole + (whole.starts_with("nvme") ? "p" : "") + std::to_string(number);
    const auto minor = m_numbers.at(whole).substr(2);
    m_numbers[node] = "8:" + std::to_string(std::stoi(minor) + number);
    std::vector<std::string> lines{"N: " + node,
                                   "E: DEVTYPE=partition",
                                   "E: MAJOR=8",
                                   "E: MINOR=" + m_numbers[node].substr(2),
                                   "E: DEVNAME=/dev/" + node,
                                   "A: partition=" + std::to_string(number),
                                   "A: size=2048"};
    if (properties != Unexamined)
        lines.push_back("E: ID_PART_ENTRY_NUMBER=" + std::to_string(number));
    for (const auto &property : properties)
        lines.push_back("E: " + property);
    const auto path = add(disk + "/" + node, "block", lines);
    makeFolder(path + "/holders");
    return path;
}

void MadeUpMachine::pull(const std::string &path)
{
    for (std::size_t i = m_paths.size(); i-- > 0;) {
        if (m_paths[i] != path && !m_paths[i].starts_with(path + "/"))
            continue;
        const auto gone = m_paths[i];
        m_paths.erase(m_paths.begin() + static_cast<std::ptrdiff_t>(i));
        umockdev_testbed_uevent(m_testbed->bed, gone.c_str(), "remove");
        letReadersKeepUp();
        umockdev_testbed_remove_device(m_testbed->bed, gone.c_str());
        // The testbed does not remove these files.
        if (gone.find("/block/") != std::string::npos) {
            std::filesystem::remove(rootFolder() + "/dev/" + nameOf(gone));
            std::filesystem::remove(rootFolder() + "/sys/block/" + nameOf(gone));
        }
    }
}

void MadeUpMachine::tell(const std::string &path, const std::string &action)
{
    umockdev_testbed_uevent(m_testbed->bed, path.c_str(), action.c_str());
    letReadersKeepUp();
}

// The socket of a reader holds ten events (net.unix.max_dgram_qlen). With one more the test bed ends the
// program. Each reader has a socket in the test bed's folder.
void MadeUpMachine::letReadersKeepUp() const
{
    for (const auto &entry : std::filesystem::directory_iterator(rootFolder())) {
        if (entry.path().filename().string().starts_with("event"))
            return std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

void MadeUpMachine::makeFolder(const std::string &path) const
{
    std::filesystem::create_directories(rootFolder() + path);
}

std::string MadeUpMachine::rootFolder() const
{
    gchar *folder = umockdev_testbed_get_root_dir(m_testbed->bed);
    std::string path = folder;
    g_free(folder);
    return path;
}

} // namespace orvana::test
