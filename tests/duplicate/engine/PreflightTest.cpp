// Looking, before the first write, at what a destination cannot hold.

#include "duplicate/engine/EngineFixture.h"
#include "duplicate/engine/NameRules.h"

namespace orvana
{

using platform::VolumeFamily;

TEST(NameRulesTest, NamesThatFatTakesNotAreFound)
{
    for (const auto family : {VolumeFamily::Fat, VolumeFamily::ExFat}) {
        for (const auto *name : {"a:b", "what?", "a*", "\"a\"", "a<b", "a>b", "a|b", "a\\b", "new\nline",
                                 "end.", "\xff", "not\xc3"})
            EXPECT_TRUE(faultOfName(name, family)) << name;
        for (const auto *name : {"plain", "\xc3\xa4", "dot.in", " blank first", "(+;=,)", "\xf0\x9f\x8e\xac"})
            EXPECT_FALSE(faultOfName(name, family)) << name;
    }
    EXPECT_TRUE(faultOfName("blank ", VolumeFamily::Fat));
    EXPECT_FALSE(faultOfName("blank ", VolumeFamily::ExFat));
}

TEST(NameRulesTest, LengthIsCountedAsTheVolumeCounts)
{
    std::string wide;
    for (int i = 0; i < 200; ++i)
        wide += "\xe3\x81\x82"; // three bytes, one unit
    EXPECT_TRUE(faultOfName(wide, VolumeFamily::Unix));
    EXPECT_FALSE(faultOfName(wide, VolumeFamily::ExFat));
    std::string pairs;
    for (int i = 0; i < 128; ++i)
        pairs += "\xf0\x9f\x8e\xac"; // four bytes, two units
    EXPECT_TRUE(faultOfName(pairs, VolumeFamily::ExFat));
    EXPECT_FALSE(faultOfName(std::string(255, 'x'), VolumeFamily::Unix));
    EXPECT_TRUE(faultOfName(std::string(256, 'x'), VolumeFamily::Fat));
}

TEST(NameRulesTest, OtherVolumesTakeEverything)
{
    for (const auto *name : {"a:b", "end.", "\xff", "new\nline"})
        EXPECT_FALSE(faultOfName(name, VolumeFamily::Unix)) << name;
    EXPECT_FALSE(faultOfName(std::string(700, 'x'), VolumeFamily::Unknown)) << "its rules are not known";
}

TEST(NameRulesTest, NamesThatDifferInCaseAreOneOnSomeVolumes)
{
    for (const auto family : {VolumeFamily::Fat, VolumeFamily::ExFat, VolumeFamily::HfsPlus}) {
        EXPECT_EQ(keyOfName("Clip.MOV", family), keyOfName("clip.mov", family));
        EXPECT_EQ(keyOfName("\xc3\x84", family), keyOfName("\xc3\xa4", family));
        EXPECT_NE(keyOfName("a", family), keyOfName("b", family));
    }
    EXPECT_NE(keyOfName("Clip.MOV", VolumeFamily::Unix), keyOfName("clip.mov", VolumeFamily::Unix));
}

TEST(NameRulesTest, OnlyFatHasALargestFile)
{
    EXPECT_EQ(largestFileOf(VolumeFamily::Fat), 4294967295U);
    EXPECT_FALSE(largestFileOf(VolumeFamily::ExFat));
    EXPECT_FALSE(largestFileOf(VolumeFamily::Unix));
}

class PreflightTest : public test::EngineTest
{
protected:
    void run(PreflightAction action, const std::vector<std::string> &items = {""},
             const std::vector<std::string> &destinations = {"a", "b"},
             platform::Keep keep = platform::Keep::Nothing)
    {
        for (const auto &name : destinations)
            m_tree.folder(name);
        setJob(items, destinations, 1);
        useReport();
        m_engine.setManner({.keep = keep, .preflight = action});
        m_engine.StartBackup();
    }

    Json destination(std::size_t index) const { return report()["destinations"][index]; }

    std::size_t problemsOf(const std::string &kind) const
    {
        std::size_t count = 0;
        const auto whole = report();
        for (const auto &problem : whole["problems"])
            count += problem["kind"] == kind ? 1U : 0U;
        return count;
    }

    bool isEmpty(const std::string &name) const { return std::filesystem::is_empty(m_tree.path(name)); }
};

TEST_F(PreflightTest, NothingIsLookedAtWithoutTheOption)
{
    m_tree.file("source/what?", "x");
    faultsOf("b").family = VolumeFamily::Fat;
    run(PreflightAction::Off);
    EXPECT_FALSE(destination(1).contains("cannotHold"));
    EXPECT_EQ(destination(1)["copied"], 1);
}

TEST_F(PreflightTest, RunThatIsToGoOnTellsAndCopies)
{
    m_tree.file("source/folder/what?", "x");
    m_tree.file("source/folder/Clip", "1");
    m_tree.file("source/folder/clip", "2");
    m_tree.file("source/other/clip", "3");
    faultsOf("b").family = VolumeFamily::ExFat;
    run(PreflightAction::GoOn);
    EXPECT_FALSE(destination(0).contains("cannotHold"));
    EXPECT_EQ(destination(1)["cannotHold"], 2);
    EXPECT_EQ(problemsOf("cannotHold"), 2U);
    EXPECT_EQ(destination(1)["copied"], 4) << "the test's volume takes the names all the same";
}

TEST_F(PreflightTest, DestinationThatIsLeftOutGetsNothing)
{
    m_tree.file("source/what?", "x");
    m_tree.file("source/fine", "x");
    faultsOf("b").family = VolumeFamily::Fat;
    run(PreflightAction::LeaveOut);
    EXPECT_EQ(destination(0)["copied"], 2);
    EXPECT_NE(destination(0)["onDisk"], false);
    EXPECT_TRUE(isEmpty("b"));
    EXPECT_EQ(destination(1)["copied"], 0);
    EXPECT_EQ(destination(1)["failed"], 0) << "its files were not tried";
    EXPECT_EQ(destination(1)["onDisk"], false);
    EXPECT_EQ(destination(1)["reason"], "not known to be on disk: The volume cannot hold the selection");
}

TEST_F(PreflightTest, RunThatIsToStopCopiesNothing)
{
    m_tree.file("source/what?", "x");
    m_tree.file("source/fine", "x");
    faultsOf("b").family = VolumeFamily::Fat;
    run(PreflightAction::Stop);
    EXPECT_TRUE(isEmpty("a"));
    EXPECT_TRUE(isEmpty("b"));
    EXPECT_EQ(report()["filesStarted"], 0);
    EXPECT_FALSE(isAllDone(m_report->summary()));
    EXPECT_NE(destination(0)["reason"].get<std::string>().find("another volume"), std::string::npos);
}

TEST_F(PreflightTest, RunThatIsToStopGoesOnWhenAllFits)
{
    m_tree.file("source/folder/fine", "x");
    faultsOf("b").family = VolumeFamily::Fat;
    run(PreflightAction::Stop);
    EXPECT_EQ(destination(0)["copied"], 1);
    EXPECT_EQ(destination(1)["copied"], 1);
    EXPECT_TRUE(isAllDone(m_report->summary()));
}

TEST_F(PreflightTest, FileThatIsTooLargeForFatIsFound)
{
    m_tree.file("source/large", "");
    ASSERT_EQ(::truncate(source("large").c_str(), 4294967296), 0);
    faultsOf("b").family = VolumeFamily::Fat;
    faultsOf("a").freeBytes = 1 << 20;
    run(PreflightAction::LeaveOut, {"large"});
    EXPECT_TRUE(isEmpty("a")) << "it has no room";
    EXPECT_TRUE(isEmpty("b"));
    EXPECT_GE(destination(1)["cannotHold"], 1);
    EXPECT_EQ(destination(0)["cannotHold"], 1);
}

TEST_F(PreflightTest, SpaceIsCountedInBlocksAndWithoutWhatIsThere)
{
    const std::string content(100'000, 'x');
    for (const auto *name : {"one", "two", "three"})
        m_tree.file("source/" + std::string(name), content);
    m_tree.file("a/one", content);
    m_tree.file("a/two", content);
    faultsOf("a").freeBytes = 120'000;
    faultsOf("b").freeBytes = 120'000;
    run(PreflightAction::LeaveOut);
    EXPECT_EQ(destination(0)["copied"], 3) << "only the third needs more space";
    EXPECT_TRUE(isEmpty("b"));
}

TEST_F(PreflightTest, HolesThatAreKeptNeedNoSpace)
{
    m_tree.file("source/sparse", "");
    ASSERT_EQ(::truncate(source("sparse").c_str(), 10'000'000), 0);
    faultsOf("a").freeBytes = 100'000;
    run(PreflightAction::LeaveOut, {""}, {"a"});
    EXPECT_TRUE(isEmpty("a"));
    run(PreflightAction::LeaveOut, {""}, {"a"}, platform::Keep::All);
    EXPECT_EQ(destination(0)["copied"], 1);
}

TEST_F(PreflightTest, JournalOfAnEarlierRunStaysWhenNothingIsWritten)
{
    m_tree.file("source/what?", "x");
    m_tree.folder("b");
    faultsOf("b").family = VolumeFamily::Fat;
    m_engine.setJournal(
        JournalOrder{m_tree.path("state"), {source(), {}, {}}, {{m_tree.path("b"), {}, {}}}, {}, false});
    run(PreflightAction::LeaveOut, {""}, {"b"});
    EXPECT_FALSE(std::filesystem::exists(m_tree.path("state")) &&
                 !std::filesystem::is_empty(m_tree.path("state")));
}

} // namespace orvana
