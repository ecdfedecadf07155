// Measures how long a scan takes, and whether that time grows in step with the machine: from 1 to 64
// enclosures of four disks with four mounted volumes each. Prints the median of 15 scans, and the time per
// enclosure relative to that of the smallest machine that takes long enough to be measured.

#include "discovery/ORVScanDevice.h"
#include "platform/CommandLauncher.h"
#include "platform/simulator/MachineTree.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace
{

using namespace orvana;

class TreeRegistry final : public platform::HardwareRegistry
{
public:
    explicit TreeRegistry(std::shared_ptr<platform::RegistryNode> tree) : m_tree(std::move(tree)) {}

    Answer match(const std::optional<platform::RegistryMatching> &matching) override
    {
        Answer answer;
        if (matching)
            m_tree->collect(*matching, answer.entries);
        return answer;
    }
    Answer watch(const std::string &, platform::RegistryEvent, EventHandler) override { return {}; }

private:
    std::shared_ptr<platform::RegistryNode> m_tree;
};

class Listing final : public platform::CommandLauncher
{
public:
    Result run(const std::string &, const std::vector<std::string> &) override { return {text, 0}; }
    void setSparedDisks(std::vector<platform::DiskFingerprint>) override {}
    std::string text;
};

platform::simulator::Machine machineOf(int enclosures)
{
    platform::simulator::Machine machine;
    for (int e = 0; e < enclosures; ++e) {
        platform::simulator::Enclosure enclosure;
        enclosure.route = e + 1;
        for (const char *bay : {"A", "B", "C", "D"}) {
            platform::simulator::Disk disk;
            disk.bay = bay;
            disk.where = std::to_string(e) + bay;
            disk.volumes.resize(4);
            enclosure.bays.push_back(std::move(disk));
        }
        machine.enclosures.push_back(std::move(enclosure));
    }
    return machine;
}

double medianScan(int enclosures)
{
    const auto machine = machineOf(enclosures);
    const auto number = [](const std::string &where) {
        return std::atoi(where.c_str()) * 4 + where.back() - 'A';
    };
    TreeRegistry registry(platform::simulator::makeTree(machine, number));
    Listing listing;
    for (const auto &mounted : platform::simulator::mountedVolumes(machine, number))
        listing.text += mounted.device + " 1000 1 999 1% 1 1 1% /Volumes/x\n";
    std::vector<double> times;
    for (int i = 0; i < 15; ++i) {
        ORVScanDevice scanner(registry, listing);
        const auto start = std::chrono::steady_clock::now();
        scanner.scanTBDevice();
        scanner.scanOtherDevice();
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::nth_element(times.begin(), times.begin() + 7, times.end());
    return times[7];
}

} // namespace

int main()
{
    std::puts("| Enclosures | Scan | Per enclosure, relative to 8 |\n| --- | --- | --- |");
    const double base = medianScan(8) / 8;
    for (const int enclosures : {1, 2, 4, 8, 16, 32, 64}) {
        const double time = medianScan(enclosures);
        std::printf("| %d | %.3f ms | %.2f |\n", enclosures, time, time / enclosures / base);
    }
}
