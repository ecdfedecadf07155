// The content of disks that are about to be erased.

#include "duplicate/plan/DiskContent.h"

#include "support/MadeUpDevices.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

namespace orvana
{

class DiskContentTest : public testing::Test
{
protected:
    /// A volume mounted at a folder of the test's.
    test::VolumePtr mounted(const std::string &folder) { return test::volume(m_tree.folder(folder)); }

    DiskContent contentOf(const test::DiskPtr &disk)
    {
        const DiskSurvey survey(m_host, {disk});
        EXPECT_TRUE(survey.waitUntilOver(std::chrono::seconds(5)));
        return survey.results().at(0);
    }

    test::TemporaryTree m_tree;
    test::TestHost m_host{m_tree.folder("home")};
};

TEST_F(DiskContentTest, FilesOfAllVolumesAreCounted)
{
    m_tree.file("one/a");
    m_tree.file("one/deep/er/b");
    m_tree.file("two/c");
    const auto content = contentOf(test::disk(1, {mounted("one"), mounted("two")}));
    EXPECT_EQ(content.files, 3U);
    EXPECT_TRUE(content.isCountComplete);
    EXPECT_TRUE(content.isKnown);
    EXPECT_FALSE(content.isBlank);
}

TEST_F(DiskContentTest, OneVolumeThatCannotBeReadMakesTheCountIncompleteWhereverItStands)
{
    m_tree.file("good/a");
    m_tree.file("bad/a");
    m_host.faults().volume(m_tree.path("bad")).listErrorAfter = 0;
    for (const auto &names : {std::pair("good", "bad"), std::pair("bad", "good")}) {
        const auto content = contentOf(test::disk(1, {mounted(names.first), mounted(names.second)}));
        EXPECT_FALSE(content.isCountComplete) << names.first;
        EXPECT_FALSE(content.isBlank);
    }
}

TEST_F(DiskContentTest, EmptyVolumesAreBlankAndOneEntryIsNot)
{
    m_tree.folder("empty");
    m_tree.folder("formatted/lost+found");
    EXPECT_TRUE(contentOf(test::disk(1, {mounted("empty"), mounted("formatted")})).isBlank);
    m_tree.folder("formatted/kept");
    EXPECT_FALSE(contentOf(test::disk(1, {mounted("empty"), mounted("formatted")})).isBlank);
    EXPECT_FALSE(contentOf(test::disk(1, {mounted("formatted"), mounted("empty")})).isBlank);
}

TEST_F(DiskContentTest, VolumeThatIsNotMountedMakesTheDiskUnknown)
{
    const auto content = contentOf(test::disk(1, {mounted("empty"), test::unmountedVolume()}));
    EXPECT_FALSE(content.isKnown);
    EXPECT_FALSE(content.isBlank);
}

TEST_F(DiskContentTest, UnformattedDiskIsBlankUnlessItHasPartitions)
{
    EXPECT_TRUE(contentOf(test::blank(test::disk(1))).isBlank);
    const auto partitioned = test::blank(test::disk(1));
    partitioned->setHasOtherPartitions(true);
    EXPECT_FALSE(contentOf(partitioned).isBlank);
    EXPECT_FALSE(contentOf(test::disk(1)).isBlank) << "nothing is known of it";
}

TEST(DiskContentText, SaysWhatIsKnownAndNoMore)
{
    EXPECT_EQ(contentText({.isBlank = true}), "nothing");
    EXPECT_EQ(contentText({}), "something that is not mounted, or cannot be read");
    EXPECT_EQ(contentText({.usedBytes = 2048}), "2.00 KB, and something that is not mounted");
    EXPECT_EQ(contentText({.isKnown = true, .usedBytes = 2048, .files = 1, .isCountComplete = true}),
              "2.00 KB in 1 file");
    EXPECT_EQ(contentText({.isKnown = true, .files = 2}), "at least 2 files");
}

} // namespace orvana
