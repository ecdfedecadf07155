#include "duplicate/run/RunRelay.h"
#include "foundation/NotificationNames.h"
#include "log/LogData.h"
#include "support/StoppedClock.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana
{

using Lines = std::vector<std::string>;

namespace
{

struct DisplayRecorder final : RunDisplay
{
    Lines lines;
    void setProgressMsg(const std::string &message) override { lines.push_back("msg " + message); }
    void setFileProgerss(float percent) override { lines.push_back("file " + std::to_string(percent)); }
    void setTotalProgerss(float fraction) override { lines.push_back("total " + std::to_string(fraction)); }
    void BackupFinish() override { lines.emplace_back("finish"); }
};

Notification message(const std::string &text)
{
    return {notification::FileCopyMessage, std::pair(std::string(notification::key::MessageInfo), text)};
}

} // namespace

class RunRelayTest : public testing::Test
{
protected:
    RunRelayTest() { m_log.initLogFile(); }

    std::string logged() const
    {
        return m_home.exists("20261121-102030-Log.txt") ? test::contentOf(m_log.logFilePath()) : "";
    }
    static std::string record(const std::string &text) { return "[2026/11/21 10:20:30]: " + text + "\n"; }

    test::TemporaryTree m_home;
    test::StoppedClock m_clock;
    LogData m_log{m_home.root(), m_clock};
    DisplayRecorder m_display;
    RunRelay m_relay{m_log, m_display};
};

TEST_F(RunRelayTest, MessageIsShownAndLogged)
{
    m_relay.relay(message("Duplicating /x"));
    EXPECT_EQ(m_display.lines, (Lines{"msg Duplicating /x"}));
    EXPECT_EQ(logged(), record("Duplicating /x"));
}

TEST_F(RunRelayTest, CantDuplicateAnywhereInTheTextIsLoggedAndNotShown)
{
    m_relay.relay(message("Duplicating /Can`t Duplicate/x"));
    EXPECT_TRUE(m_display.lines.empty());
    EXPECT_EQ(logged(), record("Duplicating /Can`t Duplicate/x"));
}

TEST_F(RunRelayTest, VerifyingIsShownAndNotLoggedButItsResultIs)
{
    m_relay.relay(message("Verifying File ..."));
    EXPECT_EQ(m_display.lines, (Lines{"msg Verifying File ..."}));
    EXPECT_EQ(logged(), "");
    m_relay.relay(message("Verifying File ... Failed"));
    EXPECT_EQ(logged(), record("Verifying File ... Failed"));
}

TEST_F(RunRelayTest, ProgressIsReadUnderItsOddKey)
{
    m_relay.relay({notification::TotalProgress, std::pair(std::string("TotalProrgress"), 0.5F)});
    m_relay.relay({notification::FileProgress, std::pair(std::string("FileProgress"), 50.0F)});
    EXPECT_EQ(m_display.lines, (Lines{"total 0.500000", "file 50.000000"}));
    EXPECT_EQ(logged(), "");
}

TEST_F(RunRelayTest, DiskMessageIsShownAndLogged)
{
    m_relay.relay(
        {notification::DiskMessage, std::pair(std::string("DiskMsgInfo"), std::string("Eject /Volumes/A"))});
    EXPECT_EQ(m_display.lines, (Lines{"msg Eject /Volumes/A"}));
    EXPECT_EQ(logged(), record("Eject /Volumes/A"));
}

TEST_F(RunRelayTest, BackupFinishIsPassedOnAndOthersAreIgnored)
{
    m_relay.relay({notification::BackupFinish, std::nullopt});
    m_relay.relay({notification::TBDeviceAttached, std::nullopt});
    EXPECT_EQ(m_display.lines, (Lines{"finish"}));
    EXPECT_EQ(logged(), "");
}

TEST_F(RunRelayTest, RunControlWritesItsFourRecords)
{
    m_relay.runStarts();
    m_relay.jobHandedOver("/Volumes/Source", {"/Volumes/COPY 1", "/Volumes/COPY\n2"});
    m_relay.userCancelled();
    m_relay.runFinished();
    EXPECT_EQ(
        logged(),
        record("\n\n") +
            record("Start Duplicating Files from /Volumes/Source to /Volumes/COPY 1 /Volumes/COPY\\x0A2") +
            record("User Cancel") + record("Finish !!!"));
}

TEST_F(RunRelayTest, NothingOfTheRunIsLoggedAfterUserCancel)
{
    m_relay.runStarts();
    m_relay.userCancelled();
    m_relay.relay(message("Duplicating /late"));
    EXPECT_EQ(logged(), record("\n\n") + record("User Cancel"));
    EXPECT_EQ(m_display.lines, (Lines{"msg Duplicating /late"}));
    m_relay.runStarts();
    m_relay.relay(message("Duplicating /next"));
    EXPECT_TRUE(logged().ends_with(record("Duplicating /next")));
}

} // namespace orvana
