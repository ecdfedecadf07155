#include "ui/ElidedLabel.h"
#include "ui/ShownText.h"

#include <gtest/gtest.h>

namespace orvana
{

TEST(ElidedLabel, ShowsAsMuchAsFitsAndKeepsTheWholeText)
{
    ElidedLabel label;
    label.setText(QStringLiteral("A disk model whose name is longer than its place"));
    label.resize(80, 15);
    EXPECT_TRUE(label.shownText().contains(QChar(0x2026)));
    EXPECT_LE(label.fontMetrics().horizontalAdvance(label.shownText()), 80);
    EXPECT_EQ(label.text(), QStringLiteral("A disk model whose name is longer than its place"));
    label.resize(1000, 15);
    EXPECT_EQ(label.shownText(), label.text());
}

TEST(ElidedLabel, NameThatLooksLikeMarkupIsShownAsItStands)
{
    ElidedLabel label;
    label.setText(QStringLiteral("<b>Bold</b> & cold"));
    label.resize(1000, 15);
    EXPECT_EQ(label.shownText(), QStringLiteral("<b>Bold</b> & cold"));
    EXPECT_FALSE(plainToolTip(label.text()).contains(QStringLiteral("<b>")));
}

} // namespace orvana
