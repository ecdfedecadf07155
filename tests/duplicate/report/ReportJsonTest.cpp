#include "duplicate/report/ReportJson.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana
{

TEST(ReportJson, NoteIsWrittenOnlyWhenThereIsOne)
{
    RunSummary summary;
    EXPECT_FALSE(reportJson(summary).contains("note"));
    summary.note = "no destination";
    summary.outcome = RunOutcome::Cancelled;
    const auto json = reportJson(summary);
    EXPECT_EQ(json["note"], "no destination");
    EXPECT_EQ(json["outcome"], "cancelled");
    EXPECT_EQ(json["version"], 2);
}

TEST(ReportJson, DurabilityIsTrueFalseOrMemoryAndAReasonStandsOnlyBesideFalse)
{
    RunSummary summary;
    summary.destinations.resize(3);
    summary.destinations[0].durability = Durability::OnDisk;
    summary.destinations[1].durability = Durability::Memory;
    summary.destinations[2].notKnownToBeOnDisk = 4;
    summary.destinations[2].reason = "the sync failed";
    const auto list = destinationsJson(summary);
    EXPECT_EQ(list[0]["onDisk"], true);
    EXPECT_EQ(list[1]["onDisk"], "memory");
    EXPECT_EQ(list[2]["onDisk"], false);
    EXPECT_FALSE(list[0].contains("reason"));
    EXPECT_EQ(list[2]["notKnownToBeOnDisk"], 4);
    EXPECT_EQ(list[2]["reason"], "the sync failed");
}

TEST(ReportJson, MismatchSaysWhereAndEveryOtherProblemSaysWhy)
{
    const auto mismatch = problemJson({ProblemKind::Mismatched, "/s/a", "/d", {}, 1'048'576, 2});
    EXPECT_EQ(mismatch["kind"], "mismatched");
    EXPECT_EQ(mismatch["firstOffset"], 1'048'576);
    EXPECT_EQ(mismatch["blocks"], 2);
    EXPECT_FALSE(mismatch.contains("reason"));
    EXPECT_EQ(problemJson({ProblemKind::Mismatched, "/s/x", "/d", {}, 512, 2}).dump(),
              R"({"kind":"mismatched","file":"/s/x","destination":"/d","firstOffset":512,"blocks":2})");
    EXPECT_EQ(problemJson({ProblemKind::KeptTail, "/s/x", "/d", "why"}).dump(),
              R"({"kind":"keptTail","file":"/s/x","destination":"/d","reason":"why"})");
    for (const auto &[kind, name] : {std::pair(ProblemKind::Failed, "failed"),
                                     {ProblemKind::KeptTail, "keptTail"},
                                     {ProblemKind::SourceChanged, "sourceChanged"},
                                     {ProblemKind::SameFile, "sameFile"},
                                     {ProblemKind::Unverified, "unverified"}}) {
        const auto json = problemJson({kind, "/s/a", "/d", "why"});
        EXPECT_EQ(json["kind"], name);
        EXPECT_EQ(json["reason"], "why");
    }
    EXPECT_EQ(leftOutJson("/s/x", "rule")["kind"], "leftOut");
}

} // namespace orvana
