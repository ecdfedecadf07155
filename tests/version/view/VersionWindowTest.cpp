#include "version/view/VersionWindow.h"

#include "support/LoopbackServer.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"
#include "support/WebBase.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextDocumentFragment>
#include <gtest/gtest.h>

namespace orvana
{

class VersionCheck : public testing::Test
{
protected:
    // A check of the program's `version` against a server with this version file.
    VersionWindow &check(const std::string &version, const std::string &file)
    {
        if (!m_window)
            m_window = std::make_unique<VersionWindow>(m_host, version);
        m_file = file;
        m_window->checkVersion();
        return *m_window;
    }

    std::string sentence() const { return m_window->verMsg1()->text().toStdString(); }
    std::string product() const
    {
        return QTextDocumentFragment::fromHtml(m_window->verMsg3()->text()).toPlainText().toStdString();
    }
    std::string downloadPage() const { return m_server.address() + "/software/orvana-plurimo/download"; }

    static constexpr const char *IsNewer = "A new version is available for download at";
    static constexpr const char *IsCurrent = "You are running the most current version of";

    test::TestHost m_host{"/nowhere"};
    std::string m_file;
    test::LoopbackServer m_server{[this](const std::string &) { return test::LoopbackServer::okay(m_file); }};
    test::WebBase m_base{m_server.address()};
    std::unique_ptr<VersionWindow> m_window;
};

TEST_F(VersionCheck, AsksForTheVersionFile)
{
    check("1.0", "Version: 1.0");
    EXPECT_EQ(m_server.requests(), std::vector<std::string>{"/pl/version.txt"});
}

TEST_F(VersionCheck, NewerVersionIsOfferedWithALinkToTheDownloadPage)
{
    EXPECT_TRUE(check("1.0.9", "Version: 1.0.10").isHasNewVersion());
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(sentence(), IsNewer);
    EXPECT_EQ(product(), downloadPage());
}

TEST_F(VersionCheck, SameVersionWithALineBreakIsCurrent)
{
    EXPECT_FALSE(check("2.0", "Version: 2.0\r\n").isHasNewVersion());
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(sentence(), IsCurrent);
    EXPECT_EQ(product(), "Orvana Plurimo");
}

TEST_F(VersionCheck, OlderVersionOnTheServerIsCurrent)
{
    EXPECT_FALSE(check("1.10", "Version: 1.9").isHasNewVersion());
    EXPECT_EQ(sentence(), IsCurrent);
}

TEST_F(VersionCheck, BlanksAroundTheColonDoNotCount)
{
    EXPECT_FALSE(check("1.1", "Version : 1.1").isHasNewVersion());
    EXPECT_TRUE(check("1.1", "Version : 1.2").isHasNewVersion());
}

TEST_F(VersionCheck, WhatFollowsAZeroByteDoesNotCount)
{
    EXPECT_TRUE(check("1.2", std::string("Version: 1.2.3\0rubbish\xFF", 23)).isHasNewVersion());
}

TEST_F(VersionCheck, SecondCheckDoesNotChangeTheSentence)
{
    check("1.0", "Version: 1.0");
    EXPECT_TRUE(check("1.0", "Version: 2.0").isHasNewVersion());
    EXPECT_EQ(sentence(), IsCurrent);
    EXPECT_EQ(product(), "Orvana Plurimo");
}

TEST_F(VersionCheck, CheckWithoutAVersionEndsSilently)
{
    for (const std::string file : {"1.2.3", "", "Version: 9 \xFF"})
        EXPECT_FALSE(check("1.0", file).isVisible()) << file;
    EXPECT_FALSE(check("1.0", std::string("\0Version: 9", 11)).isVisible());
    EXPECT_FALSE(m_window->isHasNewVersion());
}

TEST_F(VersionCheck, CheckWithoutAServerEndsSilently)
{
    const test::WebBase deaf(test::deafAddress());
    EXPECT_FALSE(check("1.0", "Version: 2.0").isVisible());
}

TEST_F(VersionCheck, FirstCheckThatIsAnsweredSetsTheSentence)
{
    check("1.0", "nothing");
    check("1.0", "Version: 2.0");
    EXPECT_EQ(sentence(), IsNewer);
}

TEST_F(VersionCheck, LinkIsOpenedThroughTheHost)
{
    check("1.0", "Version: 2.0");
    auto *field = m_window->verMsg3();
    QTest::mouseClick(field, Qt::LeftButton, {}, field->rect().center());
    EXPECT_EQ(m_host.openedPages(), std::vector<std::string>{downloadPage()});
}

TEST_F(VersionCheck, OkAndEscapeCloseTheWindow)
{
    check("1.0", "Version: 1.0");
    QTest::mouseClick(m_window->findChild<QPushButton *>(), Qt::LeftButton);
    EXPECT_FALSE(m_window->isVisible());
    check("1.0", "Version: 1.0");
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    EXPECT_FALSE(m_window->isVisible());
}

} // namespace orvana
