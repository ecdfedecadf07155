// The reports of a run to the desktop, for a user who works elsewhere meanwhile.

#include "app/WindowFixture.h"

#include <QFile>

namespace orvana
{

class DesktopTest : public WindowTest
{
protected:
    DesktopTest() { bay(3)["attached"] = false; } // a blank disk would turn erase on
};

TEST_F(DesktopTest, EndOfARunIsToldWithAButtonForItsLog)
{
    startWithEnclosure();
    QString wanted;
    QObject::connect(&window(), &MainWindow::logWanted, [&](const QString &path) { wanted = path; });
    pressStart();
    untilSheet("File Copy Completed");
    ASSERT_EQ(notices().size(), 1U);
    EXPECT_EQ(notices()[0].title, "Duplication finished");
    EXPECT_EQ(notices()[0].text, "All 2 destinations hold every file.");
    EXPECT_EQ(notices()[0].button, "Open log");
    notices()[0].pressed();
    EXPECT_TRUE(wanted.endsWith(QStringLiteral("-Log.txt"))) << wanted.toStdString();
    EXPECT_TRUE(QFile::exists(wanted));
}

TEST_F(DesktopTest, EndOfARunWithFailuresSaysSo)
{
    bay(1)["volumes"][0]["faults"] = {{"writeErrorAfter", 1000}};
    startWithEnclosure();
    pressStart();
    untilSheet("File Copy Completed");
    ASSERT_EQ(notices().size(), 1U);
    EXPECT_TRUE(notices()[0].text.starts_with("1 of 2 destinations holds every file; ")) << notices()[0].text;
    EXPECT_TRUE(notices()[0].text.ends_with("; Slot-B (COPY1): 3 failed.")) << notices()[0].text;
}

TEST_F(DesktopTest, CancelledRunIsNotTold)
{
    bay(1)["volumes"][0]["faults"] = {{"delayMilliseconds", 40}};
    startWithEnclosure();
    pressStart();
    pressStart();
    until([this] { return !window().isBusy(); });
    pass(std::chrono::seconds(1));
    EXPECT_TRUE(notices().empty());
    EXPECT_EQ(shownProgress().back(), std::nullopt);
}

TEST_F(DesktopTest, RunThatCameToNoCopyAfterItsEraseIsTold)
{
    m_machine["failing"] = Json::array({"eraseDisk"});
    startWithEnclosure();
    setErase(true);
    startErase();
    until([this] { return !notices().empty(); });
    EXPECT_EQ(notices()[0].title, "Nothing was duplicated");
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
}

TEST_F(DesktopTest, RunThatEndsWithTheClickIsNotTold)
{
    bay(1)["attached"] = false;
    bay(2)["attached"] = false;
    startWithEnclosure();
    pressStart();
    pass(std::chrono::seconds(1));
    EXPECT_TRUE(notices().empty());
}

TEST_F(DesktopTest, ProgressIsShownWhileTheRunGoesOnAndOnlyThen)
{
    startWithEnclosure();
    EXPECT_EQ(std::count_if(shownProgress().begin(), shownProgress().end(),
                            [](const auto &shown) { return shown.has_value(); }),
              0);
    pressStart();
    EXPECT_EQ(shownProgress().back(), 0.0);
    untilSheet("File Copy Completed");
    EXPECT_NE(std::find(shownProgress().begin(), shownProgress().end(), std::optional(1.0)),
              shownProgress().end());
    EXPECT_EQ(shownProgress().back(), std::nullopt);
}

TEST_F(DesktopTest, NoticeOutlivesTheWindow)
{
    startWithEnclosure();
    pressStart();
    untilSheet("File Copy Completed");
    closeWindow();
    notices().at(0).pressed();
}

} // namespace orvana
