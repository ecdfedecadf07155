#include "platform/linux/DefinedBays.h"

#include "foundation/DisplayPath.h"
#include "platform/linux/DiskPorts.h"
#include "platform/linux/Disks.h"
#include "platform/linux/SystemClaims.h"
#include "platform/linux/ThunderboltRouters.h"

namespace orvana::platform::linux_host
{

namespace
{

const std::string KeyStart = "enclosure:";

bool isInAnotherEnclosure(const DeviceList &devices, const Device &disk)
{
    const auto *pci = devices.above(disk, "pci");
    const auto place = pci ? routerOfPci(devices, *pci) : RouterPlace();
    return place.router && isFourBayEnclosure(*place.router);
}

std::string titleOf(const Device &disk)
{
    const auto serial = disk.property("ID_SERIAL_SHORT");
    return disk.name + " (" + (serial.empty() ? "no serial number" : displayPath(serial)) + ")";
}

} // namespace

std::string keyOf(const DefinedBay &bay)
{
    return KeyStart + bay.definition->id + "/" + bay.bay;
}

bool isBayKey(const std::string &key)
{
    return key.starts_with(KeyStart);
}

std::optional<DefinedBay> DefinedBays::bayOf(const Device &disk) const
{
    const auto found = bays.find(disk.path);
    return found == bays.end()
               ? std::nullopt
               : std::optional(DefinedBay{&definitions[found->second.definition], found->second.bay});
}

DefinedBays findDefinedBays(const SystemState &system, const SystemFiles &files)
{
    auto set = files.definitions();
    DefinedBays defined{std::move(set.definitions), {}, {}, std::move(set.problems)};
    if (defined.definitions.empty())
        return defined;
    std::vector<enclosures::DiskPlace> places;
    for (const auto *disk : system.devices.ofType("disk")) {
        // A slot of a card reader is a disk without blocks while no card is in it.
        if (isPhysicalDisk(*disk) && decimalNumber(disk->attribute("size")) > 0)
            places.push_back(placeOfDisk(system.devices, *disk));
    }
    auto claims = enclosures::claimBays(defined.definitions, anchorDevicesOf(system.devices), places);
    defined.isPresent = std::move(claims.isPresent);
    const auto remark = [&](const std::string &path, const std::string &reason) {
        defined.remarks.push_back(titleOf(*system.devices.at(path)) + " " + reason + "; it is in no bay");
    };
    for (const auto &[path, reason] : claims.unclear)
        remark(path, "is not where one can tell: " + reason);
    const SystemClaims tables(files.tables);
    for (const auto &[path, claim] : claims.bays) {
        const auto &disk = *system.devices.at(path);
        if (isInAnotherEnclosure(system.devices, disk))
            remark(path, "is in an enclosure that needs no definition");
        else if (const auto reason = tables.reasonFor(system, disk); !reason.empty())
            remark(path, reason);
        else
            defined.bays.emplace(path, claim);
    }
    for (auto &sentence : claims.remarks)
        defined.remarks.push_back(std::move(sentence));
    for (auto &sentence : enclosures::sharedPorts(defined.definitions))
        defined.remarks.push_back(std::move(sentence));
    return defined;
}

} // namespace orvana::platform::linux_host
