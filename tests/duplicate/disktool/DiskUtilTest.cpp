// Erasing and ejecting: the notifications, the commands and the result for each disk.

#include "duplicate/disktool/DiskUtil.h"
#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "platform/CommandLauncher.h"

#include <gtest/gtest.h>
#include <map>
#include <thread>

namespace orvana
{

using Lines = std::vector<std::string>;

/// A launcher and a notification centre that record all their calls in one list.
class DiskTool : public testing::Test, public platform::CommandLauncher
{
protected:
    DiskTool()
    {
        m_subscriptions.push_back(
            m_center.subscribe(notification::DiskMessage, [this](const Notification &n) {
                m_events.push_back(n.text(notification::key::DiskMsgInfo));
            }));
        m_subscriptions.push_back(m_center.subscribe(
            notification::EraseDiskFinish, [this](const Notification &n) { m_events.push_back(n.name); }));
        m_tool.setDiskArray(
            {{"SN2", "Model 2", "/dev/disk2", "COPY1"}, {"SN3", "Model 3", "/dev/disk3", "My Disk"}});
    }

    Result run(const std::string &path, const std::vector<std::string> &arguments) override
    {
        m_thread = std::this_thread::get_id();
        std::string line = path;
        for (const auto &argument : arguments)
            line += "|" + argument;
        m_events.push_back(line);
        const auto found = m_answers.find(arguments.empty() ? "" : arguments.back());
        return found == m_answers.end() ? Result{"Done\n", 0} : found->second;
    }

    void setSparedDisks(std::vector<platform::DiskFingerprint> disks) override
    {
        m_spared = std::move(disks);
    }

    std::vector<platform::DiskFingerprint> m_spared;
    NotificationCenter m_center;
    std::vector<NotificationCenter::Subscription> m_subscriptions;
    DiskUtil m_tool{*this, m_center};
    std::map<std::string, Result> m_answers; ///< by device node
    Lines m_events;
    std::thread::id m_thread;
};

TEST_F(DiskTool, EachEraseIsToldAndRunOneAfterTheOther)
{
    EXPECT_TRUE(m_tool.EraseDisks());
    EXPECT_EQ(m_events, (Lines{"Erasing /dev/disk2 & Mount to /Volumes/COPY1",
                               "/usr/sbin/diskutil|eraseDisk|JHFS+|COPY1|/dev/disk2",
                               "Erasing /dev/disk3 & Mount to /Volumes/My Disk",
                               "/usr/sbin/diskutil|eraseDisk|JHFS+|My Disk|/dev/disk3"}));
}

TEST_F(DiskTool, EachEjectIsToldAndRunOneAfterTheOther)
{
    EXPECT_TRUE(m_tool.EjectDisks());
    EXPECT_EQ(m_events, (Lines{"Eject /Volumes/COPY1", "/usr/sbin/diskutil|eject|/dev/disk2",
                               "Eject /Volumes/My Disk", "/usr/sbin/diskutil|eject|/dev/disk3"}));
}

TEST_F(DiskTool, EndOfAnEraseIsPostedOnceAfterAllCommands)
{
    m_tool.startEraseDisks();
    EXPECT_EQ(m_events.size(), 5U);
    EXPECT_EQ(m_events.back(), "EraseDiskFinish");
}

TEST_F(DiskTool, EjectPostsNoEnd)
{
    m_tool.EjectDisks();
    EXPECT_EQ(m_events.back(), "/usr/sbin/diskutil|eject|/dev/disk3");
}

TEST_F(DiskTool, EnclosureWithoutDisksStillPostsTheEndOfTheErase)
{
    m_tool.setDiskArray({});
    m_tool.startEraseDiskThread();
    EXPECT_EQ(m_events, (Lines{"EraseDiskFinish"}));
}

TEST_F(DiskTool, EraseRunsOnTheCallingThreadDespiteItsName)
{
    m_tool.startEraseDiskThread();
    EXPECT_EQ(m_thread, std::this_thread::get_id());
    EXPECT_EQ(m_events.back(), "EraseDiskFinish");
}

TEST_F(DiskTool, FailedCommandKeepsNeitherTheNextNorTheEndFromComing)
{
    m_answers["/dev/disk2"] = {"Error: the disk is in use\nmore\n", 1};
    m_tool.startEraseDisks();
    EXPECT_EQ(m_events.size(), 5U);
    ASSERT_EQ(m_tool.results().size(), 2U);
    EXPECT_FALSE(m_tool.results()[0].succeeded);
    EXPECT_EQ(m_tool.results()[0].reason, "Error: the disk is in use");
    EXPECT_EQ(m_tool.results()[0].disk.diskSN, "SN2");
    EXPECT_TRUE(m_tool.results()[1].succeeded);
    EXPECT_EQ(m_tool.results()[1].reason, "");
}

TEST_F(DiskTool, FailureWithoutAWordIsToldByItsStatus)
{
    m_answers["/dev/disk2"] = {"", 9};
    m_answers["/dev/disk3"] = {"", std::nullopt};
    m_tool.EjectDisks();
    EXPECT_EQ(m_tool.results()[0].reason, "the disk utility ended with status 9");
    EXPECT_EQ(m_tool.results()[1].reason, "the disk utility could not be started");
}

TEST_F(DiskTool, ReasonIsAlwaysText)
{
    m_answers["/dev/disk2"] = {"\nbad \xFF name\r\nmore", 1};
    m_tool.EraseDisks();
    EXPECT_EQ(m_tool.results()[0].reason, "bad \\xFF name");
}

TEST_F(DiskTool, ResultsAreThoseOfTheLastOperation)
{
    m_tool.EraseDisks();
    m_tool.setDiskArray({});
    m_tool.EjectDisks();
    EXPECT_TRUE(m_tool.results().empty());
}

TEST_F(DiskTool, StoppedEraseEndsAfterTheDiskInHandAndPostsNoEnd)
{
    m_tool.setGoesOn([this] { return m_events.empty(); });
    m_tool.startEraseDisks();
    EXPECT_EQ(m_events.size(), 2U);
    EXPECT_EQ(m_tool.results().size(), 1U);
}

TEST_F(DiskTool, EraseThatWasStoppedBeforeItsFirstDiskTouchesNone)
{
    m_tool.setGoesOn([] { return false; });
    m_tool.startEraseDisks();
    EXPECT_EQ(m_events, Lines());
}

TEST_F(DiskTool, NameThatIsNoTextIsToldSafelyAndPassedOnAsItIs)
{
    m_tool.setDiskArray({{"", "", "/dev/disk2", "a\xFF"}});
    m_tool.EraseDisks();
    EXPECT_EQ(m_events[0], "Erasing /dev/disk2 & Mount to /Volumes/a\\xFF");
    EXPECT_EQ(m_events[1], "/usr/sbin/diskutil|eraseDisk|JHFS+|a\xFF|/dev/disk2");
}

TEST_F(DiskTool, OutputOfACommandIsReturnedWhateverItsStatus)
{
    m_answers["x"] = {"text\n", 3};
    EXPECT_EQ(m_tool.runCommandWithCommand("/bin/any", {"x"}), "text\n");
    m_answers["x"] = {"\xFF", 0};
    EXPECT_EQ(m_tool.runCommandWithCommand("/bin/any", {"x"}), std::nullopt);
}

} // namespace orvana
