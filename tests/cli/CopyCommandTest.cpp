#include "cli/CopyCommand.h"
#include "cli/Terminal.h"
#include "foundation/PathJson.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <unistd.h>

namespace orvana::cli
{

class CopyCommand : public testing::Test
{
protected:
    CopyCommand()
    {
        m_tree.file("source/docs/one.txt", "first");
        m_tree.file("source/docs/two.txt", "second");
        for (const char *name : {"a", "b", "logs"})
            m_tree.folder(name);
        m_options.sources = {m_tree.path("source/docs")};
        m_options.destinations = {m_tree.path("a"), m_tree.path("b")};
        m_options.logFolder = m_tree.path("logs");
    }

    ExitStatus run()
    {
        std::FILE *out = std::tmpfile();
        std::FILE *err = std::tmpfile();
        Terminal terminal(out, err, false);
        const auto status = runCopy(m_host, terminal, m_options);
        m_out = textOf(out);
        m_err = textOf(err);
        return status;
    }

    std::vector<Json> events() const
    {
        std::vector<Json> events;
        std::istringstream lines(m_out);
        for (std::string line; std::getline(lines, line);)
            events.push_back(Json::parse(line));
        return events;
    }

    std::string fileEndingWith(const std::string &end) const
    {
        for (const auto &name : test::treeOf(m_tree.path("logs"))) {
            if (name.ends_with(end))
                return m_tree.read("logs/" + name);
        }
        return {};
    }

    test::TemporaryTree m_tree;
    test::TestHost m_host{m_tree.path("home")};
    CopyOptions m_options;
    std::string m_out;
    std::string m_err;

private:
    static std::string textOf(std::FILE *file)
    {
        std::string text(static_cast<std::size_t>(std::ftell(file)), '\0');
        std::rewind(file);
        text.resize(std::fread(text.data(), 1, text.size(), file));
        std::fclose(file);
        return text;
    }
};

TEST_F(CopyCommand, CopiesVerifiesLogsAndReports)
{
    m_options.verify = true;
    EXPECT_EQ(run(), AllDone) << m_err;
    EXPECT_EQ(m_tree.read("a/docs/one.txt"), "first");
    EXPECT_EQ(m_tree.read("b/docs/two.txt"), "second");
    const auto log = fileEndingWith("-Log.txt");
    std::vector<std::string> records;
    std::istringstream lines(log);
    for (std::string line; std::getline(lines, line);)
        records.push_back(line.size() > 23 ? line.substr(23) : line);
    ASSERT_EQ(records.size(), 9U) << log;
    EXPECT_EQ(records[3], "Start Duplicating Files from " + m_tree.path("source") + " to " +
                              m_tree.path("a") + " " + m_tree.path("b"));
    EXPECT_EQ(records[5], "Verifying File ... Succeeded");
    EXPECT_EQ(records[8], "Finish !!!");
    const auto report = Json::parse(fileEndingWith("-Report.json"));
    EXPECT_EQ(report["destinations"][1]["verified"], 2);
    EXPECT_NE(m_out.find("b: 2 copied, 0 failed, 2 verified, 0 differ"), std::string::npos) << m_out;
    EXPECT_EQ(m_err, "");
}

TEST_F(CopyCommand, FailureGivesStatusOneAndNamesEachFileOnStandardError)
{
    m_host.faults().volume(m_tree.path("a")).readOnly = true;
    EXPECT_EQ(run(), SomethingFailed);
    EXPECT_NE(m_err.find("failed: " + m_tree.path("source/docs/one.txt") + " -> " + m_tree.path("a") +
                         ": Read-only file system"),
              std::string::npos)
        << m_err;
    EXPECT_EQ(m_tree.read("b/docs/one.txt"), "first");
    EXPECT_NE(fileEndingWith("-Log.txt").find("Finish !!!"), std::string::npos);
}

TEST_F(CopyCommand, RunThatWasBrokenOffGoesOn)
{
    m_host.faults().volume(m_tree.path("b")).capacity = 5;
    EXPECT_EQ(run(), SomethingFailed);
    m_host.faults().volume(m_tree.path("b")).capacity = -1;
    m_options.settings.resume = true;
    EXPECT_EQ(run(), AllDone) << m_err;
    EXPECT_NE(m_out.find("a: 2 copied, 0 failed, 2 already there"), std::string::npos) << m_out;
    EXPECT_EQ(m_tree.read("b/docs/two.txt"), "second");
    EXPECT_TRUE(test::treeOf(m_tree.path("home/.local/state/orvana-plurimo")).empty());
}

TEST_F(CopyCommand, UpdateCountsWhatIsThere)
{
    EXPECT_EQ(run(), AllDone);
    m_tree.file("b/docs/one.txt", "f1rst and more");
    m_options.settings.manner.update = true;
    EXPECT_EQ(run(), AllDone) << m_err;
    EXPECT_NE(m_out.find("a: 2 copied, 0 failed, 2 already there, 0.00 Bytes"), std::string::npos) << m_out;
    EXPECT_NE(m_out.find("b: 2 copied, 0 failed, 1 already there"), std::string::npos) << m_out;
    EXPECT_EQ(m_tree.read("b/docs/one.txt"), "first");
}

TEST_F(CopyCommand, FolderOfTheJournalsIsNotCopied)
{
    m_tree.file("home/letter", "letter");
    m_options.sources = {m_tree.path("home")};
    EXPECT_EQ(run(), AllDone) << m_err;
    EXPECT_EQ(m_tree.read("a/home/letter"), "letter");
    EXPECT_FALSE(test::pathExists(m_tree.path("a/home/.local/state/orvana-plurimo")));
    EXPECT_NE(m_out.find("1 item was left out by rule"), std::string::npos) << m_out;
}

TEST_F(CopyCommand, DestinationThatIsNotKnownToBeOnDiskIsNamedOnStandardError)
{
    m_host.faults().volume(m_tree.path("a")).syncError = true;
    EXPECT_EQ(run(), SomethingFailed);
    EXPECT_NE(m_err.find(m_tree.path("a") + ": not known to be on disk: Input/output error"),
              std::string::npos)
        << m_err;
}

TEST_F(CopyCommand, CountingIsNotLedAstrayByLinksThatTheRunLeavesOut)
{
    m_tree.link("source/docs/sub/everything", "/");
    m_tree.link("source/docs/sub/up", "../..");
    m_options.json = true;
    EXPECT_EQ(run(), AllDone);
    EXPECT_EQ(events().front()["files"], 2);
}

TEST_F(CopyCommand, RefusalWritesNothing)
{
    m_options.destinations.push_back(m_tree.path("nowhere"));
    EXPECT_EQ(run(), NotThere);
    EXPECT_EQ(m_err, "plurimoctl: " + m_tree.path("nowhere") + ": no such folder\n");
    EXPECT_TRUE(test::treeOf(m_tree.path("a")).empty());
    EXPECT_TRUE(test::treeOf(m_tree.path("logs")).empty());
}

TEST_F(CopyCommand, JsonIsOneObjectALineFromStartToEnd)
{
    m_options.json = true;
    m_options.verify = true;
    m_host.faults().volume(m_tree.path("b")).capacity = 5;
    EXPECT_EQ(run(), SomethingFailed);
    const auto all = events();
    EXPECT_EQ(all.front()["event"], "start");
    EXPECT_EQ(all.front()["files"], 2);
    EXPECT_EQ(all.front()["bytes"], 11);
    EXPECT_EQ(all.back()["event"], "end");
    EXPECT_EQ(all.back()["status"], 1);
    EXPECT_EQ(all.back()["destinations"][1]["failed"], 1);
    const auto problem =
        std::find_if(all.begin(), all.end(), [](const Json &e) { return e["event"] == "problem"; });
    ASSERT_NE(problem, all.end());
    EXPECT_EQ((*problem)["reason"], "No space left on device");
}

TEST_F(CopyCommand, JsonCarriesTheBytesOfPathsThatAreNotText)
{
    m_tree.file("source/docs/odd\xFF");
    m_tree.folder("a/docs/odd\xFF");
    m_options.json = true;
    EXPECT_EQ(run(), SomethingFailed);
    EXPECT_NE(m_out.find("\"fileBytes\":"), std::string::npos);
    for (const auto &event : events())
        EXPECT_FALSE(event.is_null());
}

TEST_F(CopyCommand, LostLogIsSaidOnceAndTheCopyIsMade)
{
    m_options.logFolder = m_tree.path("nowhere");
    EXPECT_EQ(run(), SomethingFailed) << "what happened is not written down";
    EXPECT_NE(m_err.find("the run log could not be written to"), std::string::npos);
    EXPECT_EQ(m_err.find("run log"), m_err.rfind("run log"));
    EXPECT_EQ(m_tree.read("a/docs/one.txt"), "first");
}

TEST_F(CopyCommand, LogGoesToDocumentsUnlessToldOtherwise)
{
    m_tree.folder("home/Documents");
    m_options.logFolder.reset();
    EXPECT_EQ(run(), AllDone);
    EXPECT_EQ(test::treeOf(m_tree.path("home/Documents")).size(), 2U);
}

TEST_F(CopyCommand, DestinationWithTooLittleSpaceIsToldBeforehand)
{
    m_tree.file("source/docs/sparse", "");
    ASSERT_EQ(::truncate(m_tree.path("source/docs/sparse").c_str(), off_t{1} << 43), 0);
    m_options.sources = {m_tree.path("source/docs")};
    m_host.faults().volume(m_tree.path("a")).capacity = 0;
    m_host.faults().volume(m_tree.path("b")).capacity = 0;
    m_host.faults().volume(m_tree.path("source")).readErrorAfter = 0;
    EXPECT_EQ(run(), SomethingFailed);
    EXPECT_NE(m_err.find("what does not fit will fail"), std::string::npos);
}

} // namespace orvana::cli
