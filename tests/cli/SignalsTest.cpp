// Signals, closed standard files and languages: the program from outside.

#include "cli/ProcessFixture.h"
#include "foundation/SizeText.h"

#include <array>
#include <clocale>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orvana::cli
{

TEST_F(Process, EverySignalEndsAWatchInOrder)
{
    ASSERT_EQ(program({"devices"}), AllDone);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto child = startProgram({"devices", "--watch", "--simulator", m_tree.path("machine.json")});
        untilSaid("Master");
        ::kill(child, signal);
        const int status = statusOf(child);
        EXPECT_TRUE(status == AllDone || status == Cancelled)
            << status << ": it comes before the watch, or in it";
    }
}

TEST_F(Process, SignalBeforeAnythingIsTouchedEndsTheProgram)
{
    // Nobody writes to the pipe, so the command waits where it reads its machine.
    ASSERT_EQ(::mkfifo(m_tree.path("pipe").c_str(), 0600), 0);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto child = startProgram({"devices", "--simulator", m_tree.path("pipe")});
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        ::kill(child, signal);
        EXPECT_EQ(statusOf(child), Cancelled) << signal;
    }
}

TEST_F(Process, ReportIsWholeThoughStandardFilesAreClosed)
{
    m_tree.file("s/file", "content");
    m_tree.folder("d");
    const auto child = startProgram(
        {"copy", m_tree.path("s/file"), "--to", m_tree.path("d"), "--log-dir", m_tree.path("logs")}, true);
    EXPECT_EQ(statusOf(child), AllDone);
    EXPECT_EQ(report()["destinations"][0]["copied"], 1);
    EXPECT_EQ(m_tree.read("d/file"), "content");
}

TEST_F(Process, FirstRunLogsToDocumentsUnderTheSecondInWhichItBegan)
{
    m_tree.file("s/file", "content");
    m_tree.folder("d");
    m_tree.folder("home/Documents");
    const auto before = ::time(nullptr);
    const auto child = ::fork();
    if (child == 0) {
        ::setenv("HOME", m_tree.path("home").c_str(), 1);
        ::execl(PLURIMOCTL, PLURIMOCTL, "copy", m_tree.path("s/file").c_str(), "--to",
                m_tree.path("d").c_str(), nullptr);
        ::_exit(99);
    }
    ASSERT_EQ(statusOf(child), AllDone);
    std::string name;
    for (auto second = before; second <= ::time(nullptr); ++second) {
        std::array<char, 32> stamp{};
        std::tm local{};
        ::localtime_r(&second, &local);
        std::strftime(stamp.data(), stamp.size(), "%Y%m%d-%H%M%S", &local);
        const auto candidate = std::string("home/Documents/") + stamp.data() + "-Log.txt";
        if (m_tree.exists(candidate))
            name = candidate;
    }
    ASSERT_FALSE(name.empty()) << "no log is named after a second of this run";
    const auto log = m_tree.read(name);
    constexpr std::size_t StampLength = 21; // "[2026/11/21 10:20:30]"
    EXPECT_EQ(log.substr(StampLength, 6), ": \n\n\n[") << log;
}

TEST_F(Process, NamesOfTheWorkingFolderAreNoRule)
{
    // The rule for links looks up bare names in the working folder.
    m_tree.file("s/docs/bin", "content");
    m_tree.folder("d");
    m_tree.link("here/bin", "/bin");
    const auto child = ::fork();
    if (child == 0) {
        if (::chdir(m_tree.path("here").c_str()) != 0)
            ::_exit(98);
        ::execl(PLURIMOCTL, PLURIMOCTL, "copy", "../s/docs", "--to", "../d", "--log-dir", "../logs", nullptr);
        ::_exit(99);
    }
    EXPECT_EQ(statusOf(child), AllDone);
    EXPECT_EQ(m_tree.read("d/docs/bin"), "content");
}

TEST(Languages, SizesHaveTheirPointInEveryOne)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char *locale : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "C.UTF-8"}) {
        std::setlocale(LC_ALL, locale);
        EXPECT_EQ(sizeText(200'000'000), "190.73 MB") << locale;
    }
    std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(sizeText(0), "0.00 Bytes");
    EXPECT_EQ(sizeText(1'048'576), "1.00 MB");
}

} // namespace orvana::cli
