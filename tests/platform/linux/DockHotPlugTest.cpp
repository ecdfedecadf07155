// Docks and their disks that come and go.

#include "platform/linux/HotPlugFixture.h"

namespace orvana::test
{

using Told = std::vector<std::string>;

class DockHotPlug : public HotPlug
{
protected:
    DockHotPlug() { m_rootHub = m_machine.addUsbController("0000:00:14.0", 2); }

    std::string addHub(int port)
    {
        const auto hub = m_machine.addUsb(m_rootHub, port, "2109:0817");
        m_machine.tell(hub, "add");
        return hub;
    }

    std::string addDisk(const std::string &hub, int port, const std::string &node)
    {
        const auto disk =
            m_machine.addUsbDisk(m_machine.addUsb(hub, port, "152d:0578"), {.node = node, .serial = node});
        m_machine.tell(disk, "add");
        return disk;
    }

    void defineHub() { define("hub", R"({"A":{"port":"1"},"B":{"port":"2"}})", R"({"usb":"2109:0817"})"); }

    std::string m_rootHub;
};

TEST_F(DockHotPlug, DiskThatComesOrGoesIsToldAsItsBaysController)
{
    const auto hub = addHub(1);
    defineHub();
    watch();
    const auto disk = addDisk(hub, 1, "sdb");
    runUntil("attached");
    EXPECT_EQ(baysOf(*scan().tbArray().front()), Told{"Slot-A sdb"});
    m_machine.pull(disk);
    runUntil("detached");
    EXPECT_EQ(m_told, (Told{"attached", "detached"}));
    ASSERT_EQ(scan().tbArray().size(), 1U) << "the dock is still there";
}

TEST_F(DockHotPlug, DockThatComesOrGoesIsToldByTheControllersOfItsBays)
{
    defineHub();
    watch();
    const auto hub = addHub(1);
    runUntil("attached", 2);
    m_machine.pull(hub);
    runUntil("detached", 2);
    EXPECT_EQ(m_told, (Told{"attached", "attached", "detached", "detached"}));
}

TEST_F(DockHotPlug, SecondDockOfTheKindTakesTheBaysAway)
{
    addHub(1);
    defineHub();
    watch();
    const auto second = addHub(2);
    runUntil("detached", 2);
    EXPECT_TRUE(scan().tbArray().empty());
    m_machine.pull(second);
    runUntil("attached", 2);
    EXPECT_EQ(scan().tbArray().size(), 1U);
}

TEST_F(DockHotPlug, DiskThatLeavesABayToAnotherIsToldToo)
{
    define("hub", R"({"A":[{"port":"1"},{"port":"3"}],"B":{"port":"2"}})", R"({"usb":"2109:0817"})");
    const auto hub = addHub(1);
    addDisk(hub, 1, "sdb");
    watch();
    const auto second = addDisk(hub, 3, "sdc");
    runUntil("detached"); // two disks at one bay: neither is in it
    EXPECT_TRUE(baysOf(*scan().tbArray().front()).empty());
    m_machine.pull(second);
    runUntil("attached");
    EXPECT_EQ(baysOf(*scan().tbArray().front()), Told{"Slot-A sdb"});
}

TEST_F(DockHotPlug, OtherUsbDevicesAreNotTold)
{
    const auto hub = addHub(1);
    defineHub();
    watch();
    m_machine.tell(m_machine.addUsb(m_rootHub, 3, "046d:c31c"), "add");
    addDisk(hub, 4, "sdb");
    addDisk(hub, 1, "sdc");
    runUntil("attached");
    EXPECT_EQ(m_told, Told{"attached"});
}

TEST_F(DockHotPlug, DefinitionThatIsWrittenOrRemovedIsToldLikeAnEnclosure)
{
    addHub(1);
    m_definitions = m_etc.path("deeper/enclosures.d");
    watch();
    defineHub();
    runUntil("attached", 2);
    EXPECT_TRUE(enclosures::removeDefinition(m_definitions, "hub"));
    runUntil("detached", 2);
    EXPECT_EQ(m_told, (Told{"attached", "attached", "detached", "detached"}));
}

} // namespace orvana::test
