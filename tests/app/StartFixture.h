#pragma once

#include "app/WindowFixture.h"

namespace orvana
{

/// The steps between the click on Start and the first erased disk.
class StartTest : public WindowTest
{
protected:
    /// Two volumes on the disk in bay A.
    void putTwoVolumesInBayA()
    {
        bay(0)["volumes"] = Json::array();
        for (const char *name : {"One", "Two"})
            bay(0)["volumes"].push_back(
                {{"name", name}, {"capacity", 400000}, {"content", {{{"path", "film"}, {"bytes", 5000}}}}});
    }

    /// Expects that no command was run on the disk that was in bay A, and that bay A still has two volumes.
    void expectBayAIsWhole()
    {
        const auto machine = Json::parse(m_tree.read("machine.json"));
        const auto &disk = machine["enclosures"][0]["bays"][0];
        EXPECT_EQ(disk["volumes"].size(), 2U) << disk.dump();
        for (const auto &tool : tools())
            EXPECT_NE(tool.back(), m_bayA) << "a command was run on the source's disk";
    }

    void startWithSource(const std::string &title)
    {
        startWithEnclosure();
        chooseSource(title);
        setErase(true);
        m_bayA = window().ScanDevice().tbArray()[0]->hddArray()[0]->devPath().value();
    }

    /// Starts a run without an erase whose source is the second volume of the disk in bay A, and is slow.
    void startSlowCopyOfTwo()
    {
        putTwoVolumesInBayA();
        bay(3)["attached"] = false; // a blank disk switches erase on again
        bay(0)["volumes"][1]["faults"] = {{"delayMilliseconds", 20}};
        startWithEnclosure();
        chooseSource("Two");
        setErase(false);
        m_bayA = window().ScanDevice().tbArray()[0]->hddArray()[0]->devPath().value();
        pressStart();
        pressSheet("OK"); // the source's disk takes no part
    }

    void answerEverySheet()
    {
        for (int i = 0; i < 200; ++i) {
            pass(std::chrono::milliseconds(50));
            const auto message = sheetMessage();
            if (!message.empty())
                pressSheet(message == "Erase" ? "Erase" : message == "File Copy Completed" ? "Done" : "OK");
            if (!window().isBusy() && message.empty() && i > 40)
                return;
        }
    }

    bool nothingHappened() const { return tools().empty() && !hasLog() && title() == "Start"; }

    std::string m_bayA;
};

} // namespace orvana
