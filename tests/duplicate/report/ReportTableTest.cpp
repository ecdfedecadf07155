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
    auto folder = whole("/a");
    folder.bytes = 4'096;
    folder.secondsWriting = 1.5;
    folder.secondsSyncing = 0.5;
    auto disk = whole("/Volumes/COPY1");
    disk.disk = {"Slot-B", "COPY1", "Copy HD", "B-2002", 1'000};
    disk.verified = 0;
    auto summary = runTo({folder, disk});
    summary.disks = {
        {"Slot-B", "COPY1", {}, DiskOutcome::Erased, {}},
        {"Slot-C", "COPY2", {}, DiskOutcome::Refused, "it is the start-up disk"},
        {"Slot-D", "COPY3", {"D-4", "HD", "/dev/disk5", "COPY3"}, DiskOutcome::EraseFailed, "busy"}};
    const auto table = reportTable(summary, {});
    ASSERT_EQ(table.rows.size(), 4U);
    EXPECT_EQ(table.rows[0], (ReportTable::Row{"\u2713 verified", "-", "/a", "-", "-", "3", "4.00 KB",
                                               "2.00 KB/s", "the disk"}));
    EXPECT_EQ(table.rows[1], (ReportTable::Row{"\u2713 complete", "Slot-B", "COPY1", "Copy HD", "B-2002", "3",
                                               "0.00 Bytes", "-", "-"}))
        << "without a time there is no rate";
    EXPECT_EQ(table.rows[2],
              (ReportTable::Row{"\u2013 no part", "Slot-C", "COPY2", "-", "-", "-", "-", "-", "-"}));
    EXPECT_EQ(table.rows[3],
              (ReportTable::Row{"\u2717 not erased", "Slot-D", "COPY3", "HD", "D-4", "-", "-", "-", "-"}));
    EXPECT_EQ(table.lines,
              (std::vector<std::string>{"Slot-C (COPY2)", "    took no part: it is the start-up disk", "",
                                        "Slot-D (COPY3)", "    could not be erased: busy"}));
}

TEST(ReportTable, ProblemsStandBelowTheNameOfTheirDisk)
{
    auto disk = whole("/Volumes/COPY1");
    disk.disk = {"Slot-B", "COPY1", "Copy HD", "B-2002", 1'000};
    disk.failed = 2;
    auto unsure = whole("/b");
    unsure.durability = Durability::NotKnown;
    unsure.notKnownToBeOnDisk = 3;
    unsure.reason = "not known to be on disk: pulled";
    auto summary = runTo({disk, unsure});
    summary.source = "/source";
    const auto table = reportTable(
        summary, {{"/Volumes/COPY1", ProblemKind::Failed, "full", 2, {"/source/a", "/source/b"}}});
    EXPECT_EQ(table.lines,
              (std::vector<std::string>{"Slot-B (COPY1)", "    2 failed: full", "        a", "        b", "",
                                        "/b", "    3 not known to be on disk: pulled"}));
    const auto text = textOf(table);
    EXPECT_TRUE(text.starts_with("No destination holds every file;")) << text;
    EXPECT_NE(text.find("\u2717 not complete\tSlot-B\tCOPY1\tCopy HD\tB-2002"), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with("/b\n    3 not known to be on disk: pulled\n")) << text;
}

} // namespace orvana
