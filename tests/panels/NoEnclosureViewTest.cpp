#include "panels/NoEnclosureView.h"

#include <QApplication>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <gtest/gtest.h>

namespace orvana
{

TEST(NoEnclosureView, EachButtonSaysWhatIsWanted)
{
    NoEnclosureView view;
    view.show();
    const QSignalSpy setUp(&view, &NoEnclosureView::setUpWanted);
    const QSignalSpy demo(&view, &NoEnclosureView::demoWanted);
    QTest::mouseClick(view.setUpBtn, Qt::LeftButton);
    EXPECT_EQ(setUp.count(), 1);
    EXPECT_EQ(demo.count(), 0);
    QTest::mouseClick(view.demoBtn, Qt::LeftButton);
    EXPECT_EQ(setUp.count(), 1);
    EXPECT_EQ(demo.count(), 1);
}

TEST(NoEnclosureView, FitsIntoItsPlaceAlsoWithALargeFont)
{
    const auto before = QApplication::font();
    auto large = before;
    large.setPixelSize(28);
    QApplication::setFont(large);
    {
        const NoEnclosureView view;
        EXPECT_LE(view.minimumSizeHint().width(), 300);
        EXPECT_LE(view.minimumSizeHint().height(), 70);
    }
    QApplication::setFont(before);
}

} // namespace orvana
