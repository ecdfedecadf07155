#include "duplicate/engine/SourceTime.h"

#include <chrono>
#include <gtest/gtest.h>

namespace orvana
{

namespace
{

using namespace std::chrono;

platform::Attributes modifiedAt(system_clock::time_point time)
{
    platform::Attributes attributes;
    attributes.modified = duration_cast<nanoseconds>(time.time_since_epoch()).count();
    return attributes;
}

} // namespace

TEST(SourceTime, FileWithTheSameFileSizeAndTimeIsUnchanged)
{
    const auto before = modifiedAt(system_clock::now());
    EXPECT_TRUE(isUnchanged(before, before));
    for (const auto field :
         {&platform::Attributes::size, &platform::Attributes::inode, &platform::Attributes::device}) {
        auto now = before;
        now.*field += 1;
        EXPECT_FALSE(isUnchanged(before, now));
    }
    auto later = before;
    later.modified += 1;
    EXPECT_FALSE(isUnchanged(before, later));
}

TEST(SourceTime, OnlyAFreshTimeOfWholeSecondsMayHideALaterWrite)
{
    const auto second = floor<seconds>(system_clock::now());
    EXPECT_TRUE(mayChangeUnseen(modifiedAt(second)));
    EXPECT_FALSE(mayChangeUnseen(modifiedAt(second + nanoseconds(1)))) << "the file system keeps fractions";
    EXPECT_FALSE(mayChangeUnseen(modifiedAt(second - seconds(10)))) << "a write now would have a newer time";
    EXPECT_FALSE(mayChangeUnseen(modifiedAt(second + hours(1)))) << "a time in the future";
}

} // namespace orvana
