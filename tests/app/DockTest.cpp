// The window with an enclosure that a definition makes of a dock.

#include "app/WindowFixture.h"

namespace orvana
{

namespace
{

class DockTest : public WindowTest
{
protected:
    DockTest()
    {
        m_machine.erase("enclosures");
        m_machine["docks"] = Json::parse(R"([{"usb":"2109:0817","disks":[
            {"port":"1","model":"Master HD","serial":"A1","size":9000000,
             "volumes":[{"name":"Dock Master","capacity":900000,"content":[{"path":"one","bytes":10},{"path":"two","bytes":20}]}]},
            {"port":"2","model":"Copy HD","serial":"B1","size":9000000,"volumes":[{"name":"DOCK1","capacity":900000}]},
            {"port":"3","model":"Copy HD","serial":"C1","size":9000000,"attached":false,"volumes":[{"name":"DOCK2","capacity":900000}]}]}])");
        m_machine["definitions"] =
            Json::parse(R"([{"id":"dock","version":1,"name":"Desk dock","anchor":{"usb":"2109:0817"},
            "bays":{"A":{"port":"1"},"B":{"port":"2"},"C":{"port":"3"}}}])");
    }

    std::string row(const QLabel *label) const { return label->text().toStdString(); }
    int item() { return window().myTBDeviceViewController().tbDevicePopup->currentIndex(); }
    std::string source() { return slots().SourcePopup->selectedTitle(); }

    /// Lets the program notice a change and scan anew.
    void rescanned()
    {
        for (int i = 0; i < 10; ++i)
            pass(std::chrono::milliseconds(100));
    }
};

} // namespace

TEST_F(DockTest, DiskThatComesLeavesEnclosureSourceAndTicksAsTheyAre)
{
    startWithEnclosure();
    ASSERT_EQ(source(), "Dock Master");
    untick("one");
    untilCounted();
    ASSERT_EQ(files().totalFiles(), 1);
    move("attach", "dock/1/3");
    rescanned();
    EXPECT_EQ(window().layoutState(), 1);
    EXPECT_EQ(item(), 1);
    EXPECT_EQ(source(), "Dock Master");
    EXPECT_EQ(slots().SlotCVolume->text(), QStringLiteral("DOCK2"));
    untilCounted();
    EXPECT_EQ(files().totalFiles(), 1) << "the ticks are kept";
    move("detach", "dock/1/2");
    rescanned();
    EXPECT_EQ(window().layoutState(), 1);
    EXPECT_EQ(slots().SlotBVolume->text(), QStringLiteral("None"));
    EXPECT_EQ(files().totalFiles(), 1);
}

TEST_F(DockTest, SourceThatIsAnotherDiskByNowIsShownAnew)
{
    startWithEnclosure();
    untick("one");
    untilCounted();
    move("detach", "dock/1/1");
    rescanned();
    EXPECT_EQ(item(), 1);
    EXPECT_NE(source(), "Dock Master") << "no source but those that are there";
    move("attach", "dock/1/1");
    rescanned();
    chooseSource("Dock Master");
    untilCounted();
    EXPECT_EQ(files().totalFiles(), 2) << "a disk that was out is ticked as a whole";
}

TEST_F(DockTest, DockThatGoesTakesItsEnclosureFromThePicker)
{
    startWithEnclosure();
    move("detach", "dock/1");
    rescanned();
    EXPECT_EQ(window().layoutState(), 0);
    EXPECT_EQ(item(), 0);
    move("attach", "dock/1");
    rescanned();
    EXPECT_EQ(item(), 0) << "what came back is chosen by the user";
}

TEST_F(DockTest, RunGoesOnWhileAnotherDiskComes)
{
    m_machine["docks"][0]["disks"][1]["volumes"][0]["faults"] = {{"delayMilliseconds", 400}};
    startWithEnclosure();
    pressStart();
    move("attach", "dock/1/3");
    rescanned();
    EXPECT_EQ(window().layoutState(), 2);
    EXPECT_EQ(item(), 1);
    until([this] { return !window().isBusy(); });
    EXPECT_EQ(report()["outcome"], "finished");
    EXPECT_EQ(filesOn("DOCK1"), (Files{"one", "two"}));
    EXPECT_EQ(filesOn("DOCK2"), Files{}) << "it came too late for this run";
}

TEST_F(DockTest, MakersEnclosureIsChosenAnewAfterEachRescanAsBefore)
{
    m_machine.erase("docks");
    m_machine.erase("definitions");
    m_machine["enclosures"] = Json::parse(
        R"([{"uid":7,"bays":[{"bay":"A","serial":"A1","size":9000,"volumes":[{"name":"M","capacity":900}]},
                        {"bay":"B","serial":"B1","size":9000,"attached":false,"volumes":[{"name":"B","capacity":900}]}]}])");
    startWithEnclosure();
    move("attach", "1/B");
    rescanned();
    EXPECT_EQ(window().layoutState(), 0);
}

} // namespace orvana
