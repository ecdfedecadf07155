#include "panels/TBDeviceViewController.h"
#include "discovery/DeviceRecords.h"
#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
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

} // namespace orvana
