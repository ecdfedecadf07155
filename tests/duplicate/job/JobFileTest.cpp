#include "duplicate/job/JobFile.h"

#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana
{

namespace
{

constexpr const char *Whole = R"({"job": 1, "source": {"volume": "1234-ABCD", "name": "Master"},
    "selection": ["Footage", {"path": "a\\xFF", "pathBytes": "Yf8="}], "erase": true, "verify": true,
    "names": {"B": "REEL 7"}, "options": {"ejectAtEnd": true}, "wanted": 40})";

std::string errorOf(std::string_view text)
{
    const auto job = parseJob(text);
    return job ? "" : job.error();
}

} // namespace

TEST(JobFile, HoldsWhatARunNeeds)
{
    const auto job = parseJob(Whole);
    ASSERT_TRUE(job) << job.error();
    EXPECT_EQ(job->volumeId, "1234-ABCD");
    EXPECT_EQ(job->sourceName, "Master");
    EXPECT_EQ(job->selection, (std::vector<std::string>{"Footage", "a\xFF"}));
    EXPECT_TRUE(job->erase && job->verify && job->settings.ejectAtEnd);
    EXPECT_EQ(job->names[Bay::B], "REEL 7");
    EXPECT_EQ(job->names[Bay::C], std::nullopt);
    EXPECT_EQ(job->wanted, 40);
}

TEST(JobFile, IsReadAsItWasWritten)
{
    auto job = parseJob(Whole);
    ASSERT_TRUE(job);
    job->isHome = true;
    job->selection.emplace_back("line\nbreak/\xC3\xA4");
    const auto again = parseJob(textOf(*job));
    ASSERT_TRUE(again) << again.error();
    EXPECT_EQ(*again, *job);
    const auto least = parseJob(R"({"job": 1, "source": {"volume": "x"}})");
    ASSERT_TRUE(least) << least.error();
    EXPECT_EQ(*parseJob(textOf(*least)), *least);
}

TEST(JobFile, UnknownKeyIsRefusedByName)
{
    EXPECT_EQ(errorOf(R"({"job": 1, "source": {"volume": "x"}, "erase ": true})"),
              "/erase : is not a known key");
    EXPECT_EQ(errorOf(R"({"job": 1, "source": {"volume": "x", "uuid": "y"}})"),
              "/source/uuid: is not a known key");
    EXPECT_EQ(errorOf(R"({"job": 1, "source": {"volume": "x"}, "options": {"eject": true}})"),
              "/options/eject: is not a known key");
    EXPECT_EQ(errorOf(R"({"job": 1, "source": {"volume": "x"}, "names": {"E": "y"}})"),
              "/names/E: is not a known key");
}

TEST(JobFile, NeverCarriesConsent)
{
    EXPECT_EQ(errorOf(R"({"job": 1, "source": {"volume": "x"}, "yes": true})"), "/yes: is not a known key");
    EXPECT_EQ(textOf(*parseJob(Whole)).find("yes"), std::string::npos);
}

TEST(JobFile, WrongEntriesAreNamed)
{
    EXPECT_EQ(errorOf("no"), "not JSON");
    EXPECT_EQ(errorOf("[]"), "/: must be an object");
    EXPECT_EQ(errorOf("{}"), "/: needs \"job\"");
    EXPECT_EQ(errorOf(R"({"job": 2})"), "/job: is a version that this program does not know; it knows 1");
    EXPECT_EQ(errorOf(R"({"job": 1})"), "/: needs \"source\"");
    EXPECT_EQ(errorOf(R"({"job": 1, "source": {}})"), "/source: needs \"volume\"");
    EXPECT_EQ(errorOf(R"({"job": 1, "source": {"volume": ""}})"), "/source/volume: must not be empty");
    EXPECT_EQ(errorOf(R"({"job": 1, "source": {"volume": "x"}, "erase": 1})"),
              "/erase: must be true or false");
    EXPECT_EQ(errorOf(R"({"job": 1, "source": {"volume": "x"}, "wanted": 0})"),
              "/wanted: must not be less than 1");
    EXPECT_EQ(errorOf(R"({"job": 1, "source": {"volume": "x"}, "selection": [1]})"),
              "/selection/0: must be an object");
    EXPECT_EQ(
        errorOf(R"({"job": 1, "source": {"volume": "x"}, "selection": [{"path": "a", "pathBytes": "!"}]})"),
        "/selection/0/pathBytes: must be base64");
    EXPECT_EQ(errorOf(std::string(20, '[') + std::string(20, ']')), "is nested too deeply");
}

TEST(JobFile, SelectionNeverLeavesTheSource)
{
    for (const char *path : {"../x", "a/../../x", "/etc", "", ".", "a//b", "a/", ".."})
        EXPECT_TRUE(
            errorOf(std::string(R"({"job": 1, "source": {"volume": "x"}, "selection": [")") + path + "\"]}")
                .starts_with("/selection/0: must be a path below the source"))
            << path;
    EXPECT_EQ(errorOf(R"({"job": 1, "source": {"volume": "x"}, "selection": ["..a/b..", "a.b/.c"]})"), "");
    EXPECT_NE(
        errorOf(
            R"({"job": 1, "source": {"volume": "x"}, "selection": [{"path": "a", "pathBytes": "Li4vYQ=="}]})"),
        "")
        << "the bytes count";
}

TEST(JobFile, FileThatCannotBeReadIsNamed)
{
    const test::TemporaryTree tree;
    EXPECT_EQ(readJob(tree.path("none")).error(), tree.path("none") + ": No such file or directory");
    tree.file("bad", "{");
    EXPECT_EQ(readJob(tree.path("bad")).error(), tree.path("bad") + ": not JSON");
    tree.file("large", std::string(LargestJob + 1, ' '));
    EXPECT_EQ(readJob(tree.path("large")).error(), tree.path("large") + ": has more than 16 MiB");
    tree.file("good", Whole);
    EXPECT_TRUE(readJob(tree.path("good")));
    EXPECT_FALSE(readJob(tree.path(""))) << "a folder";
}

} // namespace orvana
