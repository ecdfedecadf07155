#pragma once

#include "discovery/ORVScanDevice.h"
#include "support/FakeRegistry.h"
#include "support/Recorder.h"

#include <gtest/gtest.h>

namespace orvana
{

using platform::RegistryNode;
using platform::RegistryProperties;

/// A scanner over a registry tree that the test builds by hand.
class Scan : public testing::Test
{
protected:
    using Properties = RegistryProperties;

    RegistryNode &addSwitch(std::int64_t vendor, std::int64_t model, const std::string &name = "Four Bay")
    {
        return m_registry.tree->add("IOThunderboltSwitch",
                                    "IOThunderboltSwitch@" + std::to_string(++m_switches),
                                    {{"Device Vendor ID", vendor},
                                     {"Device Model ID", model},
                                     {"Device Model Name", name},
                                     {"Device Vendor Name", std::string("Maker")},
                                     {"UID", std::int64_t{100} + m_switches},
                                     {"Depth", std::int64_t{1}},
                                     {"Route String", std::int64_t{3}}});
    }

    /// A SATA disk behind the path components given, wired to the switch.
    RegistryNode &addDisk(const RegistryNode &device, const std::string &path, Properties properties = {})
    {
        properties.try_emplace("Physical Interconnect Location", std::string("External"));
        return m_registry.tree
            ->add("IOPCIDevice", path, {{"Thunderbolt Path", device.path() + "/IOThunderboltPort@7"}})
            .add("AppleAHCIDiskDriver", "AppleAHCIDiskDriver", std::move(properties));
    }

    static RegistryNode &addWhole(RegistryNode &driver, const std::string &bsdName, Properties properties)
    {
        properties["Whole"] = true;
        properties["BSD Name"] = bsdName;
        return driver.add("IOMedia", bsdName, std::move(properties));
    }

    static RegistryNode &addPartition(RegistryNode &media, const std::string &bsdName, bool isOpen,
                                      bool isLeaf = true)
    {
        return media.add("IOMedia", bsdName,
                         {{"Whole", false}, {"Leaf", isLeaf}, {"Open", isOpen}, {"BSD Name", bsdName}});
    }

    const ORVHddInfo &firstDisk() const { return *m_scanner.tbArray().at(0)->hddArray().at(0); }

    test::FakeRegistry m_registry;
    test::FakeListing m_listing;
    test::LogLines m_log;
    ORVScanDevice m_scanner{m_registry, m_listing};
    int m_switches = 0;
};

} // namespace orvana
