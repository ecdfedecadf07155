// Erase and eject of simulated disks.

#include "platform/simulator/SimulatorFixture.h"

namespace orvana::platform::simulator
{

TEST_F(Simulator, EraseLeavesOneEmptyVolumeOfTheSameCapacity)
{
    scan();
    const auto device = *disk("Slot-A")->devPath();
    EXPECT_EQ(diskutil({"eraseDisk", "JHFS+", "NEW", device}).status, 0);
    scan();
    ASSERT_EQ(disk("Slot-A")->bsdPathArray().size(), 1U);
    EXPECT_EQ(*disk("Slot-A")->bsdPathArray()[0]->mountPoint(), volumesFolder() + "/NEW");
    EXPECT_EQ(disk("Slot-A")->bsdPathArray()[0]->availableSize(), 100);
    EXPECT_TRUE(test::treeOf(volumesFolder() + "/NEW").empty());
    EXPECT_EQ(mounted(), (Lines{"NEW", "STICK"}));
}

TEST_F(Simulator, EraseGivesABlankDiskAVolumeAndATakenNameANumber)
{
    scan();
    EXPECT_EQ(diskutil({"eraseDisk", "JHFS+", "Master", *disk("Slot-C")->devPath()}).status, 0);
    EXPECT_EQ(mounted(), (Lines{"Master", "Master 1", "STICK"}));
    scan();
    EXPECT_FALSE(disk("Slot-C")->isUnFormated());
    EXPECT_EQ(*disk("Slot-C")->bsdPathArray().at(0)->mountPoint(), volumesFolder() + "/Master 1");
}

TEST_F(Simulator, WrongCommandsChangeNothing)
{
    EXPECT_EQ(diskutil({"eraseDisk", "JHFS+", "NEW", "/dev/disk99"}).status, 4);
    EXPECT_EQ(diskutil({"format", "c:"}).status, 2);
    scan();
    EXPECT_EQ(diskutil({"eraseDisk", "JHFS+", "a/b", *disk("Slot-A")->devPath()}).status, 1);
    EXPECT_EQ(mounted(), (Lines{"Master", "STICK"}));
    EXPECT_EQ(test::treeOf(volumesFolder() + "/Master").size(), 12U);
    const auto none = m_host->launcher().run("/bin/true", {});
    EXPECT_EQ(none.status, std::nullopt);
    EXPECT_EQ(m_log.all().back(), "/bin/true cannot be started: not on the simulated machine");
}

TEST_F(Simulator, EjectLeavesADiskInItsBayWithItsVolumesUnmounted)
{
    scan();
    const auto device = *disk("Slot-A")->devPath();
    EXPECT_EQ(diskutil({"eject", device}).status, 0);
    scan();
    ASSERT_NE(disk("Slot-A"), nullptr);
    EXPECT_EQ(mounted(), (Lines{"STICK"}));
    ASSERT_TRUE(m_host->machine().setAttached("1/A", false));
    ASSERT_TRUE(m_host->machine().setAttached("1/A", true));
    scan();
    EXPECT_EQ(test::treeOf(volumesFolder() + "/Master").size(), 12U) << "a disk that is put in is mounted";
    EXPECT_NE(*disk("Slot-A")->devPath(), device) << "a number is never handed out twice";
}

TEST_F(Simulator, EjectTakesAUsbDiskAway)
{
    scan();
    EXPECT_EQ(diskutil({"eject", *m_scanner->otherDiskArray()[1]->devPath()}).status, 0);
    scan();
    EXPECT_EQ(m_scanner->otherDiskArray().size(), 1U);
    EXPECT_EQ(mounted(), (Lines{"Master"}));
}

TEST_F(Simulator, DiskWithAVolumeThatARunHoldsIsNeitherErasedNorEjected)
{
    scan();
    const auto device = *disk("Slot-A")->devPath();
    {
        const auto lock = m_host->volumeFiles().lockFolder(volumesFolder() + "/Master", Sharing::Shared);
        ASSERT_TRUE(lock);
        EXPECT_EQ(diskutil({"eraseDisk", "JHFS+", "NEW", device}).output, "Error: the disk is in use\n");
        EXPECT_EQ(diskutil({"eject", device}).output, "Error: the disk is in use\n");
    }
    EXPECT_EQ(mounted(), (Lines{"Master", "STICK"}));
    EXPECT_EQ(diskutil({"eraseDisk", "JHFS+", "NEW", device}).status, 0);
}

TEST_F(Simulator, WhatIsOpenOnADiskThatWasPulledFails)
{
    const auto root = volumesFolder() + "/STICK";
    const auto open = [&] { return m_host->volumeFiles().openFolder(root, Reach::Beneath).value(); };
    const auto stick = open();
    const auto file = stick->createFile("file", {.permissions = 0644}).value();
    const std::string text = "content";
    const auto write = [&] { return file->write(std::as_bytes(std::span(text)), 0); };
    ASSERT_TRUE(write());
    for (const bool isThere : {false, true}) {
        ASSERT_TRUE(SimulatedMachine::open(m_file).value()->setAttached("usb/1", isThere));
        m_host->lookForChanges();
        EXPECT_EQ(write().error().reason(), "No such device");
        EXPECT_FALSE(file->sync());
        EXPECT_FALSE(stick->createFile(isThere ? "later" : "gone", {}));
        EXPECT_FALSE(stick->syncVolume());
    }
    EXPECT_TRUE(open()->createFile("new", {.permissions = 0644}));
}

} // namespace orvana::platform::simulator
