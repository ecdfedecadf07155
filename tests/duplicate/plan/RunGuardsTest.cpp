// The things that are never done, whatever the user chose.

#include "duplicate/plan/RunGuards.h"
#include "support/MadeUpDevices.h"

#include <gtest/gtest.h>

namespace orvana
{

using namespace test;

TEST(RunGuards, PlaceholderIsNoEnclosure)
{
    const ScannedDevices devices{{enclosure(1, {})}, {}, {}};
    EXPECT_EQ(chosenEnclosure(devices, {0, 1}).error(), EnclosureRefusal::NoneChosen);
    EXPECT_EQ(chosenEnclosure(devices, {-1, 1}).error(), EnclosureRefusal::NoneChosen);
}

TEST(RunGuards, EnclosureThatWasPulledIsNotThere)
{
    EXPECT_EQ(chosenEnclosure({{enclosure(1, {})}, {}, {}}, {2, 1}).error(), EnclosureRefusal::NotThere);
}

TEST(RunGuards, EnclosureThatMovedUpIsNotTakenForTheChosenOne)
{
    const ScannedDevices before{{enclosure(1, {}), enclosure(2, {})}, {}, {}};
    const ScannedDevices after{{enclosure(2, {})}, {}, {}};
    EXPECT_TRUE(chosenEnclosure(before, {1, 1}));
    EXPECT_EQ(chosenEnclosure(after, {1, 1}).error(), EnclosureRefusal::AnotherOne);
}

TEST(RunGuards, TwoEnclosuresOfOneIdentityAreNotToldApart)
{
    const ScannedDevices devices{{enclosure(1, {}), enclosure(1, {})}, {}, {}};
    EXPECT_EQ(chosenEnclosure(devices, {1, 1}).error(), EnclosureRefusal::AnotherOne);
}

TEST(RunGuards, EnclosureWithoutIdentityIsNotTrusted)
{
    const ScannedDevices devices{{std::make_shared<ORVThunderboltInfo>()}, {}, {}};
    EXPECT_EQ(chosenEnclosure(devices, {1, std::nullopt}).error(), EnclosureRefusal::AnotherOne);
}

TEST(RunGuards, StartupDiskInAnyBayRefusesTheStart)
{
    for (const char *slot : {"Slot-A", "Slot-D"}) {
        const auto box =
            enclosure(1, {inBay("Slot-B", disk(2, {volume("/Volumes/B")})), inBay(slot, startupDisk(1)),
                          inBay("Slot-C", disk(3, {volume("/Volumes/C")}))});
        EXPECT_EQ(refusalOfStart(*box, {{box}, {}, {}}), EnclosureRefusal::StartupDisk);
    }
}

TEST(RunGuards, StartupVolumeBehindTheFirstOfADiskRefusesTheStart)
{
    const auto box = enclosure(1, {inBay("Slot-B", disk(2, {volume("/boot"), volume("/")}))});
    EXPECT_EQ(refusalOfStart(*box, {{box}, {}, {}}), EnclosureRefusal::StartupDisk);
}

TEST(RunGuards, StartupDiskIsKnownByItsDeviceNodeToo)
{
    const auto box = enclosure(1, {inBay("Slot-B", disk(4, {volume("/Volumes/B")}))});
    EXPECT_EQ(refusalOfStart(*box, {{box}, {startupDisk(4)}, {}}), EnclosureRefusal::StartupDisk);
}

TEST(RunGuards, RaidSetInAnyBayRefusesTheStart)
{
    const auto box = enclosure(1, {inBay("Slot-A", raid(disk(1))), inBay("Slot-B", disk(2))});
    EXPECT_EQ(refusalOfStart(*box, {{box}, {}, {}}), EnclosureRefusal::RaidSet);
}

TEST(RunGuards, OrdinaryEnclosureMayStart)
{
    const auto box =
        enclosure(1, {inBay("Slot-A", disk(1, {volume("/Volumes/A")})), inBay("Slot-B", blank(disk(2)))});
    EXPECT_EQ(refusalOfStart(*box, {{box}, {startupDisk()}, {}}), std::nullopt);
}

class SourceGuard : public testing::Test
{
protected:
    std::optional<RefusalReason> guard() const { return refusalOf(*m_disk, m_devices, m_choice, Anna); }

    DiskPtr m_disk = inBay("Slot-A", disk(1, {volume("/Volumes/One"), volume("/Volumes/Two")}));
    ScannedDevices m_devices{{enclosure(1, {m_disk})}, {startupDisk()}, {}};
    RunChoice m_choice;
};

TEST_F(SourceGuard, DiskWithTheTreesRootCarriesTheSource)
{
    m_choice.sourceRoot = "/Volumes/Two";
    EXPECT_EQ(guard(), RefusalReason::CarriesSource);
}

TEST_F(SourceGuard, DiskWithAFolderAsTheTreesRootCarriesTheSource)
{
    m_choice.sourceRoot = "/Volumes/Two/Footage";
    EXPECT_EQ(guard(), RefusalReason::CarriesSource);
}

TEST_F(SourceGuard, DiskOfAnotherNameThatBeginsAlikeDoesNot)
{
    m_choice.sourceRoot = "/Volumes/Twos";
    EXPECT_EQ(guard(), std::nullopt);
}

TEST_F(SourceGuard, DiskNamedInTheSourceRowCarriesTheSource)
{
    m_choice.source = "Two";
    EXPECT_EQ(guard(), RefusalReason::CarriesSource);
}

TEST_F(SourceGuard, DiskOfTheChosenItemCarriesTheSource)
{
    m_choice.sourceItem = "One";
    EXPECT_EQ(guard(), RefusalReason::CarriesSource);
}

TEST_F(SourceGuard, AnotherRecordOfTheDiskCountsAsWell)
{
    m_devices.otherDiskArray.push_back(disk(1, {volume("/Volumes/Three")}));
    m_choice.source = "Three";
    EXPECT_EQ(guard(), RefusalReason::CarriesSource);
}

TEST_F(SourceGuard, StartupDiskIsNeverTouchedWhateverTheSource)
{
    EXPECT_EQ(refusalOf(*m_devices.otherDiskArray.front(), m_devices, m_choice, Anna),
              RefusalReason::StartupDisk);
}

TEST_F(SourceGuard, DiskWithoutADeviceNodeIsNeverTouched)
{
    m_disk->setDevPath(std::nullopt);
    EXPECT_EQ(guard(), RefusalReason::NoDevice);
}

TEST_F(SourceGuard, UnmountedVolumeIsNotTakenForAMissingSource)
{
    m_disk->setBsdPathArray({unmountedVolume()});
    EXPECT_EQ(guard(), std::nullopt);
}

TEST(RunGuards, RefusalOfADiskNamesBayNameAndReason)
{
    EXPECT_EQ(refusalText(DiskRefusal{"Slot-B", "CO\nPY", RefusalReason::CarriesSource}),
              "Slot-B (CO\\x0APY): it carries the source");
    EXPECT_EQ(refusalText(DiskRefusal{"Slot-B", "", RefusalReason::NoName}),
              "Slot-B: its volume has no name");
}

TEST(NameGuards, RefusalNamesBayNameAndLimit)
{
    EXPECT_EQ(refusalText(NameRefusal{"Slot-B", "A much too long name", NameRefusalReason::TooLong,
                                      EraseFormat::Xfs}),
              "Slot-B (A much too long name): longer than 12 bytes, which is the limit of xfs");
}

} // namespace orvana
