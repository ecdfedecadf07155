#include "version/view/Obsidio.h"
#include "version/view/Banner.h"

#include "support/TestHost.h"
#include "support/WebBase.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace orvana
{

class ObsidioTest : public testing::Test
{
protected:
    test::TestHost m_host{"/nowhere"};
    Obsidio m_window{m_host, "1.2.3"};
};

TEST_F(ObsidioTest, ShowsBannerNoticeAndVersion)
{
    EXPECT_FALSE(m_window.BannerLogo()->pixmap().isNull());
    EXPECT_FALSE(m_window.CopyRightText()->text().isEmpty());
    EXPECT_EQ(m_window.VersionText()->text(), QStringLiteral("Version : 1.2.3"));
}

TEST_F(ObsidioTest, BannerHasTheSameSizeOnEveryScreenAndMorePixelsOnASharpOne)
{
    EXPECT_EQ(bannerImage(1).deviceIndependentSize(), QSizeF(605, 70));
    EXPECT_EQ(bannerImage(2).deviceIndependentSize(), QSizeF(605, 70));
    EXPECT_EQ(bannerImage(2).width(), 1210);
}

TEST_F(ObsidioTest, HelpButtonStandsAtTheBottomRight)
{
    EXPECT_EQ(m_window.HelpBtn()->geometry(), QRect(580, m_window.height() - 17 - 25, 25, 25));
}

TEST_F(ObsidioTest, StartingTheWindowFillsItAgain)
{
    m_window.VersionText()->clear();
    m_window.startWindow();
    EXPECT_EQ(m_window.VersionText()->text(), QStringLiteral("Version : 1.2.3"));
}

TEST_F(ObsidioTest, HelpButtonOpensTheHelpPage)
{
    const test::WebBase base("http://127.0.0.1:1");
    QTest::mouseClick(m_window.HelpBtn(), Qt::LeftButton);
    EXPECT_EQ(m_host.openedPages(), std::vector<std::string>{"http://127.0.0.1:1/software/orvana-plurimo"});
}

TEST_F(ObsidioTest, NothingIsCutOff)
{
    m_window.show();
    for (const auto *label : {m_window.CopyRightText(), m_window.VersionText()})
        EXPECT_GE(label->width(), label->sizeHint().width() * 6 / 5) << "with room for a longer language";
}

} // namespace orvana
