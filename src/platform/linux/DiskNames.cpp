#include "platform/linux/DiskNames.h"

#include "platform/linux/ThunderboltRouters.h"

namespace orvana::platform::linux_host
{

namespace
{

std::string placeOf(const Disk &disk)
{
    if (disk.definedBay)
        return keyOf(*disk.definedBay);
    if (!disk.router || !disk.controller)
        return disk.device->path;
    const auto bridge = pathAbove(disk.controller->path);
    auto place = disk.router->attribute("unique_id");
    place.append("/").append(bridge.substr(bridge.rfind(':') + 1));
    place.append("/").append(disk.controller->attribute("vendor"));
    place.append(":").append(disk.controller->attribute("device"));
    place.append("/").append(disk.port ? std::to_string(*disk.port) : disk.device->name);
    place.append("/").append(std::to_string(disk.channel));
    return place;
}

} // namespace

DiskIdentity identityOf(const Disk &disk)
{
    return {disk.sequence, disk.serial, disk.blocks, placeOf(disk)};
}

void DiskNames::bind(const std::vector<Disk> &disks)
{
    std::map<DiskIdentity, int> numbers;
    for (const auto &disk : disks) {
        auto identity = identityOf(disk);
        const auto known = m_numbers.find(identity);
        const int number = known == m_numbers.end() ? m_next++ : known->second;
        numbers.emplace(std::move(identity), number);
    }
    m_numbers = std::move(numbers);
}

std::optional<int> DiskNames::numberOf(const Disk &disk) const
{
    const auto found = m_numbers.find(identityOf(disk));
    return found == m_numbers.end() ? std::nullopt : std::optional(found->second);
}

std::string DiskNames::nameOf(int number)
{
    return "disk" + std::to_string(number);
}

std::string DiskNames::nameOf(int number, const Partition &partition)
{
    return nameOf(number) + "s" + std::to_string(partition.number);
}

} // namespace orvana::platform::linux_host
