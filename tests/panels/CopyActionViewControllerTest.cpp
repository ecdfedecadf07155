#include "panels/CopyActionViewController.h"
#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include <QtTest/QTest>
#include <gtest/gtest.h>

namespace orvana
{

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

} // namespace orvana
