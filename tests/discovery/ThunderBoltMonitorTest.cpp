#include "discovery/ThunderBoltMonitor.h"

#include "foundation/NotificationCenter.h"
#include "support/FakeRegistry.h"
#include "support/Recorder.h"

#include <gtest/gtest.h>

namespace orvana
{

using Lines = std::vector<std::string>;
using platform::RegistryEvent;

class HotPlug : public testing::Test
{
protected:
    HotPlug()
    {
        for (const char *name : {"TBDeviceAttached", "TBDeviceDeattached"})
            m_subscriptions.push_back(
                m_center.subscribe(name, [this](const Notification &n) { m_posted.push_back(n.name); }));
    }

    std::vector<platform::RegistryEntryPtr> device(const std::optional<std::string> &name,
                                                   platform::RegistryProperties properties = {})
    {
        auto tree = platform::RegistryNode::makeRoot();
        auto &node = tree->add("IOPCIDevice", "device@0", std::move(properties));
        node.setName(name);
        return {platform::RegistryEntryPtr(tree, &node)};
    }

    void fire(RegistryEvent event, const std::optional<std::string> &name)
    {
        m_registry.handlers.at(event)(device(name));
    }

    test::FakeRegistry m_registry;
    NotificationCenter m_center;
    test::LogLines m_log;
    Lines m_posted;
    std::vector<RegistryEvent> m_watched;
    std::vector<NotificationCenter::Subscription> m_subscriptions;
    ThunderBoltMonitor m_monitor{m_registry, m_center};
};

TEST_F(HotPlug, DevicesPresentAtTheStartPostNothing)
{
    m_registry.tree->add("IOPCIDevice", "pci1b21,612@0");
    m_monitor.MonitorInit();
    EXPECT_TRUE(m_posted.empty());
}

TEST_F(HotPlug, ControllersArePostedOneByOneAndOthersNot)
{
    m_monitor.MonitorInit();
    fire(RegistryEvent::Published, "pci1b21,612");
    fire(RegistryEvent::Published, "pci8086,2922");
    fire(RegistryEvent::Published, "xpci1b21,625x");
    fire(RegistryEvent::Terminated, "pci1b21,625");
    fire(RegistryEvent::Terminated, "pci8086,2922");
    EXPECT_EQ(m_posted, (Lines{"TBDeviceAttached", "TBDeviceAttached", "TBDeviceDeattached"}));
}

TEST_F(HotPlug, NameThatCannotBeReadCountsAsAController)
{
    m_monitor.MonitorInit();
    fire(RegistryEvent::Published, std::nullopt);
    EXPECT_EQ(m_posted, (Lines{"TBDeviceAttached"}));
    EXPECT_TRUE(m_log.all().back().starts_with(
        "Could not get name for Thunderbolt object: IORegistryEntryGetName returned 0x"));
}

TEST_F(HotPlug, RemovalsArePostedEvenBeforePriming)
{
    m_monitor.tbDeviceAdded(device("pci1b21,612"));
    EXPECT_TRUE(m_posted.empty());
    m_monitor.tbDeviceRemoved(device("pci1b21,612"));
    EXPECT_EQ(m_posted, (Lines{"TBDeviceDeattached"}));
}

TEST_F(HotPlug, ArrivalsAreReportedOnlyOnceBothRegistrationsAreDrained)
{
    // A removal in the first batch of the second registration is reported. An arrival at that time is not.
    m_registry.removedAtOnce = device("pci1b21,612");
    m_registry.beforeWatch = [this](RegistryEvent event) {
        m_watched.push_back(event);
        if (event == RegistryEvent::Terminated)
            fire(RegistryEvent::Published, "pci1b21,612");
    };
    m_monitor.MonitorInit();
    EXPECT_EQ(m_watched, (std::vector{RegistryEvent::Published, RegistryEvent::Terminated}));
    EXPECT_EQ(m_posted, (Lines{"TBDeviceDeattached"}));
    fire(RegistryEvent::Published, "pci1b21,612");
    EXPECT_EQ(m_posted, (Lines{"TBDeviceDeattached", "TBDeviceAttached"}));
}

TEST_F(HotPlug, FailedRegistrationIsOnlyLogged)
{
    m_registry.watchStatus = 7;
    m_monitor.MonitorInit();
    EXPECT_EQ(m_log.all(), (Lines{"matching notification registration failed: 7)",
                                  "Couldn't add device removal notification"}));
}

TEST_F(HotPlug, NameThatIsNotAsciiIsUnnamed)
{
    for (const char *name : {"caf\xC3\xA9", "\x80"})
        EXPECT_EQ(ThunderBoltMonitor::devicenameForThunderboltObject(*device(name)[0]),
                  "Unnamed Thunderbolt Device");
    EXPECT_EQ(ThunderBoltMonitor::devicenameForThunderboltObject(*device("\x7F")[0]), "\x7F");
}

TEST_F(HotPlug, IdsArePrintedWithTheirNewline)
{
    const auto entry = device("d", {{"device-id", std::vector<std::uint8_t>{0x12, 0x06, 0, 0, 9}},
                                    {"vendor-id", std::vector<std::uint8_t>{0x21}}});
    EXPECT_EQ(ThunderBoltMonitor::deviceIDForThunderboltObject(*entry[0]), "0x612\n");
    EXPECT_EQ(ThunderBoltMonitor::vendorIDForThunderboltObject(*entry[0]),
              "Unknow vendor-id Thunderbolt Device");
    EXPECT_EQ(ThunderBoltMonitor::deviceIDForThunderboltObject(*device("d")[0]),
              "Unknow device-id Thunderbolt Device");
}

} // namespace orvana
