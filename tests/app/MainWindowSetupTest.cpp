#include "app/BaySetupSheet.h"
#include "app/WindowFixture.h"
#include "panels/NoEnclosureView.h"

#include <QtTest/QTest>

namespace orvana
{

namespace
{

class SetupTest : public WindowTest
{
protected:
    NoEnclosureView &hint() { return window().noEnclosureView(); }
};

} // namespace

TEST_F(SetupTest, WithoutAnEnclosureThePageSaysWhatToDoNext)
{
    m_machine["enclosures"] = Json::array();
    start();
    EXPECT_TRUE(hint().isVisible());
    EXPECT_EQ(hint().noEnclosureLabel->text(), QStringLiteral("No enclosure was found."));
    EXPECT_TRUE(hint().setUpBtn->isVisible());
    EXPECT_TRUE(hint().demoBtn->isVisible());
    QTest::mouseClick(hint().setUpBtn, Qt::LeftButton);
    ASSERT_TRUE(window().baySetup());
    EXPECT_TRUE(window().baySetup()->isVisible());
}

TEST_F(SetupTest, HintGoesWhenAnEnclosureComesAndComesWhenItGoes)
{
    m_machine["enclosures"][0]["attached"] = false;
    start();
    EXPECT_TRUE(hint().isVisible());
    move("attach", "1");
    until([this] { return !hint().isVisible(); });
    EXPECT_EQ(window().myTBDeviceViewController().tbDevicePopup->count(), 2);
    chooseEnclosure(1);
    EXPECT_FALSE(hint().isVisible());
    move("detach", "1");
    until([this] { return hint().isVisible(); });
    EXPECT_EQ(window().layoutState(), 0);
}

TEST_F(SetupTest, HintIsNeverOnTopOfTheBays)
{
    m_machine["enclosures"] = Json::array();
    start();
    for (const int state : {1, 2, 0}) {
        window().displayDialog(state, false);
        EXPECT_EQ(hint().isVisible(), state == 0);
        EXPECT_NE(hint().isVisible(), window().DiskInfoView->isVisible());
    }
}

TEST_F(SetupTest, HintHasItsPlaceBesideThePicker)
{
    m_machine["enclosures"] = Json::array();
    start();
    EXPECT_EQ(hint().geometry(), QRect(320, 15, 300, 70));
    EXPECT_EQ(window().TBDeviceView->geometry(), QRect(15, 15, 300, 70));
    for (const auto *other : {window().BannerLogo, static_cast<QLabel *>(window().VerLabel)})
        EXPECT_FALSE(hint().geometry().intersects(other->geometry()));
    window().myTBDeviceViewController().tbDevicePopup->setFocus();
    for (auto *next : {hint().setUpBtn, hint().demoBtn}) {
        QTest::keyClick(window().focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(window().focusWidget(), next);
    }
}

TEST_F(SetupTest, DemoIsStartedOnceForEachClick)
{
    m_machine["enclosures"] = Json::array();
    int started = 0;
    m_startDemo = [&] { return ++started > 0; };
    start();
    QTest::mouseClick(hint().demoBtn, Qt::LeftButton);
    EXPECT_EQ(started, 1);
    EXPECT_EQ(sheetMessage(), "");
}

TEST_F(SetupTest, DemoThatCannotBeStartedIsTold)
{
    m_machine["enclosures"] = Json::array();
    m_startDemo = [] { return false; };
    start();
    QTest::mouseClick(hint().demoBtn, Qt::LeftButton);
    EXPECT_EQ(sheetMessage(), "Warning");
    EXPECT_EQ(sheetText(), "The demo cannot be started.");
}

TEST_F(SetupTest, DemoDoesNotOfferItself)
{
    m_machine["enclosures"] = Json::array();
    m_startDemo = nullptr;
    start();
    EXPECT_TRUE(hint().setUpBtn->isVisible());
    EXPECT_FALSE(hint().demoBtn->isVisible());
}

TEST_F(SetupTest, RemarksOnDevicesThatCannotBeUsedStayVisible)
{
    m_machine["enclosures"] = Json::array();
    m_machine["docks"] = Json::array({{{"usb", "2109:0817"}}, {{"usb", "2109:0817"}}});
    m_machine["definitions"] =
        Json::parse(R"([{"id":"dock","version":1,"name":"Dock","anchor":{"usb":"2109:0817"},
        "bays":{"A":{"port":"1"},"B":{"port":"2"}}}])");
    start();
    EXPECT_TRUE(hint().isVisible());
    auto *remarks = window().myTBDeviceViewController().remarksBtn;
    EXPECT_TRUE(remarks->isVisible());
    QTest::mouseClick(remarks, Qt::LeftButton);
    EXPECT_EQ(sheetMessage(), "Not used");
    EXPECT_NE(sheetText().find("is there 2 times"), std::string::npos);
}

TEST_F(SetupTest, BaysAreNotSetUpDuringARun)
{
    bay(3)["attached"] = false;
    bay(1)["volumes"][0]["faults"] = {{"delayMilliseconds", 40}};
    startWithEnclosure();
    pressStart();
    until([this] { return window().isBusy(); });
    window().setUpBays();
    EXPECT_FALSE(window().baySetup());
    EXPECT_EQ(sheetText(), "Disks are at work. Bays can be set up when that has ended.");
    pressSheet("OK");
    pressStart();
    until([this] { return !window().isBusy(); });
    window().setUpBays();
    EXPECT_TRUE(window().baySetup());
}

} // namespace orvana
