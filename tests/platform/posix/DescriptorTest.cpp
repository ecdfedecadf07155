#include "platform/posix/Descriptor.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace orvana::platform::posix
{

namespace
{

bool isOpen(int number)
{
    return ::fcntl(number, F_GETFD) >= 0;
}

} // namespace

TEST(Descriptor, IsClosedOnceByItsLastOwner)
{
    const int number = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    {
        Descriptor first(number);
        const Descriptor second(std::move(first));
        EXPECT_EQ(second.number(), number);
        EXPECT_TRUE(isOpen(number));
    }
    EXPECT_FALSE(isOpen(number));
}

TEST(Descriptor, ReleasedOneStaysOpen)
{
    const int number = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    {
        Descriptor owner(number);
        EXPECT_EQ(owner.release(), number);
        EXPECT_FALSE(owner.isOpen());
    }
    EXPECT_TRUE(isOpen(number));
    ::close(number);
}

} // namespace orvana::platform::posix
