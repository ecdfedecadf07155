#include "cli/DevicesText.h"

#include "discovery/ORVScanDevice.h"
#include "duplicate/plan/ScannedDevices.h"
#include "foundation/DeviceBlocks.h"
#include "foundation/DisplayPath.h"
#include "foundation/SizeText.h"
#include "platform/DiskHealth.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

namespace orvana::cli
{

namespace
{

using Row = std::array<std::string, 6>;

std::string shown(const std::optional<std::string> &text)
{
    return text ? displayPath(*text) : "-";
}

std::string sizeOf(const std::optional<std::int64_t> &bytes)
{
    return bytes && *bytes >= 0 ? sizeText(static_cast<std::uint64_t>(*bytes)) : "-";
}

std::string stateOf(const ORVHddInfo &disk)
{
    if (isStartupDisk(disk))
        return "start-up disk";
    if (disk.isRaidFormated())
        return "RAID set";
    return disk.isUnFormated() ? "unformatted" : "";
}

std::string healthOf(const ORVHddInfo &disk, platform::HealthReader *health)
{
    return health ? platform::textOf(health->healthOf(disk.devPath().value_or(std::string()))) : "";
}

void addRows(std::vector<Row> &rows, const ORVHddInfo &disk, const std::string &place,
             platform::HealthReader *health)
{
    rows.push_back({place, shown(disk.hddModel()), shown(disk.hddSN()), sizeOf(disk.diskSize()),
                    stateOf(disk), healthOf(disk, health)});
    for (const auto &volume : disk.bsdPathArray()) {
        if (!volume->mountPoint())
            continue;
        const auto free = volume->availableSize().value_or(0) * DeviceBlockBytes;
        const auto all = volume->capacitySize().value_or(0) * DeviceBlockBytes;
        rows.push_back(
            {"", "  " + displayPath(*volume->mountPoint()), "", sizeOf(all), sizeOf(free) + " free", ""});
    }
}

std::size_t widthOf(const std::string &text)
{
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; }));
}

std::vector<std::string> aligned(const std::vector<Row> &rows)
{
    std::array<std::size_t, 6> widths{};
    for (const auto &row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], widthOf(row[i]));
    }
    std::vector<std::string> lines;
    for (const auto &row : rows) {
        std::string line = " ";
        for (std::size_t i = 0; i < row.size(); ++i)
            line += " " + row[i] + std::string(widths[i] - widthOf(row[i]) + 1, ' ');
        line.erase(line.find_last_not_of(' ') + 1);
        lines.push_back(std::move(line));
    }
    return lines;
}

void putText(Json &object, const char *key, const std::optional<std::string> &text)
{
    if (text)
        putPath(object, key, *text);
    else
        object[key] = nullptr;
}

Json healthJson(const platform::DiskHealth &health)
{
    const auto orNull = [](const auto &value) { return value ? Json(*value) : Json(nullptr); };
    return {{"verdict", wordOf(verdictOf(health))}, {"text", textOf(health)},
            {"failing", orNull(health.isFailing)},  {"badSectors", orNull(health.badSectors)},
            {"celsius", orNull(health.celsius)},    {"hours", orNull(health.hours)},
            {"errors", orNull(health.errors)},      {"link", orNull(health.linkRate)}};
}

Json diskJson(const ORVHddInfo &disk, platform::HealthReader *health)
{
    Json json = Json::object();
    putText(json, "bay", disk.slotPath());
    putText(json, "model", disk.hddModel());
    putText(json, "serial", disk.hddSN());
    putText(json, "device", disk.devPath());
    json["size"] = disk.diskSize() ? Json(*disk.diskSize()) : Json();
    json["raid"] = disk.isRaidFormated();
    json["unformatted"] = disk.isUnFormated();
    json["startup"] = isStartupDisk(disk);
    if (health)
        json["health"] = healthJson(health->healthOf(disk.devPath().value_or(std::string())));
    json["volumes"] = Json::array();
    for (const auto &volume : disk.bsdPathArray()) {
        Json entry = Json::object();
        putText(entry, "device", volume->devPath());
        putText(entry, "mountPoint",
                volume->mountPoint() ? std::optional(*volume->mountPoint()) : std::nullopt);
        entry["capacity"] =
            volume->capacitySize() ? Json(*volume->capacitySize() * DeviceBlockBytes) : Json();
        entry["free"] = volume->availableSize() ? Json(*volume->availableSize() * DeviceBlockBytes) : Json();
        json["volumes"].push_back(std::move(entry));
    }
    return json;
}

} // namespace

std::vector<std::string> devicesText(const ORVScanDevice &scanner, platform::HealthReader *health)
{
    std::vector<std::string> lines;
    const auto append = [&](const std::vector<Row> &rows) {
        const auto more = aligned(rows);
        lines.insert(lines.end(), more.begin(), more.end());
    };
    std::size_t number = 0;
    for (const auto &enclosure : scanner.tbArray()) {
        lines.push_back("Enclosure " + std::to_string(++number) + ": " + shown(enclosure->moduleName()));
        std::vector<Row> rows;
        for (const auto &disk : enclosure->hddArray())
            addRows(rows, *disk, disk->slotPath().value_or("no bay"), health);
        append(rows);
    }
    if (scanner.tbArray().empty())
        lines.emplace_back("No enclosure");
    if (!scanner.otherDiskArray().empty())
        lines.emplace_back("Other disks");
    std::vector<Row> rows;
    for (const auto &disk : scanner.otherDiskArray())
        addRows(rows, *disk, "", health);
    append(rows);
    const auto remarks = scanner.remarks();
    if (!remarks.empty())
        lines.emplace_back("Not used");
    for (const auto &remark : remarks)
        lines.push_back("  " + remark);
    return lines;
}

Json devicesJson(const ORVScanDevice &scanner, platform::HealthReader *health)
{
    Json json = {{"enclosures", Json::array()}, {"otherDisks", Json::array()}};
    for (const auto &enclosure : scanner.tbArray()) {
        Json entry = Json::object();
        putText(entry, "name", enclosure->moduleName());
        entry["uid"] = enclosure->uid() ? Json(std::to_string(*enclosure->uid())) : Json();
        entry["disks"] = Json::array();
        for (const auto &disk : enclosure->hddArray())
            entry["disks"].push_back(diskJson(*disk, health));
        json["enclosures"].push_back(std::move(entry));
    }
    for (const auto &disk : scanner.otherDiskArray())
        json["otherDisks"].push_back(diskJson(*disk, health));
    json["remarks"] = scanner.remarks();
    return json;
}

} // namespace orvana::cli
