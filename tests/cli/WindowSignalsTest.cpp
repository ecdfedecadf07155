#include "cli/ProcessFixture.h"

#include <csignal>

namespace orvana::cli
{

TEST_F(Process, SignalEndsTheWindowsRunAsCancelDoes)
{
    bay(0)["volumes"][0]["content"] = {{{"path", "Many"}, {"bytes", 60'000}, {"files", 300}}};
    bay(1)["volumes"][0]["faults"] = {{"delayMilliseconds", 100}};
    bay(3)["attached"] = false; // a blank disk would switch the erase on
    ASSERT_EQ(program({"devices"}), AllDone) << "writes the machine's file";
    m_tree.file("script", "select-enclosure 1\nwait-count\nclick start\nwait-idle\n");
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        std::filesystem::remove_all(m_tree.path("logs"));
        m_tree.folder("logs");
        const auto window = startProgram({"--simulator", m_tree.path("machine.json"), "--script",
                                          m_tree.path("script"), "--log-dir", m_tree.path("logs")},
                                         false, ORVANA_PLURIMO);
        EXPECT_TRUE(waitFor([this] { return hasLog() && log().find("Duplicating") != std::string::npos; }));
        ::kill(window, signal);
        EXPECT_EQ(statusOf(window), 0) << signal;
        EXPECT_EQ(report()["outcome"], "cancelled");
        EXPECT_NE(log().find("User Cancel"), std::string::npos);
    }
}

} // namespace orvana::cli
