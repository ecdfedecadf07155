#include "app/WindowFixture.h"

#include "foundation/NotificationNames.h"

#include <QLabel>
#include <QtTest/QTest>

namespace orvana
{

namespace
{

QRect fromBottom(const MainWindow &window, int x, int y, int width, int height)
{
    return {x, window.contentHeight() - y - height, width, height};
}

} // namespace

TEST_F(WindowTest, WithoutAnEnclosureOnlyThePickerIsShown)
{
    m_machine["enclosures"] = Json::array();
    start();
    EXPECT_EQ(window().contentHeight(), 200);
    EXPECT_TRUE(window().myTBDeviceViewController().tbDevicePopup->isVisible());
    EXPECT_FALSE(window().DiskInfoView->isVisible());
    EXPECT_FALSE(window().FileListView->isVisible());
    EXPECT_FALSE(window().CopyActionView->isVisible());
    EXPECT_FALSE(window().totalProgress->isVisible());
}

TEST_F(WindowTest, UnknownStateIsAsStateZero)
{
    start();
    window().displayDialog(1, false);
    window().displayDialog(5, false);
    EXPECT_EQ(window().layoutState(), 0);
    EXPECT_EQ(window().contentHeight(), 200);
    EXPECT_FALSE(window().DiskInfoView->isVisible());
}

TEST_F(WindowTest, ChosenEnclosureShowsThePanels)
{
    startWithEnclosure();
    EXPECT_EQ(window().layoutState(), 1);
    EXPECT_EQ(window().contentHeight(), 685);
    for (const auto *control : std::initializer_list<const QWidget *>{
             slots().SlotBVolume, files().itemSizeLabel, actions().StartBtn})
        EXPECT_TRUE(control->isVisible());
    EXPECT_EQ(window().DiskInfoView->geometry(), fromBottom(window(), 320, 170, 300, 500));
    EXPECT_EQ(window().FileListView->geometry(), fromBottom(window(), 15, 170, 300, 430));
    EXPECT_EQ(window().CopyActionView->geometry(), fromBottom(window(), 15, 115, 605, 55));
    EXPECT_EQ(window().TBDeviceView->geometry(), fromBottom(window(), 15, 600, 300, 70));
    EXPECT_FALSE(window().totalProgress->isVisible());
}

TEST_F(WindowTest, RunGrowsTheWindowBelowThePanels)
{
    startWithEnclosure();
    const auto place = window().CopyActionView->geometry();
    window().displayDialog(2, false);
    EXPECT_EQ(window().contentHeight(), 740);
    EXPECT_EQ(window().CopyActionView->geometry(), place) << "the distance from the top stays";
    EXPECT_TRUE(window().messageText->isVisible());
}

TEST_F(WindowTest, BottomLabelsKeepTheirPlacesInEveryState)
{
    start();
    for (const int state : {0, 1, 2}) {
        window().displayDialog(state, false);
        EXPECT_EQ(window().CopyRightsLabel->geometry(), fromBottom(window(), 15, 15, 292, 17));
        EXPECT_EQ(window().VerLabel->geometry(), fromBottom(window(), 313, 15, 157, 17));
        EXPECT_EQ(window().HelpBtn->geometry(), fromBottom(window(), 597, 10, 25, 25));
        EXPECT_EQ(window().BannerLogo->geometry(), fromBottom(window(), 15, 40, 605, 70));
        EXPECT_EQ(window().width(), 635);
    }
}

TEST_F(WindowTest, NothingOverlapsInAnyState)
{
    startWithEnclosure();
    for (const int state : {0, 1, 2}) {
        window().displayDialog(state, false);
        window().hiddenPrpgressBar(state != 2);
        const auto all = window().content->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (const auto *one : all) {
            if (!one->isVisible())
                continue;
            EXPECT_TRUE(window().content->rect().contains(one->geometry()))
                << state << " " << one->objectName().toStdString();
            for (const auto *other : all)
                EXPECT_TRUE(one == other || !other->isVisible() ||
                            !one->geometry().intersects(other->geometry()))
                    << state << " " << one->objectName().toStdString() << " and "
                    << other->objectName().toStdString();
        }
    }
}

TEST_F(WindowTest, CaptionIsShownInThePartnersEditionOnly)
{
    start();
    EXPECT_EQ(window().UIVer->text(), QString());
    EXPECT_FALSE(window().UIVer->isVisible());
}

TEST_F(WindowTest, PartnersEditionSaysSo)
{
    start("Obsidio");
    EXPECT_EQ(window().UIVer->text(), QStringLiteral("for Obsidio"));
    EXPECT_TRUE(window().UIVer->isVisible());
    EXPECT_EQ(window().VerLabel->text(), QStringLiteral("Version : " PLURIMO_VERSION));
}

TEST_F(WindowTest, BarsStayHiddenInStatesZeroAndOneWhateverAWorkerPosts)
{
    startWithEnclosure();
    for (const int state : {0, 1}) {
        window().displayDialog(state, false);
        m_center.post(notification::FileProgress, notification::key::FileProgress, 50.0F);
        m_center.post(notification::TotalProgress, notification::key::TotalProrgress, 0.5F);
        EXPECT_FALSE(window().fileProgress->isVisible());
        EXPECT_FALSE(window().totalProgress->isVisible());
    }
}

TEST_F(WindowTest, MinusOneHidesABarAndZeroShowsAnEmptyOne)
{
    startWithEnclosure();
    window().displayDialog(2, false);
    window().hiddenPrpgressBar(false);
    EXPECT_TRUE(window().fileProgress->isVisible());
    EXPECT_EQ(window().fileProgress->doubleValue(), 0.0);
    window().setFileProgerss(-1.0F);
    EXPECT_FALSE(window().fileProgress->isVisible());
    EXPECT_TRUE(window().totalProgress->isVisible());
}

TEST_F(WindowTest, TabDoesNothingWithEraseOffAndMovesAmongTheNamesWithEraseOn)
{
    bay(3)["attached"] = false;
    startWithEnclosure();
    ASSERT_EQ(window().layoutState(), 1);
    EXPECT_FALSE(window().keyUp(Qt::Key_Tab));
    setErase(true);
    ASSERT_EQ(window().layoutState(), 1);
    for (auto *field : {slots().SlotBVolume, slots().SlotCVolume, slots().SlotDVolume, slots().SlotBVolume}) {
        QTest::keyClick(&window(), Qt::Key_Tab);
        EXPECT_EQ(window().focusWidget(), field);
    }
    EXPECT_FALSE(window().keyUp(Qt::Key_A));
    QTest::keyClick(window().focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_NE(window().focusWidget(), slots().SlotCVolume) << "shift and tab leave the circle";
}

TEST_F(WindowTest, HelpOpensThePageThroughTheDesktop)
{
    start();
    QTest::mouseClick(window().HelpBtn, Qt::LeftButton);
    ASSERT_EQ(openedPages().size(), 1U);
    EXPECT_TRUE(openedPages()[0].ends_with("/software/orvana-plurimo"));
}

TEST_F(WindowTest, ControlsOfTheWindowHaveAccessibleNames)
{
    startWithEnclosure();
    for (const auto *widget : std::initializer_list<const QWidget *>{
             window().HelpBtn, window().messageText, window().totalProgress, window().fileProgress})
        EXPECT_FALSE(widget->accessibleName().isEmpty());
}

} // namespace orvana
