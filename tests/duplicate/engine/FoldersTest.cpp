// Folders that a run makes on its destinations, finds there, or cannot make.

#include "duplicate/engine/EngineFixture.h"

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace orvana
{

using Lines = std::vector<std::string>;

class FileCopyFolders : public test::EngineTest
{
};

TEST_F(FileCopyFolders, FileInThePlaceOfAnEmptyFolderIsInTheReport)
{
    m_tree.folder("source/docs/new");
    m_tree.file("a/docs/new", "a file");
    runJob({"docs"}, {"a", "b"});
    EXPECT_EQ(report()["problems"][0]["reason"], "The folder cannot be created: Not a directory");
    EXPECT_FALSE(isAllDone(m_report->summary()));
    EXPECT_TRUE(m_systemLog.all().empty());
}

TEST_F(FileCopyFolders, CreateFileFolderDoesNotTouchAnExistingFolder)
{
    setJob({});
    m_tree.folder("a/there");
    ASSERT_EQ(::chmod(copy("a", "there").c_str(), 0755), 0);
    m_engine.createFileFolder(copy("a", "there"), platform::Attributes{.permissions = 0500});
    struct stat status{};
    ASSERT_EQ(::stat(copy("a", "there").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0755U);
}

TEST_F(FileCopyFolders, FolderThatCannotBeMadeIsTold)
{
    m_tree.file("source/docs/file.txt");
    m_tree.file("a/docs", "in the way");
    faultsOf("b").readOnly = true;
    runJob({"docs"}, {"a", "b"});
    const auto lines = m_systemLog.all();
    EXPECT_NE(std::find(lines.begin(), lines.end(), "Create " + copy("b", "docs") + " Folder Fail \n"),
              lines.end());
    EXPECT_EQ(m_tree.read("a/docs"), "in the way");
}

TEST_F(FileCopyFolders, FolderBelowAFileIsTold)
{
    m_tree.file("source/docs/inner/file.txt");
    m_tree.file("a/docs", "in the way");
    runJob({"docs"});
    const auto lines = m_systemLog.all();
    EXPECT_NE(std::find(lines.begin(), lines.end(), "Create " + copy("a", "docs/inner") + " Folder Fail \n"),
              lines.end());
    EXPECT_EQ(std::find(lines.begin(), lines.end(), "Create " + copy("a", "docs") + " Folder Fail \n"),
              lines.end())
        << "something exists there";
    EXPECT_EQ(m_tree.read("a/docs"), "in the way");
}

TEST_F(FileCopyFolders, FolderThatACutOffRunLeftOpenGetsItsPermissions)
{
    const auto modeOf = [](const std::string &path) {
        struct stat status{};
        EXPECT_EQ(::stat(path.c_str(), &status), 0);
        return status.st_mode & 07777U;
    };
    for (const char *name : {"open", "owners"}) {
        m_tree.file(std::string("source/") + name + "/file.txt");
        ASSERT_EQ(::chmod(m_tree.path(std::string("source/") + name).c_str(), 0550), 0);
        m_tree.folder(std::string("a/") + name);
    }
    ASSERT_EQ(::chmod(copy("a", "open").c_str(), 0750), 0);
    ASSERT_EQ(::chmod(copy("a", "owners").c_str(), 0755), 0);
    runJob({"open", "owners"});
    EXPECT_EQ(modeOf(copy("a", "open")), 0550U);
    EXPECT_EQ(modeOf(copy("a", "owners")), 0755U) << "these permissions are no run's";
    for (const char *folder : {"source/open", "source/owners", "a/open"})
        ::chmod(m_tree.path(folder).c_str(), 0755);
}

TEST_F(FileCopyFolders, CreateFileFolderMakesWhatIsMissingAboveAndLeavesWhatIsThere)
{
    setJob({});
    platform::Attributes like;
    like.permissions = 0750;
    m_engine.createFileFolder(copy("a", "one/two/three"), like);
    struct stat status{};
    ASSERT_EQ(::stat(copy("a", "one/two").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0750U);
    m_tree.file("a/file", "stays");
    m_engine.createFileFolder(copy("a", "file"), like);
    EXPECT_EQ(m_tree.read("a/file"), "stays");
    EXPECT_TRUE(m_systemLog.all().empty());
    m_engine.createFileFolder("/beside/a", like);
    EXPECT_EQ(m_systemLog.all(), (Lines{"Create /beside/a Folder Fail \n"}));
}

} // namespace orvana
