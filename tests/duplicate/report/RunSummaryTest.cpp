#include "duplicate/report/RunSummary.h"

#include <gtest/gtest.h>

namespace orvana
{

namespace
{

RunSummary wholeRun()
{
    RunSummary summary;
    summary.destinations.resize(2);
    for (auto &destination : summary.destinations)
        destination.durability = Durability::OnDisk;
    return summary;
}

} // namespace

TEST(RunSummary, IsAllDoneOnlyWithEveryFileOnEveryDisk)
{
    EXPECT_TRUE(isAllDone(wholeRun()));
    using Change = void (*)(DestinationSummary &);
    for (const Change change :
         {Change([](auto &d) { d.failed = 1; }), Change([](auto &d) { d.mismatched = 1; }),
          Change([](auto &d) { d.unverified = 1; }),
          Change([](auto &d) { d.durability = Durability::NotKnown; })}) {
        auto summary = wholeRun();
        change(summary.destinations[1]);
        EXPECT_FALSE(isWhole(summary.destinations[1]));
        EXPECT_FALSE(isAllDone(summary));
    }
    auto inMemory = wholeRun();
    inMemory.destinations[0].durability = Durability::Memory;
    EXPECT_TRUE(isAllDone(inMemory)) << "a file system without a disk has all that it can have";
}

TEST(RunSummary, NoteOrADiskThatFailedOrWasRefusedIsNotAllDoneAndOneThatWasLeftOutIs)
{
    auto noted = wholeRun();
    noted.note = "no destination";
    EXPECT_FALSE(isAllDone(noted));
    for (const auto &[outcome, isDone] : {std::pair(DiskOutcome::Erased, true),
                                          {DiskOutcome::LeftOut, true},
                                          {DiskOutcome::Refused, false},
                                          {DiskOutcome::EraseFailed, false}}) {
        auto summary = wholeRun();
        summary.disks.push_back({"Slot-B", "COPY1", {}, outcome, "why"});
        EXPECT_EQ(isAllDone(summary), isDone);
    }
}

TEST(RunSummary, LinesNameDisksThatTookNoPartAndCopiesThatMayNotBeOnTheDisk)
{
    auto summary = wholeRun();
    summary.disks = {{"Slot-B", "COPY1", {}, DiskOutcome::Erased, {}},
                     {"Slot-C", "COPY2", {}, DiskOutcome::EraseFailed, "busy"}};
    summary.destinations[1].path = "/Volumes/COPY3";
    summary.destinations[1].durability = Durability::NotKnown;
    summary.destinations[1].reason = "not known to be on disk: the sync failed";
    EXPECT_EQ(diskLines(summary), std::vector<std::string>{"Slot-C (COPY2): could not be erased: busy"});
    ASSERT_EQ(notOnDiskLines(summary).size(), 1U);
    EXPECT_NE(notOnDiskLines(summary)[0].find("/Volumes/COPY3"), std::string::npos);
}

} // namespace orvana
