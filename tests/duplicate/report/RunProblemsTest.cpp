#include "duplicate/report/RunProblems.h"

#include <gtest/gtest.h>

namespace orvana
{

TEST(RunProblems, AreGroupedByDestinationKindAndReason)
{
    RunProblems problems;
    problems.add({ProblemKind::Failed, "/s/a", "/d", "full"});
    problems.add({ProblemKind::Failed, "/s/a", "/e", "full"});
    problems.add({ProblemKind::Failed, "/s/b", "/d", "full"});
    problems.add({ProblemKind::Failed, "/s/c", "/d", "gone"});
    problems.add({ProblemKind::Mismatched, "/s/d", "/d", ""});
    const auto groups = problems.groups();
    ASSERT_EQ(groups.size(), 4U);
    EXPECT_EQ(groups[0].count, 2);
    EXPECT_EQ(groups[0].files, (std::vector<std::string>{"/s/a", "/s/b"}));
    EXPECT_EQ(groups[1].destination, "/e");
    EXPECT_EQ(groups[2].reason, "gone");
    EXPECT_EQ(groups[3].kind, ProblemKind::Mismatched);
}

TEST(RunProblems, MemoryDoesNotGrowWithTheirNumber)
{
    RunProblems problems;
    for (int i = 0; i < 5'000; ++i)
        problems.add({ProblemKind::KeptTail, std::to_string(i), "/d", std::to_string(i) + " bytes"});
    for (int i = 0; i < 5'000; ++i)
        problems.add({ProblemKind::Failed, std::to_string(i), "/d", "full"});
    const auto groups = problems.groups();
    ASSERT_EQ(groups.size(), RunProblems::MostReasons + 2);
    EXPECT_EQ(groups[RunProblems::MostReasons].count, 4'900);
    EXPECT_EQ(groups[RunProblems::MostReasons].reason, "") << "many reasons";
    EXPECT_EQ(groups.back().count, 5'000);
    for (const auto &group : groups)
        EXPECT_LE(group.files.size(), RunProblems::FilesOfAGroup);
}

TEST(RunProblems, LinesHaveTheFirstPathsBelowTheRootAndTheNumberOfTheOthers)
{
    RunProblems problems;
    for (int i = 0; i < 12; ++i)
        problems.add(
            {ProblemKind::Failed, "/source/folder/" + std::to_string(i), "/d", "No space left on device"});
    const auto lines = linesOf(problems.groups().front(), "/source");
    ASSERT_EQ(lines.size(), 12U);
    EXPECT_EQ(lines.front(), "12 failed: No space left on device");
    EXPECT_EQ(lines[1], "    folder/0");
    EXPECT_EQ(lines.back(), "    and 2 more, which the report file lists");
}

TEST(RunProblems, PathThatIsNotBelowTheRootIsShownWhole)
{
    const ProblemGroup group{"/d", ProblemKind::Mismatched, "", 1, {"/sourcery/a"}};
    EXPECT_EQ(linesOf(group, "/source"), (std::vector<std::string>{"1 differ", "    /sourcery/a"}));
    EXPECT_EQ(linesOf(group, "/").back(), "    sourcery/a");
}

TEST(RunProblems, NoControlCharacterReachesALine)
{
    const ProblemGroup group{"/d", ProblemKind::Failed, "full", 1, {"/s/a\nb"}};
    EXPECT_EQ(linesOf(group, "/s").back().find('\n'), std::string::npos);
}

} // namespace orvana
