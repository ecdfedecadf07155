#include "ui/Mirrored.h"

#include <QWidget>
#include <gtest/gtest.h>

namespace orvana
{

TEST(Mirrored, FrameStaysFromLeftToRight)
{
    QWidget parent;
    parent.resize(300, 100);
    EXPECT_EQ(mirrored({10, 20, 60, 15}, parent), QRect(10, 20, 60, 15));
}

TEST(Mirrored, FrameKeepsItsDistanceToTheOtherSideFromRightToLeft)
{
    QWidget parent;
    parent.resize(300, 100);
    parent.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(mirrored({10, 20, 60, 15}, parent), QRect(230, 20, 60, 15));
}

TEST(Mirrored, ChildrenAreMovedAndTheirOwnChildrenAreNot)
{
    QWidget parent;
    parent.resize(300, 100);
    parent.setLayoutDirection(Qt::RightToLeft);
    auto *child = new QWidget(&parent);
    child->setGeometry(0, 0, 100, 50);
    auto *grandchild = new QWidget(child);
    grandchild->setGeometry(5, 5, 10, 10);
    mirrorChildren(parent);
    EXPECT_EQ(child->geometry(), QRect(200, 0, 100, 50));
    EXPECT_EQ(grandchild->geometry(), QRect(5, 5, 10, 10));
}

} // namespace orvana
