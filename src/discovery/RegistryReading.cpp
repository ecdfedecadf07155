#include "discovery/RegistryReading.h"

namespace orvana
{

using platform::RegistryEntry;
using platform::valueOf;

namespace
{

constexpr const char *WhiteSpace = " \t\n\v\f\r";
constexpr std::size_t LongestDevicePath = 1023;
constexpr std::int64_t ScannedState = 4;

std::optional<std::int64_t> numberUpward(const RegistryEntry &entry, const std::string &key)
{
    const auto found = platform::searchUpward(entry, key);
    const auto *number = found ? std::get_if<std::int64_t>(&*found) : nullptr;
    return number ? std::optional(*number) : std::nullopt;
}

std::optional<std::int64_t> uidAbove(const RegistryEntry &entry)
{
    const auto parent = entry.parent();
    return parent ? numberUpward(*parent, "UID") : std::nullopt;
}

} // namespace

std::optional<std::string> textOf(const RegistryEntry &entry, const std::string &key)
{
    return valueOf<std::string>(entry.properties(), key);
}

std::optional<std::int64_t> numberOf(const RegistryEntry &entry, const std::string &key)
{
    return valueOf<std::int64_t>(entry.properties(), key);
}

std::optional<bool> flagOf(const RegistryEntry &entry, const std::string &key)
{
    return valueOf<bool>(entry.properties(), key);
}

std::string trimmed(const std::string &text)
{
    const auto first = text.find_first_not_of(WhiteSpace);
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(WhiteSpace) - first + 1);
}

std::optional<std::string> trimmedTextOf(const RegistryEntry &entry, const std::string &key)
{
    const auto text = textOf(entry, key);
    return text ? std::optional(trimmed(*text)) : std::nullopt;
}

std::string devicePathOf(const RegistryEntry &entry)
{
    const auto name = textOf(entry, "BSD Name");
    return name ? ("/dev/" + *name).substr(0, LongestDevicePath) : std::string();
}

std::shared_ptr<ORVThunderboltInfo> switchRecordOf(const RegistryEntry &entry)
{
    auto record = std::make_shared<ORVThunderboltInfo>();
    record->setModuleName(textOf(entry, "Device Model Name"));
    record->setUid(numberOf(entry, "UID"));
    record->setRouteSring(numberOf(entry, "Route String"));
    record->setDepth(numberOf(entry, "Depth"));
    if (record->depth().value_or(0) > 0)
        record->setParentTb(uidAbove(entry));
    record->setTbPath(entry.path());
    record->setDefinition(textOf(entry, "Enclosure Definition"));
    record->setModuleID(numberOf(entry, "Device Model ID"));
    record->setVendorID(numberOf(entry, "Device Vendor ID"));
    record->setVendorName(textOf(entry, "Device Vendor Name"));
    record->setState(ScannedState);
    return record;
}

std::optional<std::string> switchPathOf(const RegistryEntry &entry)
{
    const auto found = platform::searchUpward(entry, "Thunderbolt Path");
    const auto *path = found ? std::get_if<std::string>(&*found) : nullptr;
    if (!path)
        return std::nullopt;
    const auto slash = path->rfind('/');
    return slash == std::string::npos ? std::string() : path->substr(0, slash);
}

std::shared_ptr<ORVHddInfo> diskRecordOf(const RegistryEntry &entry)
{
    auto disk = std::make_shared<ORVHddInfo>();
    disk->setHddModel(trimmedTextOf(entry, "Model"));
    disk->setHddSN(trimmedTextOf(entry, "Serial Number"));
    readMarks(entry, *disk);
    return disk;
}

void readMarks(const RegistryEntry &entry, ORVHddInfo &disk)
{
    disk.setUnitSerial(trimmedTextOf(entry, "Unit Serial Number"));
    disk.setWwn(trimmedTextOf(entry, "World Wide Name"));
    disk.setArrival(numberOf(entry, "Arrival Number"));
}

void noteOtherPartition(const RegistryEntry &entry, ORVHddInfo &disk)
{
    const bool isUsable = flagOf(entry, "Open") == true && flagOf(entry, "Leaf") == true;
    if (flagOf(entry, "Whole") == false && !isUsable)
        disk.setHasOtherPartitions(true);
}

std::shared_ptr<ORVBsdInfo> volumeRecord(const RegistryEntry &entry)
{
    auto volume = std::make_shared<ORVBsdInfo>();
    volume->setDevPath(devicePathOf(entry));
    volume->setVolumeId(textOf(entry, "Volume UUID"));
    return volume;
}

} // namespace orvana
