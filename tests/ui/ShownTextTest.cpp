#include "ui/ShownText.h"

#include <gtest/gtest.h>

namespace orvana
{

TEST(ShownText, BytesThatAreNoTextAndLineBreaksAreEscaped)
{
    EXPECT_EQ(shownText("Größe 文"), QStringLiteral("Größe 文"));
    EXPECT_EQ(shownText("a\nb\xFF"), QStringLiteral("a\\x0Ab\\xFF"));
}

TEST(ShownText, ToolTipIsNeverTakenForMarkup)
{
    const auto tip = plainToolTip(QStringLiteral("<b>x</b>"));
    EXPECT_TRUE(tip.contains(QStringLiteral("&lt;b&gt;"))) << tip.toStdString();
}

} // namespace orvana
