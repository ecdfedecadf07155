#include "enclosures/DefinitionFolder.h"
#include "support/TemporaryTree.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvana::enclosures
{

namespace
{

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

constexpr const char *Good = R"({"version":1,"name":"Dock","bays":{"A":{"path":"a"},"B":{"path":"b"}}})";

class DefinitionFolder : public testing::Test
{
protected:
    DefinitionFolder() { fs::permissions(m_tree.folder("d"), fs::perms(0755)); }

    std::string file(const std::string &name, const std::string &text = Good)
    {
        const auto path = m_tree.file("d/" + name, text);
        fs::permissions(path, fs::perms(0644));
        return path;
    }

    DefinitionSet read(Trust trust = Trust::RootOrUser) const
    {
        return readDefinitions(m_tree.path("d"), trust);
    }

    Lines ids() const
    {
        Lines found;
        for (const auto &definition : read().definitions)
            found.push_back(definition.id);
        return found;
    }

    /// What is wrong with the only file.
    std::string problem(Trust trust = Trust::RootOrUser) const
    {
        const auto set = read(trust);
        EXPECT_TRUE(set.definitions.empty());
        EXPECT_EQ(set.problems.size(), 1U);
        auto text = set.problems.empty() ? std::string() : set.problems.front();
        const auto folder = m_tree.path("d");
        return text.starts_with(folder) ? text.substr(folder.size()) : text;
    }

    test::TemporaryTree m_tree;
};

} // namespace

TEST_F(DefinitionFolder, FilesAreReadInTheOrderOfTheirNames)
{
    file("b.json");
    file("a.json");
    file("a.json.dpkg-old");
    file(".c.json");
    file("readme");
    EXPECT_EQ(ids(), (Lines{"a", "b"}));
    EXPECT_TRUE(read().problems.empty());
}

TEST_F(DefinitionFolder, FolderThatIsMissingHasNoDefinitions)
{
    const auto set = readDefinitions(m_tree.path("none/deeper"), Trust::Root);
    EXPECT_TRUE(set.definitions.empty());
}

TEST_F(DefinitionFolder, WrongFileIsNamedAndTheOthersCount)
{
    file("a.json", "{");
    file("b.json");
    file("C.json");
    EXPECT_EQ(ids(), Lines{"b"});
    EXPECT_EQ(read().problems, (Lines{m_tree.path("d/C.json") + ": must have a name of a-z, 0-9 and \"-\"",
                                      m_tree.path("d/a.json") + ": not JSON"}));
}

TEST_F(DefinitionFolder, FileThatOthersCanWriteToIsRefused)
{
    const auto path = file("a.json");
    for (const int mode : {0664, 0646, 0666}) {
        fs::permissions(path, static_cast<fs::perms>(mode));
        EXPECT_EQ(problem(), "/a.json: can be written to by others than its owner");
    }
}

TEST_F(DefinitionFolder, FolderThatOthersCanWriteToHasNoDefinitions)
{
    file("a.json");
    for (const int mode : {0775, 0757}) {
        fs::permissions(m_tree.path("d"), static_cast<fs::perms>(mode));
        EXPECT_EQ(problem(), " can be written to by others than its owner; no definition in it counts");
    }
    fs::permissions(m_tree.path("d"), fs::perms(0755));
}

TEST_F(DefinitionFolder, FileOfAnotherOwnerIsRefused)
{
    const auto path = file("a.json");
    if (::chown(path.c_str(), 12345, 12345) != 0) {
        // Without root's rights the file is the user's own, which root does not trust.
        EXPECT_FALSE(read(Trust::Root).problems.empty());
        return;
    }
    EXPECT_EQ(problem(), "/a.json: is not owned by root");
    EXPECT_EQ(problem(Trust::Root), "/a.json: is not owned by root");
}

TEST_F(DefinitionFolder, LinkIsRefusedAndSoIsALinkOnTheWay)
{
    m_tree.file("elsewhere.json", Good);
    fs::create_symlink(m_tree.path("elsewhere.json"), m_tree.path("d/a.json"));
    EXPECT_EQ(problem(), "/a.json: is a link");
    fs::create_directory_symlink(m_tree.path("d"), m_tree.path("link"));
    const auto set = readDefinitions(m_tree.path("link"), Trust::RootOrUser);
    EXPECT_TRUE(set.definitions.empty());
    EXPECT_EQ(set.problems.size(), 1U);
}

TEST_F(DefinitionFolder, FifoAndFolderAreRefusedAtOnce)
{
    ASSERT_EQ(::mkfifo(m_tree.path("d/a.json").c_str(), 0644), 0);
    EXPECT_EQ(problem(), "/a.json: is not a regular file");
    ::unlink(m_tree.path("d/a.json").c_str());
    m_tree.folder("d/a.json");
    EXPECT_EQ(problem(), "/a.json: is not a regular file");
}

TEST_F(DefinitionFolder, LargeFileIsRefused)
{
    file("a.json", Good + std::string(10'000'000, ' '));
    EXPECT_EQ(problem(), "/a.json: has more than 64 KiB");
    file("a.json", Good + std::string(65'000, ' '));
    EXPECT_EQ(ids(), Lines{"a"});
}

TEST_F(DefinitionFolder, NoMoreThan64FilesAreRead)
{
    for (int i = 0; i < 70; ++i)
        file("d" + std::to_string(100 + i) + ".json");
    EXPECT_EQ(read().definitions.size(), 64U);
    EXPECT_EQ(read().problems.size(), 1U);
}

TEST_F(DefinitionFolder, AddedDefinitionIsReadBackAndNeverReplacesOne)
{
    const auto folder = m_tree.path("etc/new/enclosures.d");
    const auto definition = readDefinition("dock", Good).value();
    ASSERT_TRUE(addDefinition(folder, definition));
    EXPECT_EQ(readDefinitions(folder, Trust::RootOrUser).definitions, std::vector{definition});
    struct stat status{};
    ASSERT_EQ(::stat((folder + "/dock.json").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0644U);
    auto other = definition;
    other.name = "Another";
    const auto again = addDefinition(folder, other);
    ASSERT_FALSE(again);
    EXPECT_EQ(again.error(), folder + "/dock.json: is there already");
    EXPECT_EQ(readDefinitions(folder, Trust::RootOrUser).definitions, std::vector{definition});
    EXPECT_EQ(test::treeOf(folder), Lines{"dock.json"});
}

TEST_F(DefinitionFolder, AddedDefinitionFollowsNoLink)
{
    m_tree.file("victim", "untouched");
    fs::create_symlink(m_tree.path("victim"), m_tree.path("d/dock.json"));
    EXPECT_FALSE(addDefinition(m_tree.path("d"), readDefinition("dock", Good).value()));
    EXPECT_EQ(m_tree.read("victim"), "untouched");
}

TEST_F(DefinitionFolder, RemovedDefinitionIsGoneAndAnotherNameIsRefused)
{
    file("dock.json");
    m_tree.file("victim.json", Good);
    EXPECT_FALSE(removeDefinition(m_tree.path("d"), "../victim"));
    EXPECT_TRUE(m_tree.exists("victim.json"));
    const auto missing = removeDefinition(m_tree.path("d"), "none");
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error(), m_tree.path("d/none.json") + ": No such file or directory");
    EXPECT_TRUE(removeDefinition(m_tree.path("d"), "dock"));
    EXPECT_EQ(ids(), Lines{});
}

} // namespace orvana::enclosures
