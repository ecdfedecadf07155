#include "log/LogData.h"

#include "support/StoppedClock.h"
#include "support/TemporaryTree.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace orvana
{

class LogDataTest : public testing::Test
{
protected:
    test::TemporaryTree m_home;
    test::StoppedClock m_clock;
    LogData m_log{m_home.folder("Documents"), m_clock};
};

TEST_F(LogDataTest, FieldsAreEmptyUntilTheLogIsNamed)
{
    EXPECT_EQ(m_log.logFile(), "");
    EXPECT_EQ(m_log.logFilePath(), "");
}

TEST_F(LogDataTest, LogIsNamedAfterTheSecondAndNotCreated)
{
    m_log.initLogFile();
    EXPECT_EQ(m_log.logFile(), "20261121-102030-Log.txt");
    EXPECT_EQ(m_log.logFilePath(), m_home.path("Documents/20261121-102030-Log.txt"));
    EXPECT_FALSE(m_home.exists("Documents/20261121-102030-Log.txt"));
}

TEST_F(LogDataTest, FirstRecordOfARunCreatesTheFileWithTwoEmptyLines)
{
    m_log.initLogFile();
    m_clock.pass(std::chrono::seconds(5));
    m_log.updataLogFileName();
    m_log.ToLogFile("\n\n");
    EXPECT_EQ(m_home.read("Documents/20261121-102035-Log.txt"), "[2026/11/21 10:20:35]: \n\n\n");
    EXPECT_EQ(test::treeOf(m_home.root()).size(), 2U) << "nothing was logged under the first name";
}

TEST_F(LogDataTest, EmptyMessageIsStampColonBlankNewline)
{
    m_log.initLogFile();
    m_log.ToLogFile("");
    EXPECT_EQ(m_home.read("Documents/20261121-102030-Log.txt"), "[2026/11/21 10:20:30]: \n");
}

TEST_F(LogDataTest, ExistingFileIsAppendedTo)
{
    m_home.file("Documents/20261121-102030-Log.txt", "older\n");
    m_log.initLogFile();
    m_log.ToLogFile("Finish !!!");
    EXPECT_EQ(m_home.read("Documents/20261121-102030-Log.txt"), "older\n[2026/11/21 10:20:30]: Finish !!!\n");
}

TEST_F(LogDataTest, FileThatWasRemovedMeanwhileIsMadeAgain)
{
    m_log.initLogFile();
    m_log.ToLogFile("one");
    ::unlink(m_log.logFilePath().c_str());
    m_log.ToLogFile("two");
    EXPECT_EQ(m_home.read("Documents/20261121-102030-Log.txt"), "[2026/11/21 10:20:30]: two\n");
}

TEST_F(LogDataTest, WithoutAFolderTheRecordIsLostAndNothingElse)
{
    LogData log(m_home.path("nowhere"), m_clock);
    log.initLogFile();
    EXPECT_FALSE(log.hasLostRecords());
    log.ToLogFile("lost");
    EXPECT_TRUE(log.hasLostRecords());
    EXPECT_FALSE(m_home.exists("nowhere"));
}

TEST_F(LogDataTest, RecordsOfSeveralThreadsStayWhole)
{
    m_log.initLogFile();
    {
        std::vector<std::jthread> threads;
        for (int t = 0; t < 4; ++t)
            threads.emplace_back([&, t] {
                for (int i = 0; i < 50; ++i)
                    m_log.ToLogFile("thread " + std::to_string(t) + " " + std::string(200, 'x'));
            });
    }
    std::istringstream lines(m_home.read("Documents/20261121-102030-Log.txt"));
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count)
        EXPECT_EQ(line.size(), std::string("[2026/11/21 10:20:30]: thread 0 ").size() + 200);
    EXPECT_EQ(count, 200);
}

TEST(LogDataFolder, IsDocumentsInTheHome)
{
    EXPECT_EQ(LogData::documentsFolder("/home/anna"), "/home/anna/Documents");
}

TEST_F(LogDataTest, LogThatAnotherProcessHoldsGetsANumberAtItsEnd)
{
    m_log.initLogFile();
    m_log.ToLogFile("mine");
    const pid_t child = ::fork();
    if (child == 0) {
        LogData other(m_home.path("Documents"), m_clock);
        other.initLogFile();
        other.ToLogFile("theirs");
        ::_exit(other.number());
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 2);
    EXPECT_EQ(m_home.read("Documents/20261121-102030-Log.txt"), "[2026/11/21 10:20:30]: mine\n");
    EXPECT_EQ(m_home.read("Documents/20261121-102030-Log.txt-2"), "[2026/11/21 10:20:30]: theirs\n");
}

TEST_F(LogDataTest, RunsOfOneProgramInOneSecondShareTheirLog)
{
    m_log.initLogFile();
    m_log.ToLogFile("first");
    m_log.updataLogFileName();
    m_log.ToLogFile("second");
    EXPECT_EQ(m_log.logFile(), "20261121-102030-Log.txt");
    EXPECT_NE(m_home.read("Documents/20261121-102030-Log.txt").find("second"), std::string::npos);
}

TEST_F(LogDataTest, LinkInThePlaceOfTheLogIsNotWrittenThrough)
{
    m_log.initLogFile();
    m_home.file("precious", "mine");
    m_home.link("Documents/20261121-102030-Log.txt", m_home.path("precious"));
    m_log.ToLogFile("text");
    EXPECT_EQ(m_home.read("precious"), "mine");
    EXPECT_TRUE(m_log.hasLostRecords());
}

} // namespace orvana
