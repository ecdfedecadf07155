// The destinations of a run, and the disks that are ejected.

#include "duplicate/plan/RunPlanFixture.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"

namespace orvana
{

using RunDestinations = RunPlan;

TEST_F(RunDestinations, CopiesGoToTheBaysBehindTheSourceInTheirOrder)
{
    std::swap(diskAt(1), diskAt(2));
    EXPECT_EQ(destinations().roots(), (Names{"/Volumes/COPY1", "/Volumes/COPY2"}));
}

TEST_F(RunDestinations, RootOfADestinationIsWhereItsOwnVolumeIsMounted)
{
    diskAt(1)->setBsdPathArray({volume("/media/anna/COPY1")});
    EXPECT_EQ(destinations().roots().front(), "/media/anna/COPY1");
}

TEST_F(RunDestinations, BayAIsADestinationWhenTheSourceLiesElsewhere)
{
    chooseHome();
    EXPECT_EQ(destinations().roots().front(), "/Volumes/Master");
}

TEST_F(RunDestinations, UnformattedDiskIsADestinationOnlyOnceItHasAName)
{
    EXPECT_EQ(destinations().destinations.size(), 2U);
    EXPECT_TRUE(destinations().refusals.empty());
    diskAt(3)->setIsUnFormated(false);
    diskAt(3)->setBsdPathArray({volume("/Volumes/Untitled")});
    showNames();
    EXPECT_EQ(destinations().roots().back(), "/Volumes/Untitled");
}

TEST_F(RunDestinations, DestinationThatIsTooSmallIsLeftOut)
{
    m_choice.isOverSize[Bay::B] = true;
    EXPECT_EQ(destinations().roots(), (Names{"/Volumes/COPY2"}));
    EXPECT_EQ(destinations().tooSmall, (std::vector{Bay::B}));
}

TEST_F(RunDestinations, TwoBaysThatShowOneNameAreOneDestination)
{
    diskAt(2)->setBsdPathArray({volume("/media/COPY1")});
    showNames();
    const auto plan = destinations();
    EXPECT_EQ(plan.roots(), (Names{"/Volumes/COPY1"}));
    EXPECT_EQ(textOf(plan.refusals), "Slot-C (COPY1): a bay before it shows the same name");
}

TEST_F(RunDestinations, BayWhoseVolumeIsMountedNowhereIsNoDestination)
{
    diskAt(1)->setBsdPathArray({unmountedVolume()});
    EXPECT_EQ(firstReason(destinations()), RefusalReason::NotMounted);
    diskAt(1)->setBsdPathArray({volume("")});
    EXPECT_EQ(firstReason(destinations()), RefusalReason::NotMounted);
}

TEST_F(RunDestinations, BayWithAnEmptyNameIsNoDestination)
{
    m_choice.names[Bay::B] = "";
    EXPECT_EQ(firstReason(destinations()), RefusalReason::NoName);
}

TEST_F(RunDestinations, BayThatHoldsAnotherVolumeThanItShowsIsNoDestination)
{
    diskAt(1)->setBsdPathArray({volume("/Volumes/COPY1 1")});
    EXPECT_EQ(firstReason(destinations()), RefusalReason::OtherVolume);
    diskAt(1)->setBsdPathArray({});
    EXPECT_EQ(firstReason(destinations()), RefusalReason::OtherVolume);
}

TEST_F(RunDestinations, BayThatLostItsDiskIsNoDestination)
{
    box().hddArray().erase(box().hddArray().begin() + 1);
    const auto plan = destinations();
    EXPECT_EQ(plan.roots(), (Names{"/Volumes/COPY2"}));
    EXPECT_EQ(plan.refusals.front().bay, "Slot-B");
}

/// A host whose volumes the test decides: folders of its own, and a listing of them.
class MountedFolders : public testing::Test
{
protected:
    class Host final : public TestHost, platform::CommandLauncher
    {
    public:
        using TestHost::TestHost;
        platform::CommandLauncher &launcher() override { return *this; }
        bool isVolumeRoot(const platform::Folder &folder) const override
        {
            return !folder.attributes("marker", platform::Links::Follow, platform::Want::Basics);
        }
        Result run(const std::string &, const std::vector<std::string> &) override { return {listing, 0}; }
        void setSparedDisks(std::vector<platform::DiskFingerprint>) override {}

        std::string listing;
    };

    void mount(const std::string &device, const std::string &folder)
    {
        m_host.listing += device + " 100 0 100 0% 0 0 0% " + m_tree.folder(folder) + "\n";
    }

    DestinationPlan checked(const std::string &device, const std::string &folder)
    {
        DestinationPlan plan;
        plan.destinations.push_back({Bay::B, "COPY1", m_tree.path(folder), {}, device});
        refuseWhatIsNotMounted(m_host, plan);
        return plan;
    }

    TemporaryTree m_tree;
    Host m_host{m_tree.path("home")};
};

TEST_F(MountedFolders, DestinationThatIsMountedAsItsRecordSaysStays)
{
    mount("/dev/disk2s1", "COPY1");
    const auto plan = checked("/dev/disk2s1", "COPY1");
    EXPECT_EQ(plan.destinations.size(), 1U);
    EXPECT_TRUE(plan.refusals.empty());
}

TEST_F(MountedFolders, FolderThatIsGoneIsNoDestination)
{
    EXPECT_EQ(textOf(checked("/dev/disk2s1", "nowhere").refusals),
              "Slot-B (COPY1): its volume is not mounted");
}

TEST_F(MountedFolders, FolderThatIsNoVolumesTopIsNoDestination)
{
    mount("/dev/disk2s1", "COPY1");
    m_tree.file("COPY1/marker");
    const auto plan = checked("/dev/disk2s1", "COPY1");
    EXPECT_TRUE(plan.destinations.empty());
    EXPECT_EQ(textOf(plan.refusals), "Slot-B (COPY1): its volume is not mounted");
}

TEST_F(MountedFolders, PlaceThatAnotherVolumeTookIsNoDestination)
{
    mount("/dev/disk2s1", "COPY1");
    mount("/dev/disk9s1", "COPY1");
    EXPECT_EQ(textOf(checked("/dev/disk2s1", "COPY1").refusals),
              "Slot-B (COPY1): it no longer holds the volume that was shown");
}

TEST_F(RunDestinations, EjectOfDestinationsTakesTheFormattedDisksOfEveryEnclosure)
{
    m_devices.tbArray.push_back(enclosure(78, {bay("Slot-A", 11, "Away"), bay("Slot-B", 12, "Far")}));
    EXPECT_EQ(ejected(*planTargetEject(m_devices, m_choice, Anna)),
              (Names{"/dev/disk2 COPY1", "/dev/disk3 COPY2", "/dev/disk12 Far"}));
    chooseHome();
    EXPECT_EQ(ejected(*planTargetEject(m_devices, m_choice, Anna)),
              (Names{"/dev/disk1 Master", "/dev/disk2 COPY1", "/dev/disk3 COPY2", "/dev/disk11 Away",
                     "/dev/disk12 Far"}));
}

TEST_F(RunDestinations, EjectOfTheSourceTakesBayAWhenItHasTheChosenVolume)
{
    EXPECT_EQ(ejected(*planSourceEject(m_devices, m_choice)), (Names{"/dev/disk1 Master"}));
}

TEST_F(RunDestinations, EjectOfTheSourceTakesAnotherDiskElse)
{
    m_devices.otherDiskArray.push_back(disk(5, {volume("/media/STICK")}));
    m_choice.sourceItem = "STICK";
    EXPECT_EQ(ejected(*planSourceEject(m_devices, m_choice)), (Names{"/dev/disk5 STICK"}));
}

TEST_F(RunDestinations, EjectOfTheSourceFindsNothingForAVolumeInAnotherBay)
{
    m_choice.sourceItem = "COPY1";
    EXPECT_TRUE(planSourceEject(m_devices, m_choice)->disks.empty());
}

TEST_F(RunDestinations, EjectOfTheSourceNeverTakesTheStartupDisk)
{
    m_devices.otherDiskArray.front()->bsdPathArray().push_back(volume("/media/Data"));
    m_choice.sourceItem = "Data";
    const auto plan = planSourceEject(m_devices, m_choice);
    EXPECT_TRUE(plan->disks.empty());
    EXPECT_EQ(firstReason(*plan), RefusalReason::StartupDisk);
}

} // namespace orvana
