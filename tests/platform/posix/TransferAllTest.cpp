#include "platform/posix/TransferAll.h"

#include <gtest/gtest.h>

namespace orvana::platform::posix
{

TEST(TransferAll, GoesOnAfterShortCountsAndInterruptions)
{
    int calls = 0;
    const auto moved = transferAll(10, [&](std::size_t done) -> ssize_t {
        if (++calls == 2) {
            errno = EINTR;
            return -1;
        }
        return done < 9 ? 3 : 1;
    });
    EXPECT_EQ(moved.value(), 10U);
    EXPECT_EQ(calls, 5);
}

TEST(TransferAll, EndsAtTheEndAndFailsWithTheReason)
{
    EXPECT_EQ(transferAll(10, [](std::size_t done) -> ssize_t { return done == 0 ? 4 : 0; }).value(), 4U);
    const auto failed = transferAll(10, [](std::size_t) -> ssize_t {
        errno = ENOSPC;
        return -1;
    });
    ASSERT_FALSE(failed);
    EXPECT_EQ(failed.error().reason(), "No space left on device");
    EXPECT_EQ(transferAll(0, [](std::size_t) -> ssize_t { return -1; }).value(), 0U);
}

} // namespace orvana::platform::posix
