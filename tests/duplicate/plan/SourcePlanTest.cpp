// The content of the slot panel, the list of sources, and the effect of choosing a source.

#include "duplicate/plan/SourcePlan.h"
#include "support/MadeUpDevices.h"

#include <gtest/gtest.h>

namespace orvana
{

using namespace test;
using Titles = std::vector<std::string>;

namespace
{

Titles titlesOf(const SourcePlan &plan)
{
    Titles titles;
    for (const auto &candidate : plan.candidates)
        titles.push_back(candidate.title);
    return titles;
}

} // namespace

TEST(SourcePlan, VolumeInBayAIsTheSourceToBeginWith)
{
    const auto box = enclosure(1, {inBay("Slot-A", disk(1, {volume("/Volumes/Master", 2048, 1024)}))});
    const auto plan = planSources(box.get(), {{box}, {startupDisk()}, {}}, Anna);
    EXPECT_EQ(titlesOf(plan), (Titles{"Master", "anna"}));
    EXPECT_EQ(plan.bayCandidates, 1U);
    EXPECT_EQ(plan.candidates[0].icon, SourceIcon::InternalDisk);
    EXPECT_EQ(plan.candidates[1].icon, SourceIcon::Home);
    EXPECT_EQ(*plan.root, "/Volumes/Master");
    EXPECT_EQ(plan.row, (DiskRow{"Master", "Model 1", "SN1", "512.00 KB", "1.00 MB", false, false}));
    EXPECT_TRUE(plan.mayBeEjected);
}

TEST(SourcePlan, OfSeveralVolumesInBayATheRowShowsTheLastAndTheTreeTheFirst)
{
    const auto box = enclosure(1, {inBay("Slot-A", disk(1, {volume("/Volumes/One"), volume("/Volumes/Two"),
                                                            volume("/Volumes/Three")}))});
    const auto plan = planSources(box.get(), {{box}, {}, {}}, Anna);
    EXPECT_EQ(titlesOf(plan), (Titles{"One", "Two", "Three"}));
    EXPECT_EQ(plan.row.volume, "Three");
    EXPECT_EQ(*plan.root, "/Volumes/One");
}

TEST(SourcePlan, WithAnEmptyBayATheHomeFolderIsTheSourceAndCannotBeEjected)
{
    const auto box = enclosure(1, {inBay("Slot-B", disk(2, {volume("/Volumes/COPY1")}))});
    const auto plan = planSources(box.get(), {{box}, {startupDisk()}, {}}, Anna);
    EXPECT_TRUE(plan.isFound);
    EXPECT_EQ(plan.row.volume, "anna");
    EXPECT_EQ(*plan.root, "/Users/anna");
    EXPECT_EQ(plan.candidates[0].icon, SourceIcon::Home);
    EXPECT_EQ(plan.bayCandidates, 0U);
    EXPECT_FALSE(plan.mayBeEjected);
}

TEST(SourcePlan, WithAnUnformattedBayATheHomeFolderIsTheSource)
{
    const auto box = enclosure(1, {inBay("Slot-A", blank(disk(1)))});
    const auto plan = planSources(box.get(), {{box}, {startupDisk()}, {}}, Anna);
    EXPECT_EQ(plan.row.volume, "anna");
}

TEST(SourcePlan, OtherDisksComeWithTheirOwnIconIfTheyHaveOne)
{
    const auto box = enclosure(1, {});
    const auto thunder = enclosure(2, {disk(7, {volume("/Volumes/Fast")})});
    const auto plan = planSources(box.get(), {{box}, {disk(5, {volume("/Volumes/STICK")})}, {thunder}}, Anna);
    EXPECT_EQ(titlesOf(plan), (Titles{"STICK", "Fast"}));
    EXPECT_EQ(plan.candidates[0].icon, SourceIcon::ExternalDisk);
    EXPECT_EQ(plan.candidates[0].ownIconFile, "/Volumes/STICK/.VolumeIcon.icns");
    EXPECT_FALSE(plan.isFound);
    EXPECT_EQ(plan.row.volume, "None");
}

TEST(SourcePlan, UnmountedVolumesAreNobodysSource)
{
    const auto box = enclosure(1, {inBay("Slot-A", disk(1, {unmountedVolume()}))});
    EXPECT_TRUE(planSources(box.get(), {{box}, {disk(5, {unmountedVolume()})}, {}}, Anna).candidates.empty());
}

TEST(SourcePlan, WithoutAnEnclosureThereIsNothingToChoose)
{
    const auto plan = planSources(nullptr, {{}, {startupDisk()}, {}}, Anna);
    EXPECT_TRUE(plan.candidates.empty());
    EXPECT_FALSE(plan.root);
}

TEST(SourcePlan, ChosenTitleIsLookedForInBayAFirst)
{
    const auto box =
        enclosure(1, {inBay("Slot-A", disk(1, {volume("/Volumes/One"), volume("/Volumes/Two")}))});
    const auto match = sourceTitled("Two", box.get(), {{box}, {disk(5, {volume("/media/Two")})}, {}}, Anna);
    EXPECT_EQ(*match.root, "/Volumes/Two");
    EXPECT_EQ(match.row.serial, "SN1");
}

TEST(SourcePlan, OfTwoVolumesWithOneNameOnOtherDisksTheLaterWins)
{
    const auto match = sourceTitled(
        "Twin", nullptr, {{}, {disk(5, {volume("/media/Twin")}), disk(6, {volume("/mnt/Twin")})}, {}}, Anna);
    EXPECT_EQ(*match.root, "/mnt/Twin");
    EXPECT_EQ(match.row.model, "Model 6");
}

TEST(SourcePlan, LoginNameLeadsToTheHomeFolderWhichCannotBeEjected)
{
    const auto match = sourceTitled("anna", nullptr, {{}, {startupDisk()}, {}}, Anna);
    EXPECT_EQ(*match.root, "/Users/anna");
    EXPECT_FALSE(match.mayBeEjected);
}

TEST(SourcePlan, OtherThunderboltDevicesAreOfferedButNotSearched)
{
    const auto thunder = enclosure(2, {disk(7, {volume("/Volumes/Fast")})});
    EXPECT_FALSE(sourceTitled("Fast", nullptr, {{}, {}, {thunder}}, Anna).root);
}

TEST(SourcePlan, TitleThatMatchesNothingLeavesTheRowEmpty)
{
    const auto match = sourceTitled("Gone", nullptr, {{}, {startupDisk()}, {}}, Anna);
    EXPECT_EQ(match.row, (DiskRow{"", "", "", "", "", false, false}));
    EXPECT_FALSE(match.root);
    EXPECT_TRUE(match.mayBeEjected);
}

TEST(SourcePlan, DiskWithoutSerialNumberShowsNone)
{
    auto stick = disk(5, {volume("/Volumes/STICK")});
    stick->setHddSN(std::nullopt);
    EXPECT_EQ(sourceTitled("STICK", nullptr, {{}, {stick}, {}}, Anna).row.serial, "");
}

TEST(SourcePlan, OnlyBayAIsAskedForAVolumeOfTheEnclosure)
{
    const auto box = enclosure(1, {inBay("Slot-A", disk(1, {volume("/Volumes/Master")})),
                                   inBay("Slot-B", disk(2, {volume("/Volumes/COPY1")}))});
    EXPECT_TRUE(isTBDevDiskArrayVolumes("Master", box.get()));
    EXPECT_FALSE(isTBDevDiskArrayVolumes("COPY1", box.get()));
    EXPECT_FALSE(isTBDevDiskArrayVolumes("Master", nullptr));
}

TEST(SourcePlan, BayAIsTheSourceOnlyForTheFirstItemAndTheSameName)
{
    EXPECT_TRUE(isSlotAisSource(0, "Master", "Master"));
    EXPECT_FALSE(isSlotAisSource(1, "Master", "Master"));
    EXPECT_FALSE(isSlotAisSource(0, "Two", "One"));
}

TEST(SourcePlan, DiskIsShownByItsFirstVolume)
{
    const auto row = rowOfDisk(*disk(2, {volume("/Volumes/One", 4, 2), volume("/Volumes/Two")}), Anna);
    EXPECT_EQ(row, (DiskRow{"One", "Model 2", "SN2", "1.00 KB", "2.00 KB", false, false}));
}

TEST(SourcePlan, DiskWithoutVolumesIsShownByItsOwnSize)
{
    EXPECT_EQ(rowOfDisk(*blank(disk(2)), Anna),
              (DiskRow{"Unformatted", "Model 2", "SN2", "1.00 MB", "1.00 MB", false, false}));
    EXPECT_EQ(rowOfDisk(*disk(2), Anna).volume, "None");
}

TEST(SourcePlan, RaidMemberIsMarkedInItsRow)
{
    EXPECT_TRUE(rowOfDisk(*raid(disk(2, {unmountedVolume()})), Anna).isRaid);
}

TEST(SourcePlan, LastDiskWithVolumesDecidesWhetherTheStartupDiskIsThere)
{
    const auto first =
        enclosure(1, {inBay("Slot-A", startupDisk(1)), inBay("Slot-B", disk(2, {volume("/Volumes/B")}))});
    EXPECT_EQ(bayRowsOf(*first, Anna).hasBootDisk, false);
    const auto last = enclosure(1, {inBay("Slot-A", disk(1, {volume("/Volumes/A")})),
                                    inBay("Slot-B", startupDisk(2)), inBay("Slot-C", blank(disk(3)))});
    EXPECT_EQ(bayRowsOf(*last, Anna).hasBootDisk, true);
    EXPECT_EQ(bayRowsOf(*enclosure(1, {inBay("Slot-C", blank(disk(3)))}), Anna).hasBootDisk, std::nullopt);
}

TEST(SourcePlan, UnformattedBayTurnsTheEraseOptionOn)
{
    EXPECT_TRUE(bayRowsOf(*enclosure(1, {inBay("Slot-D", blank(disk(3)))}), Anna).holdsUnformatted);
    EXPECT_FALSE(bayRowsOf(*enclosure(1, {inBay("Slot-D", disk(3))}), Anna).holdsUnformatted);
}

TEST(SourcePlan, EmptyBaysHaveNoRow)
{
    const auto rows = bayRowsOf(*enclosure(1, {inBay("Slot-C", disk(3))}), Anna).rows;
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].slot, "Slot-C");
}

} // namespace orvana
