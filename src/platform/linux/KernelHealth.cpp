// This file reads what the kernel's own files say of a disk.

#include "platform/linux/LinuxHealth.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>

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

// Returns the number of the controller's port, which the disk's path holds ("ata3"); empty for a disk on
// none.
std::string ataPortOf(const fs::path &device)
{
    std::string port;
    for (const auto &part : device) {
        const auto name = part.string();
        if (name.starts_with("ata") && name.size() > 3 &&
            name.find_first_not_of("0123456789", 3) == std::string::npos)
            port = name.substr(3);
    }
    return port;
}

void addLink(DiskHealth &health, const fs::path &sys, const std::string &port)
{
    const auto rate = firstLineOf(sys / "class/ata_link" / ("link" + port) / "sata_spd");
    if (rate.ends_with("Gbps"))
        health.linkRate = rate;
}

// Returns how many errors stand in the ring of a disk on an ATA port, "[  812.370000000]timeout[...". The
// third number of the disk's name ("2:0:0:0") tells it from the other disk on an old port's cable.
std::optional<std::int64_t> errorsInRing(const fs::path &sys, const std::string &port, const fs::path &device)
{
    const auto name = device.filename().string();
    const auto second = name.find(':', name.find(':') + 1);
    if (second == std::string::npos)
        return std::nullopt;
    const auto number = name.substr(second + 1, name.find(':', second + 1) - second - 1);
    std::ifstream file(sys / "class/ata_device" / ("dev" + port + "." + number) / "ering");
    if (!file)
        return std::nullopt;
    return std::count(std::istreambuf_iterator<char>(file), {}, '[');
}

} // namespace

void addKernelFacts(DiskHealth &health, const std::string &sys, const std::string &name)
{
    std::error_code error;
    const auto device = fs::canonical(fs::path(sys) / "block" / name / "device", error);
    if (error)
        return;
    addTemperature(health, sys, device);
    const auto port = ataPortOf(device);
    if (!port.empty()) {
        addLink(health, sys, port);
        health.errors = errorsInRing(sys, port, device);
    } else if (!health.isFailing) {
        // The plain count takes the answer to each question about the health for an error. So it counts only
        // for a disk that the disk service does not ask.
        health.errors = numberIn(device / "ioerr_cnt");
    }
}

} // namespace orvana::platform::linux_host
