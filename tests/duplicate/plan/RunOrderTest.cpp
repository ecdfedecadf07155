#include "duplicate/plan/RunOrder.h"

#include "duplicate/plan/RunPlanFixture.h"

namespace orvana
{

/// An order that was decided at Start, compared with the result of a later scan.
class RunOrderTest : public RunPlan
{
protected:
    RunOrder erasingOrder() const
    {
        RunOrder order;
        order.choice = m_choice;
        order.choice.erase = true;
        order.erase = erase();
        return order;
    }

    RunOrder copyingOrder() const
    {
        RunOrder order;
        order.choice = m_choice;
        order.destinations = destinations();
        return order;
    }
};

TEST_F(RunOrderTest, DiskThatCameLaterIsNotErased)
{
    auto order = erasingOrder();
    std::erase_if(order.erase.disks, [](const auto &disk) { return disk.bay == Bay::C; });
    const auto plan = eraseWithin(order, erase());
    EXPECT_EQ(erased(plan), (Names{"Slot-B /dev/disk2 COPY1", "Slot-D /dev/disk4 Untitled"}));
    EXPECT_EQ(firstReason(plan), RefusalReason::OtherDisk);
}

TEST_F(RunOrderTest, DiskUnderAnotherNameIsNotErased)
{
    const auto order = erasingOrder();
    m_choice.names[Bay::B] = "OTHER";
    EXPECT_EQ(erased(eraseWithin(order, erase())).front(), "Slot-C /dev/disk3 COPY2");
}

TEST_F(RunOrderTest, DiskThatIsGoneIsLeftOutWithoutAWord)
{
    const auto order = erasingOrder();
    box().hddArray().erase(box().hddArray().begin() + 1);
    const auto plan = eraseWithin(order, erase());
    EXPECT_EQ(plan.disks.size(), 2U);
    EXPECT_TRUE(plan.refusals.empty());
}

TEST_F(RunOrderTest, VolumeThatIsAnotherOneIsNoDestination)
{
    const auto order = copyingOrder();
    auto now = destinations();
    ASSERT_EQ(now.destinations.size(), 2U);
    now.destinations[0].device = "/dev/disk99s1";
    const auto plan = destinationsWithin(order, now);
    EXPECT_EQ(plan.roots(), std::vector<std::string>{"/Volumes/COPY2"});
    EXPECT_EQ(firstReason(plan), RefusalReason::OtherDisk);
}

TEST_F(RunOrderTest, AfterAnEraseTheErasedDisksAreTheDestinationsWhateverTheirVolumesAre)
{
    auto order = erasingOrder();
    auto now = destinations();
    now.destinations[0].device = "/dev/disk99s1";
    EXPECT_EQ(destinationsWithin(order, now).destinations.size(), 2U);
    std::erase_if(order.erase.disks, [](const auto &disk) { return disk.bay == Bay::B; });
    EXPECT_EQ(destinationsWithin(order, now).roots(), std::vector<std::string>{"/Volumes/COPY2"});
}

TEST_F(RunOrderTest, EveryRefusalHasWords)
{
    for (const auto refusal : {OrderRefusal::NothingTicked, OrderRefusal::SourceGone,
                               OrderRefusal::SourceGoneSinceTheErase, OrderRefusal::DiskDoesNotAnswer})
        EXPECT_TRUE(refusalText(refusal).ends_with('.')) << refusalText(refusal);
}

} // namespace orvana
