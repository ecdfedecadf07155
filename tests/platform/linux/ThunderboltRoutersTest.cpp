// Finding the Thunderbolt router that a PCI device is behind.

#include "platform/linux/ThunderboltRouters.h"
#include "platform/linux/LinuxFixture.h"

namespace orvana::test
{

namespace linux_host = platform::linux_host;

class Routers : public LinuxFixture
{
protected:
    /// Returns the name of the router of a PCI device, or "none" or "unclear".
    static std::string routerOf(const std::string &path)
    {
        const auto devices = linux_host::readDevices();
        const auto place = linux_host::routerOfPci(devices, *devices.at(path));
        switch (place.answer) {
        case linux_host::RouterPlace::Answer::None:
            return "none";
        case linux_host::RouterPlace::Answer::Unclear:
            return "unclear";
        default:
            return place.router->name;
        }
    }

    /// Adds a downstream port to an enclosure's bridges, to which the next router of the chain is connected.
    std::string addChainPort(const std::string &upper, const std::string &name)
    {
        return m_machine.addBridge(upper, name);
    }
};

TEST_F(Routers, InternalDeviceHasNone)
{
    addEnclosure();
    EXPECT_EQ(routerOf(m_internal), "none");
}

TEST_F(Routers, LoneRouterIsTheOne)
{
    const auto upper = addEnclosure();
    EXPECT_EQ(routerOf(m_machine.controllerOf(upper, 3)), "0-1");
}

TEST_F(Routers, LoneRouterIsTheOneWhateverItsBridgesAre)
{
    m_machine.addRouter(m_hostRouter, "3");
    const auto upper = m_machine.addPci(m_port, "0000:01:00.0", "0x1234", "0x5678", "0x060400");
    EXPECT_EQ(routerOf(m_machine.addAhci(upper, "0000:02:00.0", "0x1b21", "0x0612")), "0-3");
}

TEST_F(Routers, ChainIsCountedByItsBridges)
{
    const auto first = addEnclosure("612");
    m_machine.addRouter(m_router, "301");
    const auto second = m_machine.addEnclosureBridges(addChainPort(first, "0000:02:04.0"), "612", 16);
    EXPECT_EQ(routerOf(m_machine.controllerOf(first, 0)), "0-1");
    EXPECT_EQ(routerOf(m_machine.controllerOf(second, 0)), "0-301");
}

TEST_F(Routers, EnclosureBehindAnotherDeviceIsCounted)
{
    const auto dock = m_machine.addRouter(m_hostRouter, "1", "0x8086", "0x5");
    m_machine.addRouter(dock, "301");
    const auto upper = m_machine.addBridge(m_port, "0000:01:00.0");
    const auto next = m_machine.addBridge(upper, "0000:02:04.0");
    const auto enclosure = m_machine.addEnclosureBridges(next, "625", 16);
    EXPECT_EQ(routerOf(m_machine.controllerOf(enclosure, 3)), "0-301");
    EXPECT_EQ(routerOf(next), "0-1");
}

TEST_F(Routers, SwitchOfAnotherMakerWithinARouterIsNotCounted)
{
    const auto dock = m_machine.addRouter(m_hostRouter, "1", "0x8086", "0x5");
    m_machine.addRouter(dock, "301");
    const auto upper = m_machine.addBridge(m_port, "0000:01:00.0");
    const auto inner = m_machine.addPci(m_machine.addBridge(upper, "0000:02:01.0"), "0000:03:00.0", "0x10b5",
                                        "0x8604", "0x060400");
    const auto port = m_machine.addPci(inner, "0000:04:00.0", "0x10b5", "0x8604", "0x060400");
    m_machine.addEnclosureBridges(m_machine.addBridge(upper, "0000:02:04.0"), "612", 16);
    EXPECT_EQ(routerOf(m_machine.addAhci(port, "0000:05:00.0", "0x1b21", "0x0612")), "0-1");
}

TEST_F(Routers, ChainWithAnUnauthorisedEndIsCountedWithoutIt)
{
    const auto upper = addEnclosure();
    m_machine.addRouter(m_router, "301", "0x41", "0x237", "0");
    EXPECT_EQ(routerOf(m_machine.controllerOf(upper, 0)), "0-1");
}

TEST_F(Routers, ChainWithARouterThatShowsNoBridgeIsUnclear)
{
    addEnclosure();
    m_machine.addRouter(m_router, "301");
    const auto upper = m_machine.controllerOf(m_port + "/0000:01:00.0", 0);
    EXPECT_EQ(routerOf(upper), "unclear") << "two enclosures, and one set of controllers";
}

TEST_F(Routers, LoneEnclosureBesideAnotherDeviceIsKnownByItsControllers)
{
    m_machine.addRouter(m_hostRouter, "1", "0x8086", "0x5");
    m_machine.addRouter(m_hostRouter, "3");
    const auto dock = m_machine.addBridge(m_machine.addBridge(m_port, "0000:30:00.0"), "0000:31:00.0");
    const auto enclosure = m_machine.addEnclosureBridges(m_otherPort, "612", 1);
    EXPECT_EQ(routerOf(m_machine.controllerOf(enclosure, 2)), "0-3");
    EXPECT_EQ(routerOf(m_machine.addAhci(dock, "0000:32:00.0", "0x1b21", "0x0612")), "unclear");
}

TEST_F(Routers, DeviceInAChainBehindALoneEnclosureIsNotTakenForItsOwn)
{
    m_machine.addRouter(m_machine.addRouter(m_hostRouter, "1"), "301", "0x8086", "0x5");
    const auto enclosure = m_machine.addEnclosureBridges(m_port, "612", 1);
    const auto chip = m_machine.addPci(m_machine.addBridge(enclosure, "0000:02:04.0"), "0000:20:00.0",
                                       "0x1234", "0x1", "0x060400");
    const auto port = m_machine.addPci(chip, "0000:21:00.0", "0x1234", "0x1", "0x060400");
    EXPECT_EQ(routerOf(m_machine.controllerOf(enclosure, 0)), "0-1");
    EXPECT_EQ(routerOf(m_machine.addAhci(port, "0000:22:00.0", "0x1b21", "0x0612")), "unclear");
}

TEST_F(Routers, TwoEnclosuresSideBySideAreUnclear)
{
    m_machine.addRouter(m_hostRouter, "1");
    m_machine.addRouter(m_hostRouter, "3");
    const auto first = m_machine.addEnclosureBridges(m_port, "612", 1);
    const auto second = m_machine.addEnclosureBridges(m_otherPort, "612", 16);
    EXPECT_EQ(routerOf(m_machine.controllerOf(first, 0)), "unclear");
    EXPECT_EQ(routerOf(m_machine.controllerOf(second, 0)), "unclear");
}

TEST_F(Routers, ChipOfItsOwnHasItsPortsBesideItsController)
{
    const auto upper = m_machine.addBridge(m_machine.addBridge({}, "0000:00:1c.0"), "0000:40:00.0");
    const auto own = m_machine.addBridge(upper, "0000:41:00.0");
    const auto port = m_machine.addBridge(upper, "0000:41:01.0");
    const auto host = m_machine.addThunderbolt(own, "0000:42:00.0", 1);
    m_machine.addRouter(host, "1");
    const auto enclosure = m_machine.addEnclosureBridges(port, "612", 0x50);
    EXPECT_EQ(routerOf(m_machine.controllerOf(enclosure, 1)), "1-1");
    EXPECT_EQ(routerOf(own), "none");
}

TEST_F(Routers, PortWithoutALinkIsKnownByTheControllersOfALoneEnclosure)
{
    m_machine.addRouter(m_hostRouter, "1");
    const auto port = m_machine.addBridge({}, "0000:00:1b.0", {"A: removable=removable"});
    const auto enclosure = m_machine.addEnclosureBridges(port, "625", 1);
    EXPECT_EQ(routerOf(m_machine.controllerOf(enclosure, 0)), "0-1");
}

TEST_F(Routers, PortWithoutALinkAndWithoutAnEnclosuresControllersIsUnclear)
{
    m_machine.addRouter(m_hostRouter, "1");
    const auto port = m_machine.addBridge({}, "0000:00:1b.0", {"A: removable=removable"});
    EXPECT_EQ(routerOf(m_machine.addAhci(port, "0000:01:00.0", "0x1b21", "0x0612")), "unclear");
}

// The kernel marks the devices below a hot-plug port as removable, but not the port itself.
TEST_F(Routers, RemovableIsWhatSaysSoAndWhatIsBelow)
{
    const auto port = m_machine.addBridge({}, "0000:00:1b.0");
    const auto plugged = m_machine.addBridge(port, "0000:20:00.0", {"A: removable=removable"});
    const auto below = m_machine.addAhci(plugged, "0000:21:00.0", "0x1b21", "0x0612");
    const auto fixed =
        m_machine.addPci({}, "0000:00:1a.0", "0x1b21", "0x0612", "0x010601", {"A: removable=fixed"});
    const auto devices = linux_host::readDevices();
    for (const auto &path : {port, fixed})
        EXPECT_FALSE(linux_host::isRemovable(devices, *devices.at(path))) << path;
    for (const auto &path : {plugged, below})
        EXPECT_TRUE(linux_host::isRemovable(devices, *devices.at(path))) << path;
}

TEST_F(Routers, DepthIsTheNumberOfHops)
{
    const auto first = m_machine.addRouter(m_hostRouter, "1");
    m_machine.addRouter(first, "301");
    // Another machine on the cable has a name like a router's.
    m_machine.add(m_hostRouter + "/0-3", "thunderbolt", {"E: DEVTYPE=thunderbolt_xdomain"});
    m_machine.add(m_hostRouter + "/0-0.1", "thunderbolt", {"E: DEVTYPE=thunderbolt_service"});
    std::vector<std::string> depths;
    const auto devices = linux_host::readDevices();
    for (const auto *router : linux_host::routersOf(devices))
        depths.push_back(router->name + " " + std::to_string(linux_host::depthOf(*router)));
    EXPECT_EQ(depths, (std::vector<std::string>{"0-0 0", "0-1 1", "0-301 2"}));
}

TEST_F(Routers, DiskOfAnUnclearPlaceIsReportedAndInNoEnclosure)
{
    m_machine.addRouter(m_hostRouter, "1");
    m_machine.addRouter(m_hostRouter, "3");
    const auto upper = m_machine.addEnclosureBridges(m_port, "612", 1);
    m_machine.addEnclosureBridges(m_otherPort, "612", 16);
    m_machine.addSataDisk(m_machine.controllerOf(upper, 0), 0, {.node = "sda"});
    ASSERT_EQ(scan().tbArray().size(), 2U);
    EXPECT_TRUE(m_scanner->tbArray()[0]->hddArray().empty());
    EXPECT_TRUE(m_scanner->tbArray()[1]->hddArray().empty());
    EXPECT_TRUE(m_scanner->otherDiskArray().empty());
    ASSERT_EQ(m_log.all().size(), 1U);
    EXPECT_EQ(m_log.all()[0], "sda (SN1): it cannot be told in which enclosure it is; it is not offered");
}

} // namespace orvana::test
