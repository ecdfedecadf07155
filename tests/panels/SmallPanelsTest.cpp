#include "discovery/DeviceRecords.h"
#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "panels/CopyActionViewController.h"
#include "panels/ProgressBarViewController.h"
#include "panels/TBDeviceViewController.h"
#include "support/Recorder.h"

#include <QAbstractItemView>
#include <QtTest/QTest>
#include <gtest/gtest.h>

namespace orvana
{

namespace
{

using Enclosures = std::vector<std::shared_ptr<ORVThunderboltInfo>>;

Enclosures enclosures(int count)
{
    Enclosures list;
    for (int i = 0; i < count; ++i) {
        list.push_back(std::make_shared<ORVThunderboltInfo>());
        list.back()->setModuleName("Four Bay");
    }
    return list;
}

class Picker : public testing::Test
{
protected:
    Picker() { panel.show(); }

    QString label() const { return panel.tbDeviceLabel->text().remove(QLatin1Char('&')); }

    void choose(int index) const
    {
        panel.tbDevicePopup->showPopup();
        auto *list = panel.tbDevicePopup->view();
        list->setCurrentIndex(list->model()->index(index, 0));
        QTest::keyClick(list, Qt::Key_Return);
    }

    NotificationCenter center;
    TBDeviceViewController panel{center};
    int posted = 0;
    NotificationCenter::Subscription listen =
        center.subscribe(notification::SelectTBDevice, [this](const Notification &) { ++posted; });
};

} // namespace

TEST_F(Picker, NoEnclosureLeavesThePlaceholderAlone)
{
    panel.updateTBDevPopUp(enclosures(2));
    panel.updateTBDevPopUp({});
    EXPECT_EQ(panel.tbDevicePopup->count(), 1);
    EXPECT_EQ(panel.tbDevicePopup->currentText(), QStringLiteral("Select an Orvana Storage Device"));
    EXPECT_EQ(label(), QStringLiteral("Orvana Storage Device :"));
}

TEST_F(Picker, ThreeEnclosuresGiveFourItemsAndTheirNumber)
{
    panel.updateTBDevPopUp(enclosures(3));
    EXPECT_EQ(panel.tbDevicePopup->count(), 4);
    EXPECT_EQ(label(), QStringLiteral("Orvana Storage Device (3) :"));
    EXPECT_FALSE(panel.tbDevicePopup->itemIcon(3).pixmap(16, 16).isNull());
    EXPECT_TRUE(panel.tbDevicePopup->itemIcon(0).isNull());
}

TEST_F(Picker, ChoosingAnEnclosurePostsOnceEvenWhenItWasChosen)
{
    panel.updateTBDevPopUp(enclosures(2));
    choose(2);
    EXPECT_EQ(panel.tbDevicePopup->currentIndex(), 2);
    EXPECT_EQ(posted, 1);
    choose(2);
    EXPECT_EQ(posted, 2);
}

TEST_F(Picker, RefillPostsNothingAndDropsTheChoice)
{
    panel.updateTBDevPopUp(enclosures(2));
    panel.tbDevicePopup->setCurrentIndex(1);
    panel.updateTBDevPopUp(enclosures(2));
    EXPECT_EQ(panel.tbDevicePopup->currentIndex(), 0);
    EXPECT_EQ(posted, 0);
}

TEST_F(Picker, PlaceholderPostsNothing)
{
    panel.updateTBDevPopUp(enclosures(1));
    choose(0);
    EXPECT_EQ(posted, 0);
}

TEST_F(Picker, WheelPostsNothing)
{
    panel.updateTBDevPopUp(enclosures(2));
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(panel.tbDevicePopup, &wheel);
    EXPECT_EQ(panel.tbDevicePopup->currentIndex(), 0);
    EXPECT_EQ(posted, 0);
}

TEST_F(Picker, EnclosureIsChosenByKeyToo)
{
    panel.updateTBDevPopUp(enclosures(2));
    QTest::keyClick(panel.tbDevicePopup, Qt::Key_Down);
    EXPECT_EQ(panel.tbDevicePopup->currentIndex(), 1);
    EXPECT_EQ(posted, 1);
}

TEST_F(Picker, HostileModelNameIsShownSafely)
{
    auto list = enclosures(1);
    list[0]->setModuleName("a\nb\xff" + std::string(300, 'n'));
    panel.updateTBDevPopUp(list);
    EXPECT_TRUE(panel.tbDevicePopup->itemText(1).startsWith(QStringLiteral("a\\x0Ab\\xFF")));
    EXPECT_LE(panel.minimumSizeHint().width(), 300);
}

TEST_F(Picker, ControlHasAnAccessibleName)
{
    EXPECT_FALSE(panel.tbDevicePopup->accessibleName().isEmpty());
    EXPECT_EQ(panel.tbDeviceLabel->buddy(), panel.tbDevicePopup);
}

namespace
{

class ActionPanel : public testing::Test
{
protected:
    ActionPanel() { panel.show(); }

    static QString title(const QAbstractButton *button) { return button->text().remove(QLatin1Char('&')); }

    NotificationCenter center;
    CopyActionViewController panel{center};
    std::vector<std::string> posted;
    std::vector<NotificationCenter::Subscription> listen = [this] {
        std::vector<NotificationCenter::Subscription> all;
        for (const char *name :
             {notification::ClickStartBtn, notification::ClickVerifyBtn, notification::ClickEraseBtn})
            all.push_back(
                center.subscribe(name, [this](const Notification &n) { posted.push_back(n.name); }));
        return all;
    }();
};

} // namespace

TEST_F(ActionPanel, FreshPanelShowsStartAndBothOptionsOff)
{
    EXPECT_EQ(title(panel.StartBtn), QStringLiteral("Start"));
    EXPECT_EQ(title(panel.EraseDiskCheckBox), QStringLiteral("Erase destination disk(s)"));
    EXPECT_EQ(title(panel.VerrifyFileCheckBox), QStringLiteral("Verify"));
    EXPECT_FALSE(panel.EraseDiskCheckBox->isChecked());
    EXPECT_FALSE(panel.VerrifyFileCheckBox->isChecked());
    EXPECT_FALSE(panel.verifyFiles());
    EXPECT_FALSE(panel.isDuplicating());
    EXPECT_FALSE(panel.isErasing());
}

TEST_F(ActionPanel, VerifyFollowsTheBoxHoweverOftenItIsClicked)
{
    for (int click = 1; click <= 3; ++click) {
        QTest::mouseClick(panel.VerrifyFileCheckBox, Qt::LeftButton, Qt::NoModifier, {8, 12});
        EXPECT_EQ(panel.verifyFiles(), panel.VerrifyFileCheckBox->isChecked());
        EXPECT_EQ(panel.verifyFiles(), click % 2 == 1);
    }
    EXPECT_EQ(posted, (std::vector<std::string>(3, notification::ClickVerifyBtn)));
}

TEST_F(ActionPanel, StartAndErasePost)
{
    QTest::mouseClick(panel.StartBtn, Qt::LeftButton);
    QTest::keyClick(panel.EraseDiskCheckBox, Qt::Key_Space);
    EXPECT_EQ(posted, (std::vector<std::string>{notification::ClickStartBtn, notification::ClickEraseBtn}));
    EXPECT_TRUE(panel.EraseDiskCheckBox->isChecked());
}

TEST_F(ActionPanel, SettingTheEraseBoxFromElsewherePostsNothing)
{
    panel.EraseDiskCheckBox->setChecked(true);
    EXPECT_TRUE(posted.empty());
}

TEST_F(ActionPanel, ControlsHaveAccessibleNamesAndMnemonics)
{
    for (const auto *button : panel.findChildren<QAbstractButton *>()) {
        EXPECT_FALSE(button->accessibleName().isEmpty());
        EXPECT_TRUE(button->text().contains(QLatin1Char('&')));
    }
}

TEST(ProgressPanel, FreshPanelHidesBothBarsAndSaysNothing)
{
    ProgressBarViewController panel;
    panel.show();
    EXPECT_TRUE(panel.fileProgress->isHidden());
    EXPECT_TRUE(panel.totalProgress->isHidden());
    EXPECT_TRUE(panel.TextLabel->text().isEmpty());
    EXPECT_EQ(panel.fileProgress->maxValue(), 100.0);
    EXPECT_EQ(panel.totalProgress->maxValue(), 1.0);
}

TEST(ProgressPanel, MinusOneHidesABarAndZeroShowsAnEmptyOne)
{
    ProgressBarViewController panel;
    panel.show();
    panel.setFileStep(0.0F);
    panel.setTotalStep(0.0F);
    EXPECT_FALSE(panel.fileProgress->isHidden());
    EXPECT_EQ(panel.fileProgress->value(), panel.fileProgress->minimum());
    EXPECT_FALSE(panel.totalProgress->isHidden());
    panel.setFileStep(-1.0F);
    EXPECT_TRUE(panel.fileProgress->isHidden());
    EXPECT_FALSE(panel.totalProgress->isHidden());
}

TEST(ProgressPanel, StepsDriveTheBarsAndNotTheProperties)
{
    ProgressBarViewController panel;
    panel.setFileStep(50.0F);
    panel.setTotalStep(0.25F);
    EXPECT_EQ(panel.fileProgress->doubleValue(), 50.0);
    EXPECT_EQ(panel.totalProgress->doubleValue(), 0.25);
    EXPECT_EQ(panel.FileStep(), 0.0F);
    EXPECT_EQ(panel.TotalStep(), 0.0F);
}

TEST(ProgressPanel, ValueThatIsNoNumberOrOutOfRangeStaysInTheBar)
{
    ProgressIndicator bar;
    bar.showValue(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(bar.doubleValue(), 0.0);
    bar.showValue(7.0F);
    EXPECT_EQ(bar.doubleValue(), 1.0);
    bar.showValue(-0.5F);
    EXPECT_EQ(bar.doubleValue(), 0.0);
    EXPECT_FALSE(bar.isHidden());
}

TEST(ProgressPanel, EraseMovesTheTotalBarWithoutAnEndAndCopyGivesItOneAgain)
{
    ProgressBarViewController panel;
    panel.show();
    panel.setTotalStep(0.5F);
    panel.setViewForErase();
    EXPECT_EQ(panel.totalProgress->kind(), ProgressIndicator::Kind::Indeterminate);
    EXPECT_EQ(panel.totalProgress->doubleValue(), 0.0);
    EXPECT_TRUE(panel.fileProgress->isHidden());
    EXPECT_FALSE(panel.totalProgress->isHidden());
    panel.setViewForCopy();
    EXPECT_EQ(panel.totalProgress->kind(), ProgressIndicator::Kind::Determinate);
    EXPECT_FALSE(panel.fileProgress->isHidden());
    EXPECT_FALSE(panel.TextLabel->isHidden());
}

TEST(ProgressPanel, MessageIsShownAndWrittenToTheSystemLogTwice)
{
    ProgressBarViewController panel;
    const test::LogLines log;
    panel.setMsgText("Erasing");
    EXPECT_EQ(panel.TextLabel->text(), QStringLiteral("Erasing"));
    EXPECT_EQ(log.all(),
              (std::vector<std::string>{"aString=Erasing", "[self.TextLabel stringValue] = Erasing"}));
}

} // namespace orvana
