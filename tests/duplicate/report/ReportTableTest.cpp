// The readable summary of a run: headline, table and lines.

#include "duplicate/report/ReportTable.h"
#include "duplicate/report/ReportJson.h"
#include "duplicate/report/RunReport.h"
#include "support/StoppedClock.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana
{

namespace
{

DestinationSummary whole(const std::string &path)
{
    DestinationSummary destination;
    destination.path = path;
    destination.copied = 3;
    destination.verified = 3;
    destination.verifiedFrom = VerifiedFrom::Disk;
    destination.durability = Durability::OnDisk;
    return destination;
}

RunSummary runTo(std::vector<DestinationSummary> destinations)
{
    RunSummary summary;
    summary.destinations = std::move(destinations);
    return summary;
}

} // namespace

TEST(Headline, SaysFromWhereAllWasVerified)
{
    auto disk = whole("/a");
    EXPECT_EQ(headlineOf(runTo({disk})), "The destination holds every file, verified from the disk.");
    auto memory = whole("/b");
    memory.verifiedFrom = VerifiedFrom::Cache;
    EXPECT_EQ(headlineOf(runTo({disk, memory})),
              "All 2 destinations hold every file, verified as memory shows it.");
}

TEST(Headline, SaysNothingOfAVerificationThatWasNotAskedForAndNamesAPartialOne)
{
    auto none = whole("/a");
    none.verified = 0;
    EXPECT_EQ(headlineOf(runTo({none})), "The destination holds every file.");
    auto some = whole("/b");
    some.verified = 2;
    EXPECT_EQ(headlineOf(runTo({some})), "The destination holds every file, not all of it verified.");
    EXPECT_EQ(headlineOf(runTo({none, whole("/c")})),
              "All 2 destinations hold every file, not all of it verified.");
}

TEST(Headline, NamesEachDestinationThatLacksSomethingAndWhy)
{
    auto failed = whole("/failed");
    failed.failed = 1;
    auto differs = whole("/differs");
    differs.mismatched = 2;
    auto unread = whole("/unread");
    unread.unverified = 3;
    auto unsure = whole("/unsure");
    unsure.durability = Durability::NotKnown;
    unsure.reason = "not known to be on disk: pulled";
    EXPECT_EQ(headlineOf(runTo({failed, differs, unread, unsure})),
              "No destination holds every file; /failed: 1 failed; /differs: 2 differ; /unread: 3 could not "
              "be compared; /unsure: not known to be on disk: pulled.");
    EXPECT_EQ(headlineOf(runTo({failed, whole("/good")})),
              "1 of 2 destinations holds every file, verified from the disk; /failed: 1 failed.");
    EXPECT_EQ(headlineOf(runTo({failed})), "The destination does not hold every file; /failed: 1 failed.");
}

TEST(Headline, NamesDisksThatTookNoPartAndCountsWhatWasLeftOut)
{
    auto summary = runTo({whole("/a")});
    summary.disks = {{"Slot-B", "COPY1", {}, DiskOutcome::Erased, {}},
                     {"Slot-C", "COPY2", {}, DiskOutcome::EraseFailed, "Error: busy"},
                     {"Slot-D", "COPY3", {}, DiskOutcome::LeftOut, "the selection does not fit"}};
    summary.leftOut = 1;
    EXPECT_EQ(headlineOf(summary),
              "The destination holds every file, verified from the disk; Slot-C (COPY2) could "
              "not be erased: Error: busy; Slot-D (COPY3) took no part: the selection does not "
              "fit; 1 item was left out by rule.");
    summary.leftOut = 2;
    EXPECT_NE(headlineOf(summary).find("; 2 items were left out by rule."), std::string::npos);
    EXPECT_EQ(headlineOf(runTo({})), "Nothing was copied: no destination.");
}

TEST(ReportTable, HasARowForEachDestinationAndEachDiskThatTookNoPart)
{
    auto destination = whole("/a");
    destination.bytes = 4'096;
    destination.secondsWriting = 1.5;
    destination.secondsSyncing = 0.5;
    auto summary = runTo({destination, whole("/b")});
    summary.disks = {{"Slot-B", "COPY1", {}, DiskOutcome::Erased, {}},
                     {"Slot-C", "COPY2", {}, DiskOutcome::Refused, "it is the start-up disk"}};
    const auto table = reportTable(summary);
    ASSERT_EQ(table.rows.size(), 3U);
    EXPECT_EQ(table.rows[0], (ReportTable::Row{"/a", "3", "0", "3", "0", "4.00 KB", "2.00 KB/s", ""}));
    EXPECT_EQ(table.rows[1][6], "-") << "without a time there is no rate";
    EXPECT_EQ(table.rows[2], (ReportTable::Row{"Slot-C (COPY2)", "-", "-", "-", "-", "-", "-",
                                               "took no part: it is the start-up disk"}));
}

TEST(RunSummary, IsAllDoneOnlyWhenNothingAtAllIsMissing)
{
    EXPECT_TRUE(isAllDone(runTo({whole("/a")})));
    auto noted = runTo({whole("/a")});
    noted.note = "no destination";
    EXPECT_FALSE(isAllDone(noted));
    for (const auto outcome :
         {DiskOutcome::Erased, DiskOutcome::LeftOut, DiskOutcome::EraseFailed, DiskOutcome::Refused}) {
        auto summary = runTo({whole("/a")});
        summary.disks = {{"Slot-B", "COPY1", {}, outcome, {}}};
        const bool isFine = outcome == DiskOutcome::Erased || outcome == DiskOutcome::LeftOut;
        EXPECT_EQ(isAllDone(summary), isFine);
    }
    for (const auto count :
         {&DestinationSummary::failed, &DestinationSummary::mismatched, &DestinationSummary::unverified}) {
        auto destination = whole("/a");
        destination.*count = 1;
        EXPECT_FALSE(isAllDone(runTo({destination})));
    }
    auto unsure = whole("/a");
    unsure.durability = Durability::NotKnown;
    EXPECT_FALSE(isAllDone(runTo({unsure})));
}

TEST(RunReport, DestinationWithoutADiskIsSaidToBeInMemory)
{
    const test::StoppedClock clock;
    RunReport report({}, {}, clock);
    report.begin("/source", {"/a", "/b", "/c"}, false);
    report.inMemory(0);
    report.onDisk(1);
    const auto list = destinationsJson(report.summary());
    EXPECT_EQ(list[0]["onDisk"], "memory");
    EXPECT_EQ(list[1]["onDisk"], true);
    EXPECT_EQ(list[2]["onDisk"], false);
    EXPECT_EQ(list[2]["reason"], "not known to be on disk: the run ended before the final sync");
}

TEST(RunReport, SlowestOfSeveralDestinationsIsTheOneThatTookLongest)
{
    const test::StoppedClock clock;
    RunReport report({}, {}, clock);
    report.begin("/source", {"/a", "/b", "/c"}, false);
    report.destination(0).addWriteTime(std::chrono::seconds(2));
    report.destination(1).addWriteTime(std::chrono::seconds(1));
    report.destination(1).syncNanoseconds = 2'000'000'000;
    const auto all = report.summary().destinations;
    EXPECT_FALSE(all[0].isSlowest);
    EXPECT_TRUE(all[1].isSlowest);
    EXPECT_FALSE(all[2].isSlowest);
    RunReport single({}, {}, clock);
    single.begin("/source", {"/a"}, false);
    EXPECT_FALSE(single.summary().destinations[0].isSlowest);
}

TEST(RunReport, CopiesReadFromMemoryOnceAreNotCalledReadFromTheDisk)
{
    const test::StoppedClock clock;
    RunReport report({}, {}, clock);
    report.begin("/source", {"/a"}, true);
    EXPECT_EQ(report.summary().destinations[0].verifiedFrom, VerifiedFrom::None);
    report.verifiedFrom(0, VerifiedFrom::Disk);
    EXPECT_EQ(report.summary().destinations[0].verifiedFrom, VerifiedFrom::Disk);
    report.verifiedFrom(0, VerifiedFrom::Cache);
    report.verifiedFrom(0, VerifiedFrom::Disk);
    EXPECT_EQ(report.summary().destinations[0].verifiedFrom, VerifiedFrom::Cache);
}

TEST(ReportJson, MismatchTellsItsBlocksAndAnyOtherProblemItsReason)
{
    EXPECT_EQ(problemJson({ProblemKind::Mismatched, "/s/x", "/d", {}, 512, 2}).dump(),
              R"({"kind":"mismatched","file":"/s/x","destination":"/d","firstOffset":512,"blocks":2})");
    EXPECT_EQ(problemJson({ProblemKind::KeptTail, "/s/x", "/d", "why"}).dump(),
              R"({"kind":"keptTail","file":"/s/x","destination":"/d","reason":"why"})");
}

} // namespace orvana
