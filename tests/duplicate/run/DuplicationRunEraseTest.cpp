#include "duplicate/run/RunFixture.h"

namespace orvana
{

TEST_F(DuplicationRunTest, DiskThatIsTooSmallByTheTimeOfItsEraseKeepsWhatItHoldsAndGetsNoCopy)
{
    auto &volumes = m_machine["enclosures"][0]["bays"][1]["volumes"];
    volumes.push_back({{"name", "TINY"}, {"capacity", 1000}});
    start();
    auto order = this->order(true);
    order.choice.selectedBytes = 120'000;
    at("look at all", [this] {
        EXPECT_TRUE(platform::moveSimulatorLever(m_tree.path("machine.json"), "unmount", "COPY1", ""));
    });
    m_run->start(std::move(order));
    untilEnded();
    EXPECT_FALSE(told("Erasing, message: Erasing /dev/disk3 & Mount to /Volumes/COPY1"));
    EXPECT_EQ(m_summary.destinations.size(), 2U) << "bays C and D";
    EXPECT_FALSE(isAllDone(m_summary));
    ASSERT_FALSE(diskLines(m_summary).empty());
    EXPECT_TRUE(diskLines(m_summary).front().starts_with("Slot-B")) << diskLines(m_summary).front();
}

TEST_F(DuplicationRunTest, VolumesHaveTheirNewNamesInTheCopyThatFollowsTheErase)
{
    start();
    auto order = this->order(true);
    for (auto &disk : order.erase.disks) {
        if (disk.bay == Bay::B)
            disk.info.diskVolume = "NEW";
    }
    order.choice.names[Bay::B] = "NEW";
    m_run->start(std::move(order));
    untilEnded();
    EXPECT_EQ(m_erasedNames, (Lines{"NEW", "COPY2", "COPY3"}));
    EXPECT_TRUE(isAllDone(m_summary));
    EXPECT_TRUE(test::pathExists(volume("NEW/Read me.txt")));
    // A volume whose name was taken gets another one; the copy goes there all the same.
    auto second = this->order(true);
    second.erase.disks[0].info.diskVolume = second.choice.names[Bay::B] = "STICK";
    m_ends = 0;
    m_run->start(std::move(second));
    untilEnded();
    EXPECT_EQ(m_summary.destinations.size(), 3U);
    EXPECT_TRUE(isAllDone(m_summary));
}

TEST_F(DuplicationRunTest, DisksOfTheSourceAreSparedByTheDiskUtilityItself)
{
    start();
    auto order = this->order(true);
    order.choice.sourceDisks.push_back(order.erase.disks[1].fingerprint);
    m_run->start(std::move(order));
    untilEnded();
    EXPECT_TRUE(test::pathExists(volume("COPY2/old2")));
    EXPECT_EQ(m_host->spared.size(), 2U) << "told before the first disk";
}

TEST_F(DuplicationRunTest, EnclosureThatIsGoneByTheEraseErasesNothing)
{
    start();
    at("look at all",
       [this] { EXPECT_TRUE(platform::moveSimulatorLever(m_tree.path("machine.json"), "detach", "1", "")); });
    m_run->start(order(true));
    untilEnded();
    EXPECT_EQ(m_summary.ending, RunEnding::Refused);
    EXPECT_FALSE(told("Erasing, tool eraseDisk"));
}

TEST_F(DuplicationRunTest, SourceThatIsAnotherOneByTheEraseKeepsEveryDisk)
{
    start();
    auto order = this->order(true);
    order.source.folder = FolderIdentity{1, 1};
    m_run->start(std::move(order));
    untilEnded();
    EXPECT_EQ(m_summary.ending, RunEnding::Refused);
    EXPECT_FALSE(told("Erasing, tool eraseDisk"));
    EXPECT_TRUE(test::pathExists(volume("COPY1/old1")));
}

TEST_F(DuplicationRunTest, EndOfAnEraseThatNobodyStartedCopiesNothing)
{
    start();
    m_run->start(order(true));
    m_center.post(notification::EraseDiskFinish);
    EXPECT_EQ(m_run->phase(), RunPhase::Erasing);
    m_run->cancel();
    EXPECT_EQ(m_ends, 1);
}

} // namespace orvana
