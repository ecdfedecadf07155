// The walk over the selection: what is copied, where to, and what is left out.

#include "duplicate/engine/EngineFixture.h"

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace orvana
{

using Lines = std::vector<std::string>;

class FileCopyWalk : public test::EngineTest
{
};

TEST_F(FileCopyWalk, EmptySelectionEndsAtOnce)
{
    runJob({});
    EXPECT_EQ(m_recorder.all(), (Lines{"TotalProgress 1", "BackupFinish"}));
}

TEST_F(FileCopyWalk, TickedFileGoesToItsPlaceBelowEachDestination)
{
    m_tree.file("source/docs/letter.txt", "dear");
    runJob({"docs/letter.txt"}, {"a", "b"});
    EXPECT_EQ(m_tree.read("a/docs/letter.txt"), "dear");
    EXPECT_EQ(m_tree.read("b/docs/letter.txt"), "dear");
}

TEST_F(FileCopyWalk, VolumeRootIsCopiedWithoutAFolderForItself)
{
    m_tree.file("source/one.txt");
    m_tree.file("source/sub/two.txt");
    runJob({""});
    EXPECT_EQ(test::treeOf(m_tree.path("a")), (Lines{"one.txt", "sub", "sub/two.txt"}));
}

TEST_F(FileCopyWalk, FoldersWithoutContentAreMadeToo)
{
    m_tree.folder("source/docs/empty/inner");
    runJob({"docs"});
    EXPECT_EQ(test::treeOf(m_tree.path("a")), (Lines{"docs", "docs/empty", "docs/empty/inner"}));
}

TEST_F(FileCopyWalk, LinkBelowASubfolderIsLeftOut)
{
    m_tree.file("source/docs/sub/real.txt");
    m_tree.link("source/docs/sub/link.txt", "real.txt");
    m_tree.link("source/docs/sub/deeper/link", "..");
    runJob({"docs"});
    EXPECT_EQ(test::treeOf(m_tree.path("a")),
              (Lines{"docs", "docs/sub", "docs/sub/deeper", "docs/sub/real.txt"}));
    EXPECT_EQ(report()["leftOut"], 2);
}

TEST_F(FileCopyWalk, LinkDirectlyInATickedFolderIsCopiedAsWhatItPointsTo)
{
    m_tree.file("source/real.txt", "pointed at");
    m_tree.file("source/other/inside.txt", "in a folder");
    m_tree.link("source/docs/file", "../real.txt");
    m_tree.link("source/docs/folder", "../other");
    runJob({"docs"});
    EXPECT_EQ(m_tree.read("a/docs/file"), "pointed at");
    EXPECT_EQ(m_tree.read("a/docs/folder/inside.txt"), "in a folder");
    struct stat status{};
    ASSERT_EQ(::lstat(copy("a", "docs/file").c_str(), &status), 0);
    EXPECT_TRUE(S_ISREG(status.st_mode));
    EXPECT_EQ(status.st_mode & 0002U, 0U) << "a link has no permissions of its own to give";
}

TEST_F(FileCopyWalk, DanglingLinkDirectlyInATickedFolderIsAnnouncedAndPassedOver)
{
    m_tree.link("source/docs/link", "nowhere");
    runJob({"docs"});
    EXPECT_EQ(m_recorder.messages(), (Lines{"Duplicating " + source("docs/link")}));
    EXPECT_FALSE(m_tree.exists("a/docs/link"));
    EXPECT_EQ(report()["destinations"][0]["failed"], 1);
}

TEST_F(FileCopyWalk, LinkToAFolderAboveEndsAfterOneRound)
{
    m_tree.file("source/docs/file.txt");
    m_tree.link("source/docs/up", "..");
    runJob({"docs"});
    EXPECT_TRUE(m_tree.exists("a/docs/up/docs/file.txt"));
    EXPECT_FALSE(m_tree.exists("a/docs/up/docs/up"));
}

TEST_F(FileCopyWalk, BareNameIsTestedAgainstTheWorkingFolder)
{
    // A link of the same name in the working folder keeps the entry from being copied.
    const test::TemporaryTree standing;
    standing.link("same-name.txt", "anything");
    m_tree.file("source/docs/same-name.txt");
    m_tree.file("source/docs/other.txt");
    const auto before = std::filesystem::current_path();
    ASSERT_EQ(::chdir(standing.root().c_str()), 0);
    runJob({"docs"});
    ASSERT_EQ(::chdir(before.c_str()), 0);
    EXPECT_EQ(test::treeOf(m_tree.path("a")), (Lines{"docs", "docs/other.txt"}));
}

TEST_F(FileCopyWalk, TickedItemItselfIsNeverTested)
{
    m_tree.file("source/Temporary Items", "ticked");
    m_tree.link("source/link", "Temporary Items");
    runJob({"Temporary Items", "link"});
    EXPECT_EQ(m_tree.read("a/Temporary Items"), "ticked");
    EXPECT_EQ(m_tree.read("a/link"), "ticked");
}

TEST_F(FileCopyWalk, HiddenExtensionBelowASubfolderIsLeftOutButABandPackageIsNot)
{
    const auto photo = m_tree.file("source/docs/sub/Photo.jpg");
    const auto song = m_tree.folder("source/docs/sub/Song.band");
    const auto part = m_tree.file("source/docs/sub/Song.band/part");
    if (!test::hideExtension(photo) || !test::hideExtension(song) || !test::hideExtension(part))
        GTEST_SKIP() << "the temporary folder keeps no extended attributes";
    runJob({"docs"});
    EXPECT_FALSE(m_tree.exists("a/docs/sub/Photo.jpg"));
    EXPECT_TRUE(m_tree.exists("a/docs/sub/Song.band/part"));
    m_engine.setBHiddenFiles(true);
    runJob({"docs"});
    EXPECT_TRUE(m_tree.exists("a/docs/sub/Photo.jpg"));
}

TEST_F(FileCopyWalk, HiddenExtensionIsCarriedOver)
{
    const auto photo = m_tree.file("source/docs/Photo.jpg");
    if (!test::hideExtension(photo))
        GTEST_SKIP() << "the temporary folder keeps no extended attributes";
    runJob({"docs"});
    EXPECT_TRUE(m_engine.isSkipFile(copy("a", "docs/Photo.jpg"))) << "the copy's extension is hidden, too";
}

TEST_F(FileCopyWalk, SystemFoldersAreLeftOutWhereverTheyStandInAPath)
{
    m_tree.file("source/docs/sub/Temporary Items/x");
    m_tree.file("source/docs/sub/Network Trash Folder/x");
    m_tree.file("source/docs/sub/System Volume Information/x");
    m_tree.file("source/docs/My Temporary Items.txt");
    m_tree.file("source/docs/temporary items.txt");
    runJob({"docs"});
    EXPECT_EQ(test::treeOf(m_tree.path("a")), (Lines{"docs", "docs/sub", "docs/temporary items.txt"}));
}

TEST_F(FileCopyWalk, SystemFolderAboveTheSourceLeavesOutAllThatIsTestedByItsFullPath)
{
    for (const std::string above : {"Temporary Items", "Network Trash Folder"}) {
        m_tree.file("source/" + above + "/docs/direct", "by its bare name");
        m_tree.file("source/" + above + "/docs/sub/deep", "by its full path");
        runJob({above + "/docs"});
        EXPECT_TRUE(m_tree.exists("a/" + above + "/docs/direct"));
        EXPECT_TRUE(m_tree.exists("a/" + above + "/docs/sub"));
        EXPECT_FALSE(m_tree.exists("a/" + above + "/docs/sub/deep"));
        EXPECT_TRUE(m_engine.isSkipFile("/x/" + above + "/y/z"));
        EXPECT_TRUE(m_engine.isSkipFile("/x/" + above));
    }
}

TEST_F(FileCopyWalk, LibraryAndPublicOfTheOwnHomeAreLeftOutByTheirFullPathOnly)
{
    m_tree.file("home/Library/x");
    m_tree.file("home/Public/x");
    m_tree.file("home/sub/Library/x");
    const std::string home = m_tree.path("home");
    EXPECT_TRUE(m_engine.isSkipFile(home + "/Library"));
    EXPECT_TRUE(m_engine.isSkipFile(home + "/Public"));
    EXPECT_FALSE(m_engine.isSkipFile(home + "/Library/x"));
    EXPECT_FALSE(m_engine.isSkipFile("Library"));
    // Directly in a ticked folder only bare names are tested, one level further down full paths.
    const test::TemporaryTree ticked;
    m_engine.SetBackupDiskValue({home}, m_tree.root(), {ticked.folder("home")});
    m_engine.StartBackup();
    EXPECT_TRUE(ticked.exists("home/home/Library/x"));
    m_engine.SetBackupDiskValue({m_tree.root()}, m_tree.root(), {ticked.folder("above")});
    m_engine.StartBackup();
    EXPECT_EQ(test::treeOf(ticked.path("above")),
              (Lines{"home", "home/sub", "home/sub/Library", "home/sub/Library/x"}));
}

TEST_F(FileCopyWalk, RelativePartIsCutByTheLengthOfTheRootWhereverItStands)
{
    const auto odd = m_tree.file("source/x", "odd");
    // The root "source" is found in the middle; six characters are dropped from the front.
    m_engine.SetBackupDiskValue({odd}, "source", {m_tree.folder("a")});
    m_engine.StartBackup();
    const auto relative = odd.substr(6);
    // The rest does not begin with a slash, so it leads beside the destination and is refused.
    EXPECT_FALSE(test::pathExists(m_tree.path("a") + relative));
    EXPECT_EQ(m_recorder.messages().back(), "Can`t Duplicate " + odd + " to " + m_tree.path("a"));
}

TEST_F(FileCopyWalk, NestedSelectionIsTakenAsGiven)
{
    m_tree.file("source/docs/letter.txt");
    runJob({"docs", "docs/letter.txt"}, {"a"}, 2);
    EXPECT_EQ(m_recorder.messages(), (Lines(2, "Duplicating " + source("docs/letter.txt"))));
    EXPECT_EQ(m_recorder.count("TotalProgress"), 3U);
}

TEST_F(FileCopyWalk, TickedFileWhoseParentIsNotTickedGetsFoldersLikeTheFile)
{
    const auto letter = m_tree.file("source/docs/deep/letter.txt");
    ASSERT_EQ(::chmod(letter.c_str(), 0444), 0);
    runJob({"docs/deep/letter.txt"});
    struct stat status{};
    for (const char *folder : {"docs", "docs/deep"}) {
        ASSERT_EQ(::stat(copy("a", folder).c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, 0555U) << folder << ": readable, so searchable, and not writable";
    }
    EXPECT_EQ(m_tree.read("a/docs/deep/letter.txt"), "content");
}

TEST_F(FileCopyWalk, FolderProtectionIsSetAfterItsContent)
{
    m_tree.file("source/docs/inner/file.txt");
    ASSERT_EQ(::chmod(source("docs/inner").c_str(), 0555), 0);
    ASSERT_EQ(::chmod(source("docs").c_str(), 0500), 0);
    runJob({"docs"});
    struct stat status{};
    ASSERT_EQ(::stat(copy("a", "docs/inner").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0555U);
    ASSERT_EQ(::stat(copy("a", "docs").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0500U);
    EXPECT_TRUE(m_tree.exists("a/docs/inner/file.txt"));
}

TEST_F(FileCopyWalk, MissingItemIsAnnouncedAndPassedOver)
{
    m_tree.folder("source");
    runJob({"gone"});
    EXPECT_EQ(m_recorder.all(),
              (Lines{"FileCopyMessage Duplicating " + source("gone"), "TotalProgress 1", "BackupFinish"}));
    EXPECT_EQ(m_systemLog.all().back(), "Open of " + source("gone") + " for reading failed");
}

TEST_F(FileCopyWalk, DestinationInsideTheSourceIsNotCopiedIntoItself)
{
    m_tree.file("source/docs/sub/file.txt");
    const auto inside = m_tree.folder("source/docs/sub/copies");
    m_engine.SetBackupDiskValue({source("docs")}, source(), {inside});
    m_engine.StartBackup();
    EXPECT_TRUE(m_tree.exists("source/docs/sub/copies/docs/sub/file.txt"));
    EXPECT_FALSE(m_tree.exists("source/docs/sub/copies/docs/sub/copies"));
}

TEST_F(FileCopyWalk, LinkIntoADestinationIsLeftOut)
{
    m_tree.file("source/docs/file.txt");
    m_tree.folder("a/docs");
    m_tree.link("source/docs/link", m_tree.path("a/docs"));
    runJob({"docs"});
    EXPECT_EQ(test::treeOf(m_tree.path("a")), (Lines{"docs", "docs/file.txt"}));
    EXPECT_EQ(report()["leftOut"], 1);
}

TEST_F(FileCopyWalk, DestinationThatIsAnotherFolderByNowGetsNothing)
{
    m_tree.file("source/x");
    setJob({"x"}, {"a", "b"});
    std::filesystem::rename(m_tree.path("a"), m_tree.path("pulled"));
    m_tree.folder("a");
    useReport();
    m_engine.StartBackup();
    EXPECT_TRUE(test::treeOf(m_tree.path("a")).empty());
    EXPECT_EQ(m_recorder.messages().back(), "Can`t Duplicate " + source("x") + " to " + m_tree.path("a"));
    EXPECT_EQ(report()["destinations"][0]["onDisk"], false);
    EXPECT_TRUE(m_tree.exists("b/x"));
}

} // namespace orvana
