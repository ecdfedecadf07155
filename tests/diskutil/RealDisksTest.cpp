// Erase and eject on real disks: when they work, and when they are refused.

#include "diskutil/RealDisks.h"
#include "diskutil/DiskUsers.h"
#include "foundation/PlainMainQueue.h"
#include "platform/VolumeEvents.h"
#include "platform/hosts/HostFactory.h"

#include <random>

namespace orvana::test
{

TEST_F(RealDisks, EraseMountCopyVerifyAndEjectTenTimes)
{
    const auto disk = addDisk();
    for (int round = 0; round < 10; ++round) {
        const auto erased = erase(*disk, "COPY 1");
        ASSERT_EQ(erased.status, 0) << erased.text;
        const auto point = disk->mountPoint();
        ASSERT_FALSE(point.empty());
        EXPECT_NE(erased.text.find(point), std::string::npos) << erased.text;
        EXPECT_EQ(treeOf(point), std::vector<std::string>{"lost+found"});
        expectCopyGoesTo(*disk);
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

TEST_F(RealDisks, DiskThatMustNotBeTouchedKeepsEveryByteWhateverHappensInBetween)
{
    std::mt19937 random(20261121);
    int erased = 0;
    for (int sequence = 0; sequence < 20; ++sequence) {
        SCOPED_TRACE("sequence " + std::to_string(sequence));
        const auto source = addDisk("source");
        const auto other = addDisk("other");
        const auto spare = sparingWord(*source);
        auto known = other->expectations();
        const auto before = source->digest();
        for (int event = 0; event < 4; ++event) {
            switch (random() % 6) {
            case 0:
                other->attachAgain();
                break;
            case 1:
                known = other->expectations();
                break;
            case 2:
                known = source->expectations(); // a mistake of the caller
                break;
            case 3:
                other->attach(m_tree.path("bays/source"));
                break;
            case 4:
                other->attach(m_tree.path("bays/other"));
                break;
            default:
                other->examine();
            }
        }
        const auto &node = random() % 3 == 0 ? source->node() : other->node();
        auto words = known;
        words.push_back(spare);
        const auto said = diskUtility({"eraseDisk", "JHFS+", "COPY", node}, words);
        erased += said.status == 0 ? 1 : 0;
        EXPECT_EQ(source->digest(), before) << said.text;
    }
    EXPECT_GT(erased, 0) << "a test in which nothing is ever erased shows nothing";
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

TEST_F(RealDisks, BusyVolumeIsToldThoughAnotherFileSystemDoesNotAnswer)
{
    if (runShell("test -r /dev/fuse && : </dev/fuse && command -v mount.exfat-fuse").status != 0)
        GTEST_SKIP() << "needs FUSE, and the package exfat-fuse";
    const auto disk = addDisk();
    disk->mount(m_tree.folder("here"));
    const BusyProcess user(m_tree.path("here"));
    const ServedMount served(m_tree.path("served"));
    const BusyProcess elsewhere(m_tree.path("served"));
    served.fallSilent();
    const auto ejected = eject(*disk);
    EXPECT_EQ(ejected.status, 3);
    EXPECT_NE(ejected.text.find("in use by sleep (" + user.number() + ")"), std::string::npos)
        << ejected.text;
}

TEST_F(RealDisks, DiskThatAnotherNamespaceHasMountedIsRefused)
{
    const auto disk = addDisk();
    const ForeignMount elsewhere(disk->partition(), m_tree.folder("here"));
    EXPECT_EQ(disk->mountPoint(), "");
    expectRefusal(*disk, "is in use by another program");
    EXPECT_EQ(eject(*disk).status, 3);
}

TEST_F(RealDisks, PartOfTheSystemIsRefused)
{
    const auto disk = addDisk();
    disk->mount("/srv"); // in this namespace alone
    expectRefusal(*disk, "holds the running system");
}

TEST_F(RealDisks, SwapIsRefused)
{
    const auto disk = addBlankDisk();
    const Swap swap(*disk);
    // The kernel may swap to the disk meanwhile, so only the bytes that identify the swap space must stay.
    const auto signature = [&] { return must("blkid -p -o export " + disk->node()); };
    const auto before = signature();
    EXPECT_NE(before.find("TYPE=swap"), std::string::npos) << before;
    const auto said = erase(*disk, "NEW");
    EXPECT_EQ(said.status, 3) << said.text;
    EXPECT_NE(said.text.find("is in use as swap space"), std::string::npos) << said.text;
    EXPECT_EQ(signature(), before);
}

TEST_F(RealDisks, RaidMemberIsRefused)
{
    const auto disk = addBlankDisk();
    disk->plantRaidMember();
    expectRefusal(*disk, "is a member of a RAID set or a volume group");
}

TEST_F(RealDisks, VolumeGroupMemberIsRefused)
{
    const auto disk = addBlankDisk();
    disk->plantVolumeGroupMember();
    expectRefusal(*disk, "is a member of a RAID set or a volume group");
}

TEST_F(RealDisks, VolumeWithASwapFileIsRefused)
{
    const auto disk = addDisk();
    disk->mount(m_tree.folder("here"));
    const SwapFile swap(m_tree.path("here/swap"));
    expectRefusal(*disk, "is in use as swap space");
    EXPECT_EQ(disk->mountPoint(), m_tree.path("here"));
}

TEST_F(RealDisks, VolumeWithAnAttachedImageIsRefusedWithTheImage)
{
    const auto disk = addDisk();
    disk->mount(m_tree.folder("here"));
    const AttachedImage image(m_tree.path("here/image"));
    expectRefusal(*disk, "cannot be unmounted: it is in use; in use by image (" + image.device() + ")");
    EXPECT_EQ(disk->mountPoint(), m_tree.path("here"));
}

TEST_F(RealDisks, OtherHalfOfAMountedPairIsRefused)
{
    const auto first = addBlankDisk(128, "first");
    const auto second = addBlankDisk(128, "second");
    first->makePairWith(*second);
    first->mount(m_tree.folder("here"));
    ASSERT_EQ(first->mountPoint(), m_tree.path("here"));
    ASSERT_EQ(second->mountPoint(), "");
    expectRefusal(*second, "is in use: something is built upon it");
    EXPECT_EQ(eject(*second).status, 3);
    EXPECT_EQ(first->mountPoint(), m_tree.path("here"));
}

// Half of such a pair looks like any other volume that is not mounted.
TEST_F(RealDisks, HalfOfAPairThatIsNotMountedIsErasedAndTheOtherIsLeftAlone)
{
    const auto first = addBlankDisk(128, "first");
    const auto second = addBlankDisk(128, "second");
    first->makePairWith(*second);
    const auto before = first->digest();
    const auto said = erase(*second, "COPY");
    EXPECT_EQ(said.status, 0) << said.text;
    EXPECT_EQ(second->label(), "COPY");
    EXPECT_EQ(first->digest(), before);
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
    const auto said = erase(*disk, "COPY", "JHFS+", "nobody");
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

TEST_F(PlayedAuthority, UserWhoIsAllowedErasesAndOwnsTheVolume)
{
    const auto disk = addDisk();
    setAuthority(Authority::Allows);
    const auto said = erase(*disk, "COPY", "JHFS+", "nobody");
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
    const auto said = erase(*disk, "COPY", "JHFS+", "nobody");
    EXPECT_EQ(said.status, 3) << said.text;
    EXPECT_NE(said.text.find("you are not authorised"), std::string::npos) << said.text;
    EXPECT_EQ(disk->digest(), before);
}

// The actions that an active user may do without a password.
TEST_F(PlayedAuthority, DiskThatIsMarkedExternalNeedsNoRightsOverTheSystemsDisks)
{
    const auto disk = addDisk();
    allowOnly({"modify-device", "filesystem-mount", "open-device"});
    EXPECT_EQ(erase(*disk, "COPY", "JHFS+", "nobody").status, 3);
    EXPECT_EQ(disk->label(), "OLD");
    disk->markExternal();
    const auto said = erase(*disk, "COPY", "JHFS+", "nobody");
    EXPECT_EQ(said.status, 0) << said.text;
    EXPECT_EQ(disk->label(), "COPY");
    allowOnly({});
    EXPECT_EQ(eject(*disk, "nobody").status, 0);
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
