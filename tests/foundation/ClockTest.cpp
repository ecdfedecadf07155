#include "foundation/Clock.h"

#include "support/StoppedClock.h"

#include <gtest/gtest.h>

namespace orvana
{

TEST(Clock, TimeIsLaidOutInTheSystemsZone)
{
    test::StoppedClock clock;
    EXPECT_EQ(localTime(clock.now(), "%Y%m%d-%H%M%S"), "20261121-102030");
    clock.pass(std::chrono::seconds(90));
    EXPECT_EQ(localTime(clock.now(), "%H:%M:%S"), "10:22:00");
}

TEST(Clock, SystemsClockGoesOn)
{
    const SystemClock clock;
    const auto before = std::chrono::system_clock::now();
    EXPECT_GE(clock.now(), before);
}

} // namespace orvana
