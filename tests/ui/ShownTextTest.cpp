#include "ui/ShownText.h"

#include <gtest/gtest.h>

namespace orvana
{

TEST(ShownText, BytesThatAreNoTextAndLineBreaksAreEscaped)
{
    EXPECT_EQ(shownText("Größe 文"), QStringLiteral("Größe 文"));
    EXPECT_EQ(shownText("a\nb\xFF"), QStringLiteral("a\\x0Ab\\xFF"));
}

TEST(ShownText, VeryLongWordsGetPlacesWhereALabelMayBreakThem)
{
    const QString words = QStringLiteral("a disk, at 1.2");
    EXPECT_EQ(wrappableText(words), words);
    const QString space(QChar(0x200B));
    const QString part(32, QLatin1Char('x'));
    EXPECT_EQ(wrappableText(part), part);
    EXPECT_EQ(wrappableText(part + part + QStringLiteral("y z")),
              part + space + part + space + QStringLiteral("y z"));
}

TEST(ShownText, CharactersOfTwoPartsAreNeverTornApart)
{
    const auto twoParts = QString::fromUtf8("\xF0\x9F\x92\xBE");
    const auto text = wrappableText(QString(31, QLatin1Char('x')) + twoParts + twoParts);
    EXPECT_EQ(text, QString(31, QLatin1Char('x')) + twoParts + QChar(0x200B) + twoParts);
}

TEST(ShownText, ToolTipIsNeverTakenForMarkup)
{
    const auto tip = plainToolTip(QStringLiteral("<b>x</b>"));
    EXPECT_TRUE(tip.contains(QStringLiteral("&lt;b&gt;"))) << tip.toStdString();
}

} // namespace orvana
