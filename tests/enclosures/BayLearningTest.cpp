#include "enclosures/BayLearning.h"

#include <gtest/gtest.h>

namespace orvana::enclosures
{

namespace
{

using Kind = BayLearning::Answer::Kind;

const Anchor Hub{Bus::Usb, 0x2109, 0x0817, {}};

class Learning : public testing::Test
{
protected:
    Learning() { m_now.anchors = {{"hub", Hub}, {"root", {Bus::Pci, 0x8086, 0xa36d, {}}, {}, false}}; }

    /// A disk at a port of the hub, which has come for the `arrival`-th time.
    static PlacedDisk diskAt(const std::string &port, int arrival, int lun = 0)
    {
        const auto path = "usb-0:1." + port + ":1.0-scsi-0:0:0:" + std::to_string(lun);
        return {{"disk" + std::to_string(arrival),
                 "pci-0000:00:14.0-" + path,
                 lun,
                 {{"hub", port}, {"root", path}}},
                std::to_string(arrival),
                "WD Red",
                "SN" + std::to_string(arrival),
                4'000'787'030'016,
                {},
                {}};
    }

    BayLearning::Answer come(const PlacedDisk &disk)
    {
        m_now.disks.push_back(disk);
        return m_learning.look(m_now);
    }

    void learnTwo()
    {
        EXPECT_EQ(come(diskAt("1", 1)).kind, Kind::Learned);
        EXPECT_EQ(come(diskAt("2", 2)).kind, Kind::Learned);
    }

    std::string errorOf(const std::string &name, const DefinitionSet &existing = {}) const
    {
        const auto definition = m_learning.finish(name, existing);
        return definition ? "no error" : definition.error();
    }

    PortSnapshot m_now;
    BayLearning m_learning{PortSnapshot()};
};

} // namespace

TEST_F(Learning, EachDiskThatComesShowsTheNextBay)
{
    const auto first = come(diskAt("1", 1));
    EXPECT_EQ(first.kind, Kind::Learned);
    EXPECT_EQ(first.bay, 'A');
    EXPECT_EQ(first.text,
              "WD Red, serial number SN1, 3.64 TB, at pci-0000:00:14.0-usb-0:1.1:1.0-scsi-0:0:0:0");
    EXPECT_EQ(m_learning.bay(), 'B');
    EXPECT_EQ(m_learning.look(m_now).kind, Kind::Nothing);
    m_learning.skip();
    EXPECT_EQ(come(diskAt("3", 2)).bay, 'C');
    EXPECT_EQ(come(diskAt("4", 3)).bay, 'D');
    EXPECT_FALSE(m_learning.bay());
    EXPECT_EQ(come(diskAt("5", 4)).kind, Kind::Nothing) << "there is no fifth bay";
    const auto definition = m_learning.finish("Desk dock", {});
    ASSERT_TRUE(definition) << definition.error();
    EXPECT_EQ(definition->id, "desk-dock");
    EXPECT_EQ(definition->bays.size(), 3U);
    EXPECT_EQ(definition->bays.at('C'), std::vector{(Port{{}, Hub, "3", {}})});
}

TEST_F(Learning, DiskThatWasThereMustBePutInAgain)
{
    m_now.disks = {diskAt("1", 1)};
    m_learning = BayLearning(m_now);
    EXPECT_EQ(m_learning.look(m_now).kind, Kind::Nothing);
    m_now.disks = {};
    EXPECT_EQ(m_learning.look(m_now).kind, Kind::Nothing);
    EXPECT_EQ(come(diskAt("1", 2)).kind, Kind::Learned);
}

TEST_F(Learning, TwoDisksAtOnceShowNothingAndAreTold)
{
    m_now.disks = {diskAt("1", 1), diskAt("2", 2)};
    const auto answer = m_learning.look(m_now);
    EXPECT_EQ(answer.kind, Kind::Refused);
    EXPECT_TRUE(answer.text.starts_with("Several disks came at once: WD Red, serial number SN1"))
        << answer.text;
    EXPECT_EQ(m_learning.bay(), 'A');
    EXPECT_EQ(m_learning.look(m_now).kind, Kind::Nothing) << "told once";
    m_now.disks = {};
    m_learning.look(m_now);
    EXPECT_EQ(come(diskAt("1", 3)).kind, Kind::Learned);
}

TEST_F(Learning, DiskThatMayBeInNoBayIsToldWithTheReason)
{
    auto disk = diskAt("1", 1);
    disk.refusal = "is named by /etc/fstab";
    EXPECT_EQ(come(disk).text,
              "WD Red, serial number SN1, 3.64 TB: it is named by /etc/fstab; take another one");
    disk = diskAt("2", 2);
    disk.bay = "Slot-A of Other";
    EXPECT_EQ(come(disk).text, "WD Red, serial number SN2, 3.64 TB: its port is Slot-A of Other already");
    disk = diskAt("3", 3);
    disk.place = {"disk3", {}, {}, {}};
    EXPECT_EQ(come(disk).kind, Kind::Refused);
    EXPECT_EQ(m_learning.bay(), 'A');
}

TEST_F(Learning, PortThatWasShownAlreadyIsTold)
{
    come(diskAt("1", 1));
    const auto again = come(diskAt("1", 2));
    EXPECT_EQ(again.kind, Kind::Refused);
    EXPECT_EQ(again.text, "WD Red, serial number SN2, 3.64 TB: its port is the one of bay A");
}

TEST_F(Learning, DiskWithoutModelAndSerialNumberIsAsGood)
{
    auto disk = diskAt("1", 1);
    disk.model = disk.serial = "";
    EXPECT_TRUE(come(disk).text.starts_with("a disk, no serial number, 3.64 TB"));
}

TEST_F(Learning, DeviceThatCannotBeToldFromAnotherGivesPathsInstead)
{
    m_now.anchors.push_back({"other", Hub});
    learnTwo();
    EXPECT_EQ(m_learning.finish("n", {})->bays.at('A'),
              std::vector{(Port{"pci-0000:00:14.0-usb-0:1.1:1.0-scsi-0:0:0:0", {}, {}, {}})});
}

TEST_F(Learning, SerialNumberOfTheDockTellsItFromAnother)
{
    m_now.anchors[0].ids.serial = "D1";
    m_now.anchors.push_back({"other", Hub});
    m_now.anchors.back().ids.serial = "D2";
    learnTwo();
    EXPECT_EQ(m_learning.finish("n", {})->bays.at('A').front().anchor->serial, "D1");
}

TEST_F(Learning, DeviceOfTheMachineItselfIsNoAnchor)
{
    m_now.anchors[0].disallowed = "is built into the machine";
    learnTwo();
    EXPECT_FALSE(m_learning.finish("n", {})->bays.at('A').front().anchor);
}

TEST_F(Learning, PathBelowADeviceThatCanBePluggedInElsewhereIsRefused)
{
    m_now.anchors[0].disallowed = "is built into the machine";
    m_now.anchors[1].canMove = true;
    m_now.anchors.push_back(m_now.anchors[1]);
    m_now.anchors.back().key = "other";
    learnTwo();
    EXPECT_TRUE(
        errorOf("n").starts_with("the disks are behind a device of PCI that can be plugged in elsewhere"));
}

TEST_F(Learning, DisksBehindOneBridgeAreNamedByTheirNumber)
{
    come(diskAt("1", 1, 0));
    come(diskAt("1", 2, 1));
    const auto definition = m_learning.finish("n", {});
    EXPECT_EQ(definition->bays.at('A'), std::vector{(Port{{}, Hub, "1", 0})});
    EXPECT_EQ(definition->bays.at('B'), std::vector{(Port{{}, Hub, "1", 1})});
}

TEST_F(Learning, DefinitionNeedsANameTwoBaysAndAnIdOfItsOwn)
{
    EXPECT_EQ(errorOf("Dock"), "an enclosure needs two to four bays");
    come(diskAt("1", 1));
    EXPECT_EQ(errorOf("Dock"), "an enclosure needs two to four bays");
    come(diskAt("2", 2));
    EXPECT_EQ(errorOf("Dock"), "no error");
    EXPECT_EQ(errorOf(" / "), "the name \" / \" needs a letter or a digit");
    EXPECT_EQ(errorOf("DOCK", {{{"dock", "Dock", {}}}, {}}),
              "there is an enclosure \"Dock\" (dock.json) already");
    EXPECT_EQ(errorOf("Dock\xFF"), "the name must be UTF-8");
    EXPECT_EQ(errorOf("Dock\n2"), "/name: must be 1 to 64 bytes of text on one line");
}

} // namespace orvana::enclosures
