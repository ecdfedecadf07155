// Recorded machines, each compared with its known list of devices. A record NAME.umockdev in the folder
// "records" belongs to NAME.devices, the output of "plurimoctl devices" for that machine.

#include "cli/DevicesText.h"
#include "discovery/ORVScanDevice.h"
#include "platform/NullDevices.h"
#include "platform/linux/LinuxHost.h"
#include "platform/linux/MadeUpMachine.h"
#include "support/Recorder.h"

#include <algorithm>
#include <filesystem>

namespace orvana::test
{

namespace
{

std::vector<std::string> recordedMachines()
{
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(RECORDS)) {
        if (entry.path().extension() == ".umockdev")
            names.push_back(entry.path().stem());
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

class RecordedMachine : public testing::TestWithParam<std::string>
{
};

TEST_P(RecordedMachine, IsListedAsItIsKnownToBe)
{
    const LogLines log;
    MadeUpMachine machine;
    machine.load(RECORDS "/" + GetParam() + ".umockdev");
    platform::linux_host::SystemFiles files;
    files.mounts = machine.mountFile();
    files.swaps = machine.swapFile();
    platform::linux_host::LinuxHost host(std::make_unique<platform::NullWorkspace>(), nullptr, files);
    ORVScanDevice scanner(host.registry(), host.launcher());
    scanner.setDetectOption("Orvana");
    scanner.scanTBDevice();
    scanner.scanOtherDevice();
    scanner.scanOtherTBDevice();
    std::string text;
    for (const auto &line : cli::devicesText(scanner))
        text.append(line).append("\n");
    EXPECT_EQ(text, contentOf(RECORDS "/" + GetParam() + ".devices"));
}

INSTANTIATE_TEST_SUITE_P(Of, RecordedMachine, testing::ValuesIn(recordedMachines()), [](const auto &name) {
    auto text = name.param;
    std::replace_if(text.begin(), text.end(), [](char c) { return std::isalnum(c) == 0; }, '_');
    return text;
});

} // namespace orvana::test
