// The disk utility on real disks, images on loop devices, by way of the real disk service on a system of its
// own.

#include "ImageDisk.h"
#include "duplicate/FileCopy.h"
#include "duplicate/RunReport.h"
#include "foundation/NotificationCenter.h"
#include "foundation/PlainMainQueue.h"
#include "platform/HostFactory.h"
#include "platform/VolumeEvents.h"
#include "support/StoppedClock.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

namespace orvana::test
{

class RealDisks : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!hasPrivateSystem())
            GTEST_SKIP()
                << "needs root with namespaces and loop devices, and the packages udev, udisks2 and dbus";
        if (!isRightSystem())
            GTEST_SKIP() << "is run by itself, on another system";
        m_tree.folder("bays");
        ::chmod(m_tree.root().c_str(), 0755);
    }

    virtual bool isRightSystem() const { return !hasPlayedAuthority() && !hasNoDiskService(); }

    /// A disk of an image in a bay, with a partition table and one volume that holds a file.
    std::unique_ptr<ImageDisk> addDisk(const std::string &name = "disk")
    {
        auto disk = std::make_unique<ImageDisk>(m_tree.path("bays"), name, 64);
        disk->makeVolume("ext4", "OLD");
        return disk;
    }

    /// Calls the utility for a disk, with what is known of it.
    Said erase(const ImageDisk &disk, const std::string &name, const std::string &format = "JHFS+")
    {
        return diskUtility({"eraseDisk", format, name, disk.node()}, disk.expectations());
    }
    Said eject(const ImageDisk &disk) { return diskUtility({"eject", disk.node()}, disk.expectations()); }

    /// An erase is refused for the reason, and every byte of the disk is what it was.
    void expectRefusal(const ImageDisk &disk, const std::string &reason, const std::string &name = "COPY 1")
    {
        const auto before = disk.digest();
        const auto said = erase(disk, name);
        EXPECT_EQ(said.status, 3) << said.text;
        EXPECT_NE(said.text.find(reason), std::string::npos) << said.text;
        EXPECT_EQ(disk.digest(), before);
    }

    Said diskUtility(std::vector<std::string> words, const std::vector<std::string> &expectations,
                     const std::string &as = {})
    {
        words.insert(words.end(), expectations.begin(), expectations.end());
        return runDiskUtility(words, m_tree.path("bays"), as);
    }

    TemporaryTree m_tree;
    StoppedClock m_clock;
};

TEST_F(RealDisks, EraseMountCopyVerifyAndEjectTenTimes)
{
    const auto disk = addDisk();
    m_tree.file("source/file", patternOf(3'000'000));
    m_tree.file("source/folder/small", "small");
    for (int round = 0; round < 10; ++round) {
        const auto erased = erase(*disk, "COPY 1");
        ASSERT_EQ(erased.status, 0) << erased.text;
        const auto point = disk->mountPoint();
        ASSERT_FALSE(point.empty());
        EXPECT_NE(erased.text.find(point), std::string::npos) << erased.text;
        EXPECT_EQ(treeOf(point), std::vector<std::string>{"lost+found"});

        TestHost host(m_tree.path("home"));
        NotificationCenter center;
        FileCopy engine(host, center);
        engine.SetBackupDiskValue({m_tree.path("source")}, m_tree.path("source"), {point});
        engine.setTotalFiles(2);
        engine.setBVerifyFiles(true);
        const auto report =
            std::make_shared<RunReport>(m_tree.folder("reports"), std::to_string(round), m_clock);
        engine.setReport(report);
        engine.StartBackup();
        EXPECT_EQ(Json::parse(contentOf(report->path()))["destinations"][0]["verified"], 2) << round;
        EXPECT_EQ(contentOf(point + "/file"), patternOf(3'000'000));
        EXPECT_EQ(contentOf(point + "/folder/small"), "small");

        const auto ejected = eject(*disk);
        ASSERT_EQ(ejected.status, 0) << ejected.text;
        EXPECT_EQ(disk->mountPoint(), "");
    }
}

TEST_F(RealDisks, MountedVolumeIsUnmountedAndErased)
{
    const auto disk = addDisk();
    disk->mount(m_tree.folder("here"));
    const auto erased = erase(*disk, "NEW");
    EXPECT_EQ(erased.status, 0) << erased.text;
    EXPECT_EQ(treeOf(m_tree.path("here")), std::vector<std::string>());
    EXPECT_EQ(disk->label(), "NEW");
}

TEST_F(RealDisks, OtherFormatsAreMade)
{
    const auto disk = std::make_unique<ImageDisk>(m_tree.path("bays"), "disk", 400);
    const auto xfs = erase(*disk, "COPY", "xfs");
    EXPECT_EQ(xfs.status, 0) << xfs.text;
    EXPECT_NE(xfs.text.find("xfs at "), std::string::npos) << xfs.text;
    EXPECT_EQ(disk->label(), "COPY");
}

TEST_F(RealDisks, NameOverTheLimitIsRefused)
{
    expectRefusal(*addDisk(), "ext4 takes at most 16 bytes", "seventeen letters");
}

TEST_F(RealDisks, DiskInNoBayIsRefused)
{
    expectRefusal(*addDisk("outside"), "is in no bay");
}

TEST_F(RealDisks, DiskThatArrivedAgainSinceIsRefused)
{
    const auto disk = addDisk();
    const auto known = disk->expectations();
    disk->attachAgain();
    ASSERT_NE(disk->expectations(), known);
    const auto before = disk->digest();
    const auto said = diskUtility({"eraseDisk", "JHFS+", "COPY", disk->node()}, known);
    EXPECT_EQ(said.status, 3) << said.text;
    EXPECT_NE(said.text.find("is not the disk that was meant"), std::string::npos) << said.text;
    EXPECT_EQ(disk->digest(), before);
}

TEST_F(RealDisks, BusyVolumeIsRefusedWithWhoUsesIt)
{
    const auto disk = addDisk();
    const auto place = m_tree.folder("here");
    disk->mount(place);
    const BusyProcess user(place);
    expectRefusal(*disk, "in use by sleep (" + user.number() + ")");
    EXPECT_EQ(disk->mountPoint(), place);
    const auto ejected = eject(*disk);
    EXPECT_EQ(ejected.status, 3);
    EXPECT_NE(ejected.text.find("in use by sleep"), std::string::npos) << ejected.text;
}

TEST_F(RealDisks, DiskThatAnotherNamespaceHasMountedIsRefused)
{
    const auto disk = addDisk();
    const ForeignMount elsewhere(disk->partition(), m_tree.folder("here"));
    EXPECT_EQ(disk->mountPoint(), "");
    expectRefusal(*disk, "is in use by another program");
}

TEST_F(RealDisks, PartOfTheSystemIsRefused)
{
    const auto disk = addDisk();
    disk->mount("/srv"); // in this namespace alone
    expectRefusal(*disk, "holds the running system");
}

TEST_F(RealDisks, SwapIsRefused)
{
    const auto disk = std::make_unique<ImageDisk>(m_tree.path("bays"), "disk", 64);
    const Swap swap(*disk);
    expectRefusal(*disk, "is in use as swap space");
}

TEST_F(RealDisks, RaidMemberIsRefused)
{
    const auto disk = std::make_unique<ImageDisk>(m_tree.path("bays"), "disk", 64);
    disk->plantRaidMember();
    expectRefusal(*disk, "is a member of a RAID set or a volume group");
}

TEST_F(RealDisks, VolumeGroupMemberIsRefused)
{
    const auto disk = std::make_unique<ImageDisk>(m_tree.path("bays"), "disk", 64);
    disk->plantVolumeGroupMember();
    expectRefusal(*disk, "is a member of a RAID set or a volume group");
}

TEST_F(RealDisks, InstalledUtilityTakesNoImageForADisk)
{
    const auto disk = addDisk();
    const auto before = disk->digest();
    auto words = std::vector<std::string>{"eraseDisk", "JHFS+", "COPY", disk->node()};
    for (const auto &expectation : disk->expectations())
        words.push_back(expectation);
    const auto said = runInstalledDiskUtility(words);
    EXPECT_EQ(said.status, 3);
    EXPECT_NE(said.text.find("is no disk to work on"), std::string::npos) << said.text;
    EXPECT_EQ(disk->digest(), before);
}

TEST_F(RealDisks, OrdinaryUserWithoutAnAuthorityIsRefused)
{
    const auto disk = addDisk();
    const auto before = disk->digest();
    const auto said =
        diskUtility({"eraseDisk", "JHFS+", "COPY", disk->node()}, disk->expectations(), "nobody");
    EXPECT_EQ(said.status, 3) << said.text;
    EXPECT_NE(said.text.find("you are not authorised"), std::string::npos) << said.text;
    EXPECT_EQ(disk->digest(), before);
}

TEST_F(RealDisks, MountsAreToldAsTheKernelMakesThem)
{
    const auto disk = addDisk();
    PlainMainQueue queue;
    const auto host = platform::makeMachineHost(&queue);
    std::vector<platform::VolumeChange> told;
    host->volumeEvents().subscribe([&](platform::VolumeChange change) {
        told.push_back(change);
        queue.quit();
    });
    disk->mount(m_tree.folder("here"));
    queue.run();
    EXPECT_EQ(told, std::vector{platform::VolumeChange::Mounted});
    disk->unmount();
    queue.run();
    EXPECT_EQ(told, (std::vector{platform::VolumeChange::Mounted, platform::VolumeChange::Unmounted}));
}

class PlayedAuthority : public RealDisks
{
protected:
    bool isRightSystem() const override { return hasPlayedAuthority(); }

    Said eraseAsNobody(const ImageDisk &disk)
    {
        return diskUtility({"eraseDisk", "JHFS+", "COPY", disk.node()}, disk.expectations(), "nobody");
    }
};

TEST_F(PlayedAuthority, UserWhoIsAllowedErasesAndOwnsTheVolume)
{
    const auto disk = addDisk();
    setAuthority(Authority::Allows);
    const auto said = eraseAsNobody(*disk);
    EXPECT_EQ(said.status, 0) << said.text;
    EXPECT_EQ(disk->label(), "COPY");
    EXPECT_EQ(disk->mountPoint(), "/media/nobody/COPY");
    EXPECT_EQ(disk->owner(), "nobody");
}

TEST_F(PlayedAuthority, UserWhoIsDeniedChangesNothing)
{
    const auto disk = addDisk();
    const auto before = disk->digest();
    setAuthority(Authority::Denies);
    const auto said = eraseAsNobody(*disk);
    EXPECT_EQ(said.status, 3) << said.text;
    EXPECT_NE(said.text.find("you are not authorised"), std::string::npos) << said.text;
    EXPECT_EQ(disk->digest(), before);
}

class NoDiskService : public RealDisks
{
protected:
    bool isRightSystem() const override { return hasNoDiskService(); }
};

TEST_F(NoDiskService, EraseAndEjectSaySoAtOnce)
{
    const auto disk = addDisk();
    const auto before = disk->digest();
    for (const auto &said : {erase(*disk, "COPY"), eject(*disk)}) {
        EXPECT_EQ(said.status, 4) << said.text;
        EXPECT_NE(said.text.find("The disk service (udisks2) is not there"), std::string::npos) << said.text;
    }
    EXPECT_EQ(disk->digest(), before);
}

} // namespace orvana::test
