#pragma once

#include "discovery/ORVScanDevice.h"
#include "platform/simulator/SimulatorHost.h"
#include "support/ManualMainQueue.h"
#include "support/Recorder.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana::platform::simulator
{

using Lines = std::vector<std::string>;

inline constexpr const char *SmallSimulator = R"({
  "login": "anna",
  "internalDisks": [ { "model": "SSD", "serial": "I1", "size": 1000000,
    "volumes": [ { "name": "System", "startup": true, "capacity": 900000, "content": [ { "path": "a.txt", "bytes": 10 } ] } ] } ],
  "usbDisks": [ { "vendor": "V", "product": "P", "size": 5000, "volumes": [ { "name": "STICK", "capacity": 4096 } ] } ],
  "enclosures": [ { "uid": 1, "controller": "625", "bays": [
    { "bay": "A", "model": "M1", "serial": "S1", "size": 100000, "volumes": [ { "name": "Master", "capacity": 51200,
      "content": [ { "path": "files", "bytes": 1000, "files": 10 } ] } ] },
    { "bay": "C", "size": 200000, "formatted": false },
    { "bay": "D", "size": 300000, "raid": true } ] } ]
})";

/// A simulated machine, and the scan of it.
class Simulator : public testing::Test
{
protected:
    void SetUp() override { open(SmallSimulator); }

    void open(const std::string &text)
    {
        m_host.reset();
        m_file = m_tree.file("machine.json", text);
        auto machine = SimulatedMachine::open(m_file);
        ASSERT_TRUE(machine) << machine.error();
        m_host = std::make_unique<SimulatorHost>(std::move(*machine), &m_queue);
        m_scanner = std::make_unique<ORVScanDevice>(m_host->registry(), m_host->launcher());
    }

    void scan()
    {
        m_scanner->resetArray("All");
        m_scanner->scanTBDevice();
        m_scanner->scanOtherDevice();
    }

    std::string volumesFolder() const { return m_file + ".volumes/Volumes"; }

    Lines mounted() const
    {
        auto names = test::treeOf(volumesFolder());
        std::erase_if(names, [](const auto &name) { return name.find('/') != std::string::npos; });
        return names;
    }

    CommandLauncher::Result diskutil(const std::vector<std::string> &words)
    {
        return m_host->launcher().run("/usr/sbin/diskutil", words);
    }

    const ORVHddInfo *disk(const std::string &slot) const
    {
        for (const auto &found : m_scanner->tbArray().at(0)->hddArray()) {
            if (found->slotPath() == slot)
                return found.get();
        }
        return nullptr;
    }

    test::TemporaryTree m_tree;
    test::ManualMainQueue m_queue;
    test::LogLines m_log;
    std::string m_file;
    std::unique_ptr<SimulatorHost> m_host;
    std::unique_ptr<ORVScanDevice> m_scanner;
};

} // namespace orvana::platform::simulator
