#include "platform/DeepFolder.h"

#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>
#include <random>

namespace orvana::platform
{

/// One folder, opened twice: as it is, and as a deep one.
class DeepFolderTest : public testing::Test
{
protected:
    DeepFolderTest() : m_plain(open()), m_deep(open()) {}

    std::unique_ptr<Folder> open() { return m_files.openFolder(m_tree.root(), Reach::Beneath).value(); }

    /// Makes folders of this name in each other, and returns the path of the innermost.
    std::string makeLevels(const std::string &top, const std::string &name, std::size_t levels)
    {
        auto path = top;
        EXPECT_TRUE(m_deep.makeFolder(path, m_like));
        for (std::size_t level = 1; level < levels; ++level) {
            path += "/" + name;
            EXPECT_TRUE(m_deep.makeFolder(path, m_like)) << level;
        }
        return path;
    }

    std::uint64_t inodeAt(const Folder &folder, std::string_view path)
    {
        const auto read = folder.attributes(path, Links::Follow, Want::Basics);
        return read ? read->inode : 0;
    }

    test::TemporaryTree m_tree;
    posix::PosixVolumeFiles m_files;
    const Attributes m_like{.type = FileType::Folder, .permissions = 0755};
    std::unique_ptr<Folder> m_plain;
    DeepFolder m_deep;
};

TEST_F(DeepFolderTest, EntriesAreTheSameAsWithoutIt)
{
    std::vector<std::string> paths;
    for (const auto &[top, length, levels] :
         {std::tuple("one", 1, 3000), std::tuple("long", 250, 100), std::tuple("middle", 30, 400)}) {
        auto path = makeLevels(top, std::string(static_cast<std::size_t>(length), 'x'),
                               static_cast<std::size_t>(levels));
        for (; path != top; path.resize(path.rfind('/')))
            paths.push_back(path);
    }
    ASSERT_GT(paths.size(), 3000U);
    std::mt19937 random(7);
    for (int i = 0; i < 2000; ++i) {
        const auto &path = paths[random() % paths.size()];
        const auto inode = inodeAt(*m_plain, path);
        ASSERT_NE(inode, 0U);
        ASSERT_EQ(inodeAt(m_deep, path), inode) << path.size();
        ASSERT_EQ(inodeAt(m_deep, path + "/none"), 0U);
    }
    for (const auto &path : paths)
        ASSERT_EQ(inodeAt(m_deep, path), inodeAt(*m_plain, path)) << path.size();
    EXPECT_EQ(m_deep.movedFolder(), std::nullopt);
}

TEST_F(DeepFolderTest, FilesFarBelowAreMadeReadListedAndRemoved)
{
    const auto folder = makeLevels("top", "level", 2000);
    ASSERT_TRUE(m_deep.createFile(folder + "/file", {.permissions = 0640}));
    ASSERT_TRUE(m_deep.makeLink(folder + "/link", "file"));
    EXPECT_EQ(m_deep.linkText(folder + "/link"), "file");
    EXPECT_TRUE(m_deep.openFile(folder + "/link", Access::Read));
    EXPECT_EQ(m_deep.createFile(folder + "/file", {}).error().problem, FileProblem::Exists);
    auto names = m_deep.list(folder).value();
    std::size_t count = 0;
    for (; !names.empty(); names.takeNext())
        ++count;
    EXPECT_EQ(count, 2U);
    EXPECT_TRUE(m_deep.remove(folder + "/link"));
    EXPECT_TRUE(m_deep.finishFolder(folder, {.type = FileType::Folder, .permissions = 0555}));
    EXPECT_EQ(m_plain->attributes(folder, Links::Follow, Want::Basics)->permissions, 0555U);
    EXPECT_EQ(inodeAt(*m_plain, folder + "/file"), inodeAt(m_deep, folder + "/file"));
    EXPECT_EQ(inodeAt(m_deep, folder + "/link"), 0U);
}

TEST_F(DeepFolderTest, FolderThatIsMovedAwayIsToldAlsoOnceItIsLeft)
{
    const auto folder = makeLevels("top", "level", 500);
    makeLevels("other", "level", 500);
    EXPECT_EQ(m_deep.movedFolder(), std::nullopt);
    ASSERT_TRUE(m_plain->rename("top", "away", Existing::Keep));
    EXPECT_NE(inodeAt(m_deep, "other/level"), 0U);
    EXPECT_EQ(m_deep.movedFolder(), std::nullopt) << "nothing of it was open any more";

    EXPECT_NE(inodeAt(m_deep, "away" + folder.substr(3)), 0U);
    ASSERT_TRUE(m_plain->rename("away", "top", Existing::Keep));
    EXPECT_NE(inodeAt(m_deep, "away" + folder.substr(3)), 0U) << "what is open stays in use";
    EXPECT_NE(inodeAt(m_deep, folder), 0U);
    ASSERT_TRUE(m_deep.movedFolder());
    EXPECT_TRUE(m_deep.movedFolder()->starts_with("away/level"));
}

TEST_F(DeepFolderTest, FolderThatStandsInThePlaceOfAnOpenOneIsNotTakenForIt)
{
    const auto folder = makeLevels("top", "level", 500);
    ASSERT_TRUE(m_plain->rename("top", "away", Existing::Keep));
    {
        DeepFolder fresh(open());
        ASSERT_TRUE(fresh.makeFolder("top", m_like));
        auto path = std::string("top");
        for (int level = 1; level < 500; ++level)
            ASSERT_TRUE(fresh.makeFolder(path += "/level", m_like));
    }
    EXPECT_EQ(inodeAt(m_deep, folder), inodeAt(*m_plain, "away" + folder.substr(3)));
    EXPECT_TRUE(m_deep.movedFolder());
}

TEST_F(DeepFolderTest, LinkThatLeadsUpTheTreeIsFollowedAsWithoutIt)
{
    const auto folder = makeLevels("top", "level", 400);
    ASSERT_TRUE(m_deep.makeFolder("aside", m_like));
    std::string up;
    for (int level = 0; level < 400; ++level)
        up += "../";
    ASSERT_TRUE(m_plain->makeLink(folder + "/link", up + "aside"));
    ASSERT_NE(inodeAt(*m_plain, folder + "/link"), 0U);
    EXPECT_EQ(inodeAt(m_deep, folder + "/link"), inodeAt(m_deep, "aside"));
    ASSERT_TRUE(m_plain->makeLink(folder + "/out", up + "../aside"));
    EXPECT_EQ(m_deep.attributes(folder + "/out", Links::Follow, Want::Basics).error().problem,
              FileProblem::LeadsOutOfVolume);
}

TEST_F(DeepFolderTest, NameThatIsTooLongIsAnErrorAndNoLoop)
{
    const auto folder = makeLevels("top", "level", 400);
    EXPECT_EQ(
        m_deep.attributes(folder + "/" + std::string(5000, 'x'), Links::Follow, Want::Basics).error().code,
        ENAMETOOLONG);
    EXPECT_EQ(m_deep.attributes(std::string(9000, 'x'), Links::Follow, Want::Basics).error().code,
              ENAMETOOLONG);
    const auto slash = folder.find('/', 1500);
    EXPECT_EQ(inodeAt(m_deep, folder.substr(0, slash) + "/" + folder.substr(slash)), inodeAt(m_deep, folder));
}

} // namespace orvana::platform
