// The plan of a run: which sources fit, what the engine is given, and which disks are erased.

#include "duplicate/plan/RunPlanFixture.h"

namespace orvana
{

TEST_F(RunPlan, SelectionOfExactlyTheFreeSpaceFits)
{
    const auto target = volume("/Volumes/B", 1000, 100);
    EXPECT_TRUE(fits(51'200, *target, EraseFirst::No));
    EXPECT_FALSE(fits(51'201, *target, EraseFirst::No));
}

TEST_F(RunPlan, SelectionOfExactlyNinetyNineHundredthsOfTheCapacityFitsWithErase)
{
    const auto target = volume("/Volumes/B", 1000, 0);
    EXPECT_TRUE(fits(506'880, *target, EraseFirst::Yes));
    EXPECT_FALSE(fits(506'881, *target, EraseFirst::Yes));
}

TEST_F(RunPlan, VolumeOfUnknownSizeTakesNothing)
{
    EXPECT_TRUE(fits(0, *unmountedVolume(), EraseFirst::Yes));
    EXPECT_FALSE(fits(1, *unmountedVolume(), EraseFirst::No));
}

TEST_F(RunPlan, DiskWithoutVolumesHasNoFit)
{
    const auto all = fitOfBays(box(), 300'000, EraseFirst::No);
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[2].slot, "Slot-C");
    EXPECT_FALSE(all[2].fits);
    EXPECT_TRUE(fitOfBays(box(), 300'000, EraseFirst::Yes)[2].fits);
}

TEST_F(RunPlan, AllAreTooSmallWhenTheThreeBaysBehindBayAAre)
{
    for (const auto slot : {Bay::B, Bay::C, Bay::D})
        m_choice.isOverSize[slot] = true;
    EXPECT_TRUE(isOverSizeInAll(m_choice));
    m_choice.isOverSize[Bay::C] = false;
    EXPECT_FALSE(isOverSizeInAll(m_choice));
    EXPECT_TRUE(isOverSizeInSome(m_choice));
}

TEST_F(RunPlan, BayACountsAsTooSmallOnlyAsADestination)
{
    m_choice.isOverSize[Bay::A] = true;
    EXPECT_FALSE(isOverSizeInSome(m_choice));
    EXPECT_EQ(overSizeText(m_choice), ".");
    m_choice.slotAisSource = false;
    EXPECT_TRUE(isOverSizeInSome(m_choice));
    EXPECT_FALSE(isOverSizeInAll(m_choice));
    EXPECT_EQ(overSizeText(m_choice), " Master.");
}

TEST_F(RunPlan, BaysThatAreTooSmallAreNamedInTheirOrder)
{
    m_choice.isOverSize[Bay::C] = true;
    m_choice.isOverSize[Bay::B] = true;
    EXPECT_EQ(overSizeText(m_choice), " COPY1 COPY2.");
}

TEST_F(RunPlan, ClosedAndTickedRowsAreHandedOver)
{
    EXPECT_EQ(selectedPaths({{"/V", true, -1},
                             {"/V/a", false, 1},
                             {"/V/b", true, 1},
                             {"/V/b/c", false, 1},
                             {"/V/b/d", false, 0},
                             {"/V/e", false, -1}}),
              (Names{"/V/a", "/V/b/c"}));
}

TEST_F(RunPlan, TreeWithoutARootIsNoTree)
{
    EXPECT_FALSE(hasTree({}));
    EXPECT_FALSE(hasTree({{"", false, 1}}));
    EXPECT_TRUE(hasTree({{"/V", false, 0}}));
}

TEST_F(RunPlan, ErasesTheBaysBehindTheSource)
{
    EXPECT_EQ(erased(erase()),
              (Names{"Slot-B /dev/disk2 COPY1", "Slot-C /dev/disk3 COPY2", "Slot-D /dev/disk4 Untitled"}));
    EXPECT_TRUE(erase().refusals.empty());
}

TEST_F(RunPlan, EraseGivesTheNameThatWasTyped)
{
    m_choice.names[Bay::B] = "Backup";
    m_choice.names[Bay::D] = "New";
    EXPECT_EQ(erased(erase()),
              (Names{"Slot-B /dev/disk2 Backup", "Slot-C /dev/disk3 COPY2", "Slot-D /dev/disk4 New"}));
}

TEST_F(RunPlan, EraseCarriesModelAndSerialNumberAlong)
{
    const auto info = erase().disks.front().info;
    EXPECT_EQ(info, (DiskUtilInfo{"SN2", "Model 2", "/dev/disk2", "COPY1"}));
}

TEST_F(RunPlan, BayAIsErasedWhenItIsADestination)
{
    chooseHome();
    EXPECT_EQ(erased(erase()).front(), "Slot-A /dev/disk1 Master");
}

TEST_F(RunPlan, RaidMemberIsNeverErased)
{
    raid(diskAt(1));
    const auto plan = erase();
    EXPECT_EQ(erased(plan).front(), "Slot-C /dev/disk3 COPY2");
    EXPECT_EQ(firstReason(plan), RefusalReason::RaidSet);
}

TEST_F(RunPlan, DiskThatIsTooSmallIsNotErased)
{
    m_choice.isOverSize[Bay::B] = true;
    EXPECT_EQ(erased(erase()), (Names{"Slot-C /dev/disk3 COPY2", "Slot-D /dev/disk4 Untitled"}));
    EXPECT_EQ(erase().tooSmall, std::vector{Bay::B});
}

TEST_F(RunPlan, DiskIsTooSmallToBeErasedByThePlansOwnSumThoughNothingShowsIt)
{
    diskAt(1)->setBsdPathArray({volume("/Volumes/COPY1", 100, 50)});
    m_choice.selectedBytes = 99 * 512;
    m_choice.erase = true;
    EXPECT_EQ(erased(erase()).front(), "Slot-B /dev/disk2 COPY1") << "99 hundredths, bound included";
    m_choice.selectedBytes = 99 * 512 + 1;
    EXPECT_EQ(erased(erase()).front(), "Slot-C /dev/disk3 COPY2");
    EXPECT_EQ(firstReason(erase()), RefusalReason::TooSmall) << "nobody was shown it, so it is told";
}

TEST_F(RunPlan, WithoutAnEraseABayIsLeftOutOnlyWhenItIsShownAsTooSmall)
{
    diskAt(1)->setBsdPathArray({volume("/Volumes/COPY1", 100, 50)});
    m_choice.selectedBytes = 90 * 512;
    EXPECT_EQ(destinations().roots().front(), "/Volumes/COPY1")
        << "copies of an earlier run need no new room";
    m_choice.isOverSize[Bay::B] = true;
    EXPECT_EQ(destinations().tooSmall, std::vector{Bay::B});
}

TEST_F(RunPlan, BayThatIsShownAsTooSmallStaysOutWhateverThePlansSumSays)
{
    m_choice.isOverSize[Bay::C] = true;
    m_choice.selectedBytes = 0;
    EXPECT_EQ(erase().tooSmall, std::vector{Bay::C});
    EXPECT_EQ(destinations().tooSmall, std::vector{Bay::C});
}

TEST_F(RunPlan, DiskInNoKnownBayIsNotErased)
{
    diskAt(1)->setSlotPath(std::nullopt);
    EXPECT_EQ(erased(erase()).front(), "Slot-C /dev/disk3 COPY2");
}

TEST_F(RunPlan, BayAOfTwoVolumesIsNeverErasedThoughItCountsAsADestination)
{
    diskAt(0)->setBsdPathArray({volume("/Volumes/Master"), volume("/Volumes/Second")});
    showNames();
    m_choice.source = "Second";
    m_choice.slotAisSource = isSlotAisSource(0, m_choice.source, m_choice.names[Bay::A]);
    ASSERT_FALSE(m_choice.slotAisSource);
    const auto plan = erase();
    EXPECT_EQ(erased(plan).front(), "Slot-B /dev/disk2 COPY1");
    EXPECT_EQ(textOf(plan.refusals), "Slot-A (Master): it carries the source");
    EXPECT_EQ(textOf(destinations().refusals), "Slot-A (Master): it carries the source");
    const auto eject = planTargetEject(m_devices, m_choice, Anna).value();
    EXPECT_EQ(ejected(eject), (Names{"/dev/disk2 COPY1", "/dev/disk3 COPY2"}));
    EXPECT_EQ(textOf(eject.refusals), "Slot-A (Master): it carries the source");
}

TEST_F(RunPlan, StartupDiskInABayIsNeverErasedNorADestinationNorEjected)
{
    diskAt(2)->setBsdPathArray({volume("/Volumes/COPY2"), volume("/")});
    EXPECT_EQ(firstReason(erase()), RefusalReason::StartupDisk);
    EXPECT_EQ(firstReason(destinations()), RefusalReason::StartupDisk);
    EXPECT_EQ(firstReason(*planTargetEject(m_devices, m_choice, Anna)), RefusalReason::StartupDisk);
}

TEST_F(RunPlan, OneBadNameIsToldBeforeAnythingIsErased)
{
    m_choice.names[Bay::C] = "a/b";
    const auto plan = erase();
    ASSERT_EQ(plan.badNames.size(), 1U);
    EXPECT_EQ(textOf(plan.badNames), "Slot-C (a/b): a name cannot hold \"/\"");
}

TEST_F(RunPlan, OnlyABlankDiskMayBeCalledUnformatted)
{
    m_choice.names[Bay::B] = UnformattedDisk;
    const auto plan = erase();
    ASSERT_EQ(plan.badNames.size(), 1U);
    EXPECT_EQ(plan.badNames.front().bay, "Slot-B");
    diskAt(1) = inBay("Slot-B", disk(2));
    EXPECT_EQ(erase().badNames.size(), 1U) << "a disk of unknown content is not blank";
    diskAt(1) = inBay("Slot-B", blank(disk(2)));
    EXPECT_TRUE(erase().badNames.empty());
}

TEST_F(RunPlan, NoDiskIsCalledLikeTheSource)
{
    m_choice.names[Bay::B] = "Master";
    EXPECT_EQ(textOf(erase().badNames), "Slot-B (Master): this is the name of the source");
    chooseHome();
    m_choice.names[Bay::B] = "anna";
    EXPECT_EQ(textOf(erase().badNames), "Slot-B (anna): this is the name of the source");
}

TEST_F(RunPlan, TwoDisksThatClaimOneBayAreBothLeftAlone)
{
    box().hddArray().push_back(bay("Slot-B", 9, "Other"));
    const auto plan = erase();
    EXPECT_EQ(plan.refusals.size(), 2U);
    EXPECT_EQ(firstReason(plan), RefusalReason::NotCertain);
    EXPECT_EQ(firstReason(destinations()), RefusalReason::NotCertain);
}

TEST_F(RunPlan, TwoDisksOfOneDeviceNodeAreBothLeftAlone)
{
    diskAt(2)->setDevPath("/dev/disk2");
    EXPECT_EQ(erase().refusals.size(), 2U);
}

TEST_F(RunPlan, DeviceNodeThatAnotherEnclosureClaimsIsLeftAlone)
{
    m_devices.tbArray.push_back(enclosure(78, {bay("Slot-A", 2, "Elsewhere")}));
    const auto plan = erase();
    ASSERT_EQ(plan.refusals.size(), 1U);
    EXPECT_EQ(plan.refusals.front().bay, "Slot-B");
}

TEST_F(RunPlan, OnlyTheChosenEnclosureIsErased)
{
    m_devices.tbArray.push_back(enclosure(78, {bay("Slot-B", 12, "COPY1")}));
    EXPECT_EQ(erase().disks.size(), 3U);
    m_choice.enclosure = {2, 78};
    EXPECT_EQ(erased(erase()), (Names{"Slot-B /dev/disk12 COPY1"}));
}

TEST_F(RunPlan, NothingIsDoneWithAnEnclosureThatIsAnotherOne)
{
    m_choice.enclosure.uid = 78;
    EXPECT_FALSE(planErase(m_devices, m_choice, Anna, EraseFormat::Ext4));
    EXPECT_FALSE(planDestinations(m_devices, m_choice, Anna));
    EXPECT_FALSE(planTargetEject(m_devices, m_choice, Anna));
    EXPECT_FALSE(planSourceEject(m_devices, m_choice));
}

TEST_F(RunPlan, DiskThatWasChangedSinceItWasShownIsLeftAlone)
{
    m_choice.shown = shownDisks(box());
    EXPECT_EQ(erase().disks.size(), 3U);
    diskAt(1) = bay("Slot-B", 9, "COPY1");
    const auto plan = erase();
    ASSERT_EQ(plan.refusals.size(), 1U);
    EXPECT_EQ(firstReason(plan), RefusalReason::OtherDisk);
    EXPECT_EQ(firstReason(destinations()), RefusalReason::OtherDisk);
}

TEST_F(RunPlan, DisksThatChangedPlacesSinceTheyWereShownAreLeftAlone)
{
    m_choice.shown = shownDisks(box());
    diskAt(1)->setSlotPath("Slot-C");
    diskAt(2)->setSlotPath("Slot-B");
    EXPECT_EQ(erase().refusals.size(), 2U);
    EXPECT_EQ(erased(erase()), (Names{"Slot-D /dev/disk4 Untitled"}));
}

TEST_F(RunPlan, EnclosureWithoutDisksErasesNothing)
{
    box().setHddArray({});
    EXPECT_TRUE(erase().disks.empty());
    EXPECT_TRUE(erase().refusals.empty());
}

} // namespace orvana
