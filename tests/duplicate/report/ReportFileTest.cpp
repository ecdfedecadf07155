#include "duplicate/report/ReportFile.h"

#include "support/TemporaryTree.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana
{

TEST(ReportFile, SummaryIsWrittenWithItsProblemsAndWhatWasLeftOut)
{
    const test::TemporaryTree tree;
    ReportFile problems(tree.root());
    ReportFile leftOut(tree.root());
    problems.addProblem({{"file", "/a"}});
    problems.addProblem({{"file", "/b"}});
    leftOut.addProblem({{"file", "/c"}});
    EXPECT_TRUE(test::treeOf(tree.root()).empty()) << "a run that is killed leaves no half report";
    const auto path = problems.write({{"version", 2}}, leftOut, "stamp");
    EXPECT_EQ(path, tree.path("stamp-Report.json"));
    const auto json = Json::parse(test::contentOf(path));
    EXPECT_EQ(json["version"], 2);
    EXPECT_EQ(json["problems"].size(), 2U);
    EXPECT_EQ(json["problems"][1]["file"], "/b");
    ASSERT_EQ(json["leftOutItems"].size(), 1U);
    EXPECT_EQ(json["leftOutItems"][0]["file"], "/c");
    EXPECT_FALSE(problems.hasLostProblems());
}

TEST(ReportFile, ReplacedReportKeepsItsNameAndItsProblems)
{
    const test::TemporaryTree tree;
    ReportFile problems(tree.root());
    ReportFile leftOut(tree.root());
    problems.addProblem({{"file", "/a"}});
    leftOut.addProblem({{"file", "/c"}});
    const auto path = problems.write({{"version", 2}}, leftOut, "stamp");
    problems.replace({{"version", 2}, {"more", true}}, leftOut, path);
    const auto json = Json::parse(test::contentOf(path));
    EXPECT_EQ(json["more"], true);
    EXPECT_EQ(json["problems"].size(), 1U);
    EXPECT_EQ(json["leftOutItems"].size(), 1U);
    EXPECT_EQ(test::treeOf(tree.root()), (std::vector<std::string>{"stamp-Report.json"}));
}

TEST(ReportFile, TakenNameGetsTheNextNumberFromTheOneGiven)
{
    const test::TemporaryTree tree;
    ReportFile none(tree.root());
    EXPECT_EQ(ReportFile(tree.root()).write({{"version", 2}}, none, "stamp"), tree.path("stamp-Report.json"));
    EXPECT_EQ(ReportFile(tree.root()).write({{"version", 2}}, none, "stamp"),
              tree.path("stamp-Report-2.json"));
    EXPECT_EQ(ReportFile(tree.root()).write({{"version", 2}}, none, "stamp", 7),
              tree.path("stamp-Report-7.json"));
}

TEST(ReportFile, FolderThatIsMissingLosesTheReport)
{
    const test::TemporaryTree tree;
    ReportFile problems(tree.path("nowhere"));
    ReportFile none(tree.path("nowhere"));
    problems.addProblem({{"file", "/a"}});
    EXPECT_EQ(problems.write({{"version", 2}}, none, "stamp"), "");
}

TEST(ReportFile, WithoutAFolderNothingIsKeptAndNothingIsMissed)
{
    ReportFile problems("");
    ReportFile none("");
    problems.addProblem({{"file", "/a"}});
    EXPECT_FALSE(problems.hasLostProblems());
    EXPECT_EQ(problems.write({{"version", 2}}, none, "stamp"), "");
}

} // namespace orvana
