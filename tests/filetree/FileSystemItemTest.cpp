#include "filetree/FileSystemItem.h"

#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/fsuid.h>
#include <sys/stat.h>

namespace orvana
{

using test::TemporaryTree;

namespace
{

class FileTree : public testing::Test
{
protected:
    FileTree() { FileSystemItem::useHost(host); }

    FileSystemItem &showRoot()
    {
        spare.setrepoRootPath(std::make_shared<const std::string>(tree.root()));
        return *FileSystemItem::rootItem();
    }

    static std::vector<std::string> namesIn(FileSystemItem &item)
    {
        std::vector<std::string> names;
        for (const auto &child : item.children())
            names.push_back(child->relativePath());
        std::sort(names.begin(), names.end());
        return names;
    }

    static FileSystemItem &childNamed(FileSystemItem &item, const std::string &name)
    {
        for (const auto &child : item.children()) {
            if (child->relativePath() == name)
                return *child;
        }
        throw std::runtime_error("no child " + name);
    }

    TemporaryTree tree;
    test::TestHost host{tree.path("home")};
    FileSystemItem spare{""};
};

/// Root may read everything. While this object lives, this thread accesses files as another user.
struct OrdinaryAccess
{
    OrdinaryAccess() : was(::setfsuid(65534)) {}
    ~OrdinaryAccess() { ::setfsuid(static_cast<uid_t>(was)); }
    OrdinaryAccess(const OrdinaryAccess &) = delete;
    OrdinaryAccess &operator=(const OrdinaryAccess &) = delete;
    int was;
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(FileTree, RootHasTheWholePathAndStartsTickedAndClosed)
{
    auto &root = showRoot();
    EXPECT_EQ(root.relativePath(), tree.root());
    EXPECT_EQ(root.fullPath(), tree.root());
    EXPECT_EQ(root.parent(), nullptr);
    EXPECT_EQ(root.isChecked(), 1);
    EXPECT_FALSE(root.isExpand());
}

TEST_F(FileTree, ChildKnowsItsNameItsRowAndItsWholePath)
{
    tree.file("A/one");
    tree.file("A/two");
    auto &folder = childNamed(showRoot(), "A");
    ASSERT_EQ(folder.numberOfChildren(), 2);
    for (std::size_t n = 0; n < 2; ++n) {
        auto *child = folder.childAtIndex(n);
        EXPECT_EQ(child->row(), n);
        EXPECT_EQ(child->parent(), &folder);
        EXPECT_EQ(child->fullPath(), tree.root() + "/A/" + child->relativePath());
    }
}

TEST_F(FileTree, PathBelowASlashRootHasOneSlash)
{
    FileSystemItem slash("/");
    const FileSystemItem child("tmp", &slash);
    EXPECT_EQ(child.fullPath(), "/tmp");
}

TEST_F(FileTree, SymbolicLinkToAFolderIsNotListed)
{
    tree.link("Link", tree.folder("Real"));
    EXPECT_EQ(namesIn(showRoot()), Names{"Real"});
}

TEST_F(FileTree, HiddenExtensionIsLeftOutExceptForPackages)
{
    const auto photo = tree.file("Photo.jpg");
    const auto song = tree.folder("Song.band");
    const auto inside = tree.file("Song.band/Inside.wav");
    if (!test::hideExtension(photo) || !test::hideExtension(song) || !test::hideExtension(inside))
        GTEST_SKIP() << "no extended attributes in the temporary folder";
    auto &root = showRoot();
    EXPECT_EQ(namesIn(root), Names{"Song.band"});
    EXPECT_EQ(namesIn(childNamed(root, "Song.band")), Names{"Inside.wav"});
}

TEST_F(FileTree, DotNamesAreNeverListed)
{
    tree.file(".DS_Store");
    tree.folder(".Trashes");
    tree.file("Shown");
    EXPECT_EQ(namesIn(showRoot()), Names{"Shown"});
}

TEST_F(FileTree, NameThatHoldsAReservedWordIsNotListed)
{
    tree.folder("Temporary Items Backup");
    tree.file("My System Volume Information.txt");
    tree.folder("Network Trash Folder");
    tree.folder("temporary items");
    EXPECT_EQ(namesIn(showRoot()), Names{"temporary items"});
}

TEST_F(FileTree, EverythingBelowAReservedWordInTheRootIsLeftOut)
{
    tree.file("Temporary Items/Sub/file");
    spare.setrepoRootPath(std::make_shared<const std::string>(tree.path("Temporary Items/Sub")));
    EXPECT_EQ(FileSystemItem::rootItem()->numberOfChildren(), 0);
}

TEST_F(FileTree, OnlyTheUsersOwnLibraryAndPublicAreLeftOut)
{
    for (const char *folder :
         {"home/Library", "home/Public", "home/Music/Library", "other/Library", "Library"})
        tree.folder(folder);
    auto &root = showRoot();
    EXPECT_EQ(namesIn(childNamed(root, "home")), Names{"Music"});
    EXPECT_EQ(namesIn(childNamed(childNamed(root, "home"), "Music")), Names{"Library"});
    EXPECT_EQ(namesIn(childNamed(root, "other")), Names{"Library"});
}

TEST_F(FileTree, ClearingAFolderReachesWhatWasBuiltAndNotWhatIsBuiltLater)
{
    tree.file("A/built/file");
    tree.file("A/later/file");
    auto &folder = childNamed(showRoot(), "A");
    auto &built = childNamed(folder, "built");
    auto &file = childNamed(built, "file");
    auto &later = childNamed(folder, "later");
    folder.setChecked(0);
    EXPECT_EQ(folder.isChecked(), 0);
    EXPECT_EQ(built.isChecked(), 0);
    EXPECT_EQ(file.isChecked(), 0);
    EXPECT_EQ(later.isChecked(), 0);
    EXPECT_EQ(childNamed(later, "file").isChecked(), 1);
}

TEST_F(FileTree, MixedStaysOnTheFolderItself)
{
    tree.file("A/one");
    tree.file("A/two");
    auto &folder = childNamed(showRoot(), "A");
    childNamed(folder, "one").setChecked(0);
    folder.setChecked(-1);
    EXPECT_EQ(folder.isChecked(), -1);
    EXPECT_EQ(childNamed(folder, "one").isChecked(), 0);
    EXPECT_EQ(childNamed(folder, "two").isChecked(), 1);
}

TEST_F(FileTree, ParentIsNeverReckonedFromItsChildren)
{
    tree.file("A/one");
    auto &folder = childNamed(showRoot(), "A");
    childNamed(folder, "one").setChecked(0);
    EXPECT_EQ(folder.isChecked(), 1);
}

TEST_F(FileTree, FileHasMinusOneChildrenAndAnEmptyFolderNone)
{
    tree.file("file");
    tree.folder("empty");
    auto &root = showRoot();
    EXPECT_EQ(childNamed(root, "file").numberOfChildren(), -1);
    EXPECT_EQ(&childNamed(root, "file").children(), &FileSystemItem::leafMarker());
    EXPECT_EQ(childNamed(root, "empty").numberOfChildren(), 0);
    EXPECT_NE(&childNamed(root, "empty").children(), &FileSystemItem::leafMarker());
}

TEST_F(FileTree, RootThatDoesNotExistIsALeaf)
{
    spare.setrepoRootPath(std::make_shared<const std::string>(tree.path("gone")));
    EXPECT_EQ(FileSystemItem::rootItem()->numberOfChildren(), -1);
}

TEST_F(FileTree, EmptyRootIsALeafAndNotTheWorkingFolder)
{
    EXPECT_EQ(*FileSystemItem::repoRoot(), "");
    EXPECT_EQ(FileSystemItem::rootItem()->numberOfChildren(), -1);
    EXPECT_FALSE(FileSystemItem::rootItem()->attributes());
}

TEST_F(FileTree, AttributesAreThoseOfTheNodesOwnPathReadAnewEachTime)
{
    const auto path = tree.file("A/file", "12345");
    tree.link("A/link", path);
    auto &folder = childNamed(showRoot(), "A");
    auto &file = childNamed(folder, "file");
    ASSERT_TRUE(file.attributes());
    EXPECT_EQ(file.attributes()->size, 5U);
    EXPECT_EQ(file.attributes()->type, platform::FileType::Regular);
    EXPECT_EQ(folder.attributes()->type, platform::FileType::Folder);
    const FileSystemItem link("link", &folder);
    EXPECT_EQ(link.attributes()->type, platform::FileType::SymbolicLink) << "a link stands for itself";
    tree.file("A/file", "1234567");
    EXPECT_EQ(file.attributes()->size, 7U);
    ::unlink(path.c_str());
    EXPECT_FALSE(file.attributes());
}

TEST_F(FileTree, SamePathObjectKeepsTheTreeAndAnEqualTextDropsIt)
{
    const auto path = std::make_shared<const std::string>(tree.root());
    spare.setrepoRootPath(path);
    FileSystemItem::rootItem()->setChecked(0);
    spare.setrepoRootPath(path);
    EXPECT_EQ(FileSystemItem::rootItem()->isChecked(), 0);
    spare.setrepoRootPath(std::make_shared<const std::string>(tree.root()));
    EXPECT_EQ(FileSystemItem::rootItem()->isChecked(), 1);
}

TEST_F(FileTree, FolderIsReadOnce)
{
    tree.file("A/one");
    auto &folder = childNamed(showRoot(), "A");
    EXPECT_EQ(folder.numberOfChildren(), 1);
    tree.file("A/two");
    EXPECT_EQ(folder.numberOfChildren(), 1);
}

TEST_F(FileTree, AskingWhetherItIsALeafReadsNoFolder)
{
    tree.file("A/one");
    auto &folder = childNamed(showRoot(), "A");
    EXPECT_FALSE(folder.isLeaf());
    tree.file("A/two");
    EXPECT_EQ(folder.numberOfChildren(), 2);
}

TEST_F(FileTree, UnreadableFolderIsAFolderWithNoChildren)
{
    const auto closed = tree.folder("Closed");
    tree.file("Closed/file");
    ::chmod(tree.root().c_str(), 0755);
    ::chmod(closed.c_str(), 0);
    auto &item = childNamed(showRoot(), "Closed");
    {
        const OrdinaryAccess nobody;
        EXPECT_EQ(item.numberOfChildren(), 0);
    }
    ::chmod(closed.c_str(), 0700);
}

TEST_F(FileTree, NamesKeepTheirBytes)
{
    const std::string name = "a\nb\xff" + std::string("\xe2\x80\xae", 3);
    tree.file(name);
    EXPECT_EQ(namesIn(showRoot()), Names{name});
}

TEST_F(FileTree, VisibleRowsFollowOpenFoldersFromFirstToLast)
{
    tree.file("A/one");
    tree.file("B/two");
    auto &root = showRoot();
    EXPECT_EQ(visibleRows(root).size(), 1U);
    root.setExpanded(true);
    namesIn(root);
    auto &a = childNamed(root, "A");
    a.setExpanded(true);
    childNamed(a, "one").setChecked(0);
    const auto rows = visibleRows(root);
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[0].fullPath, tree.root());
    EXPECT_FALSE(rows[0].isTicked());
    const auto at = [&](const std::string &path) {
        return std::find_if(rows.begin(), rows.end(), [&](const auto &row) { return row.fullPath == path; });
    };
    EXPECT_FALSE(at(tree.path("A"))->isTicked()) << "an open folder does not stand for itself";
    EXPECT_FALSE(at(tree.path("A/one"))->isTicked());
    EXPECT_TRUE(at(tree.path("B"))->isTicked());
    EXPECT_EQ(at(tree.path("A/one")) - at(tree.path("A")), 1);
}

TEST_F(FileTree, NodeIsSmall)
{
    EXPECT_LT(sizeof(FileSystemItem) - sizeof(std::string), 200U);
}

} // namespace orvana
