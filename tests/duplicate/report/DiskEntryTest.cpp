#include "duplicate/report/DiskEntry.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana
{

TEST(DiskEntry, ErasedDiskHasNoReason)
{
    const DiskEntry entry{"Slot-B", "COPY1", {"S1", "M1", "/dev/disk4", "COPY1"}, DiskOutcome::Erased, {}};
    EXPECT_EQ(diskText(entry), "Slot-B (COPY1): erased");
    const auto json = diskJson(entry);
    EXPECT_EQ(json["outcome"], "erased");
    EXPECT_EQ(json["serial"], "S1");
    EXPECT_EQ(json["model"], "M1");
    EXPECT_EQ(json["device"], "/dev/disk4");
    EXPECT_FALSE(json.contains("reason"));
}

TEST(DiskEntry, EveryOtherOutcomeSaysItsReason)
{
    const auto text = [](DiskOutcome outcome) {
        return diskText({"Slot-C", "COPY\n2", {}, outcome, "busy"});
    };
    EXPECT_EQ(text(DiskOutcome::EraseFailed), "Slot-C (COPY\\x0A2): could not be erased: busy");
    EXPECT_EQ(text(DiskOutcome::LeftOut), "Slot-C (COPY\\x0A2): left out: busy");
    EXPECT_EQ(text(DiskOutcome::Refused), "Slot-C (COPY\\x0A2): refused: busy");
    EXPECT_EQ(diskJson({"Slot-C", "x", {}, DiskOutcome::Refused, "busy"})["reason"], "busy");
}

} // namespace orvana
