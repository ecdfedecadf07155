#pragma once

#include "discovery/ORVScanDevice.h"
#include "platform/NullDevices.h"
#include "platform/linux/LinuxHost.h"
#include "platform/linux/MadeUpMachine.h"
#include "support/ManualMainQueue.h"
#include "support/Recorder.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana::test
{

/// A made-up machine with an integrated Thunderbolt controller, its two ports, and an internal SATA
/// controller.
class LinuxFixture : public testing::Test
{
protected:
    LinuxFixture()
    {
        m_machine.add("/sys/devices/virtual/devlink/pci:0000:00:0d.2--pci:0000:00:07.0", "devlink");
        m_machine.add("/sys/devices/virtual/devlink/pci:0000:00:0d.2--pci:0000:00:07.1", "devlink");
        m_hostRouter = m_machine.addThunderbolt({}, "0000:00:0d.2");
        m_port = m_machine.addBridge({}, "0000:00:07.0", {"A: removable=removable"});
        m_otherPort = m_machine.addBridge({}, "0000:00:07.1", {"A: removable=removable"});
        m_internal = m_machine.addAhci({}, "0000:00:17.0", "0x8086", "0xa352");
    }

    /// The host on this machine. It is made at its first use, so that a test can set up the machine before.
    platform::linux_host::LinuxHost &host()
    {
        if (!m_host) {
            m_host = std::make_unique<platform::linux_host::LinuxHost>(
                std::make_unique<platform::NullWorkspace>(), m_queue, files());
        }
        return *m_host;
    }

    platform::linux_host::SystemFiles files() const
    {
        platform::linux_host::SystemFiles files;
        files.mounts = m_machine.mountFile();
        files.swaps = m_machine.swapFile();
        files.btrfs = "/sys/fs/btrfs";
        files.definitionFolder = m_definitions;
        files.trust = enclosures::Trust::RootOrUser;
        files.tables = m_etc.root();
        return files;
    }

    /// Defines an enclosure. `bays` is what stands behind "bays" in its file, `anchor` behind "anchor".
    void define(const std::string &id, const std::string &bays, const std::string &anchor = {})
    {
        const auto common = anchor.empty() ? std::string() : R"("anchor":)" + anchor + ",";
        const auto definition = enclosures::readDefinition(id, R"({"version":1,"name":")" + id + R"(",)" +
                                                                   common + R"("bays":)" + bays + "}");
        ASSERT_TRUE(definition) << definition.error();
        ASSERT_TRUE(enclosures::addDefinition(m_definitions, *definition));
    }

    /// Scans everything anew.
    ORVScanDevice &scan()
    {
        m_scanner = std::make_unique<ORVScanDevice>(host().registry(), host().launcher());
        m_scanner->setDetectOption("Orvana");
        m_scanner->scanTBDevice();
        m_scanner->scanOtherDevice();
        m_scanner->scanOtherTBDevice();
        return *m_scanner;
    }

    /// Bay and serial number of each disk in the enclosure: "Slot-A SN1".
    static std::vector<std::string> baysOf(const ORVThunderboltInfo &enclosure)
    {
        std::vector<std::string> bays;
        for (const auto &disk : enclosure.hddArray())
            bays.push_back(disk->slotPath().value_or("none") + " " + disk->hddSN().value_or("none"));
        return bays;
    }

    /// An enclosure of depth 1 on the first port; returns the upper side of its bridges.
    std::string addEnclosure(const std::string &controller = "612")
    {
        m_router = m_machine.addRouter(m_hostRouter, "1");
        return m_machine.addEnclosureBridges(m_port, controller, 1);
    }

    MadeUpMachine m_machine;
    TemporaryTree m_etc;
    std::string m_definitions = m_etc.path("enclosures.d");
    std::string m_hostRouter, m_port, m_otherPort, m_internal, m_router;
    LogLines m_log;
    MainQueue *m_queue = nullptr;
    std::unique_ptr<platform::linux_host::LinuxHost> m_host;
    std::unique_ptr<ORVScanDevice> m_scanner;
};

} // namespace orvana::test
