#include "duplicate/plan/RunChoice.h"

#include <gtest/gtest.h>

namespace orvana
{

TEST(RunChoice, EveryBayHasANameByWhichItIsFoundAgain)
{
    for (const auto bay : AllBays)
        EXPECT_EQ(bayNamed(slotNameOf(bay)), bay);
    EXPECT_EQ(slotNameOf(Bay::A), "Slot-A");
    for (const char *name : {"", "Slot-E", "slot-A", "Slot-A ", "A"})
        EXPECT_EQ(bayNamed(name), std::nullopt) << name;
}

TEST(RunChoice, BayAIsTheSourceUnlessAnotherIsChosenAndNoOtherBayEverIs)
{
    RunChoice choice;
    EXPECT_TRUE(choice.isSourceBay(Bay::A));
    EXPECT_FALSE(choice.isSourceBay(Bay::B));
    choice.slotAisSource = false;
    EXPECT_FALSE(choice.isSourceBay(Bay::A));
}

} // namespace orvana
