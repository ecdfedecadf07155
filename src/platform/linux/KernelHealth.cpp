// This file reads what the kernel's own files say of a disk.

#include "platform/linux/LinuxHealth.h"

#include <charconv>
#include <filesystem>
#include <fstream>

namespace orvana::platform::linux_host
{

namespace
{

namespace fs = std::filesystem;

constexpr double Thousandths = 1000.0; // temperatures are in thousandths of a degree

std::string firstLineOf(const fs::path &path)
{
    std::string line;
    std::getline(std::ifstream(path), line);
    return line;
}

// Returns the number in the file; nullopt if there is none. Counts of errors are hexadecimal, "0x3".
std::optional<std::int64_t> numberIn(const fs::path &path)
{
    auto text = firstLineOf(path);
    const bool isHex = text.starts_with("0x");
    if (isHex)
        text.erase(0, 2);
    std::int64_t number = 0;
    const auto *end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number, isHex ? 16 : 10);
    return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

std::vector<fs::path> entriesOf(const fs::path &folder)
{
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path());
    return entries;
}

void addTemperature(DiskHealth &health, const fs::path &sys, const fs::path &device)
{
    for (const auto &sensor : entriesOf(sys / "class/hwmon")) {
        std::error_code error;
        if (fs::canonical(sensor / "device", error) != device || error)
            continue;
        if (const auto value = numberIn(sensor / "temp1_input"))
            health.celsius = static_cast<double>(*value) / Thousandths;
        if (const auto value = numberIn(sensor / "temp1_crit"))
            health.criticalCelsius = static_cast<double>(*value) / Thousandths;
        // NVMe disks: the bit "temperature" of what they call their critical warnings.
        health.hasHeatAlarm = numberIn(sensor / "temp1_alarm").value_or(0) != 0;
    }
}

// The disk's path holds the controller's port ("ata3"), and the port has a link of the same number.
void addLink(DiskHealth &health, const fs::path &sys, const fs::path &device)
{
    for (const auto &part : device) {
        const auto name = part.string();
        if (!name.starts_with("ata") || name.size() == 3 ||
            name.find_first_not_of("0123456789", 3) != std::string::npos)
            continue;
        const auto rate = firstLineOf(sys / "class/ata_link" / ("link" + name.substr(3)) / "sata_spd");
        if (rate.ends_with("Gbps"))
            health.linkRate = rate;
    }
}

} // namespace

void addKernelFacts(DiskHealth &health, const std::string &sys, const std::string &name)
{
    std::error_code error;
    const auto device = fs::canonical(fs::path(sys) / "block" / name / "device", error);
    if (error)
        return;
    addTemperature(health, sys, device);
    addLink(health, sys, device);
    health.errors = numberIn(device / "ioerr_cnt");
}

} // namespace orvana::platform::linux_host
