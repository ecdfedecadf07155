// The promises that every back end of `VolumeFiles` keeps, tested on each back end.

#include "platform/FaultyVolumeFiles.h"
#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace orvana::platform
{

namespace
{

struct RealFiles
{
    posix::PosixVolumeFiles files;
};

struct FaultyFilesWithoutAFault
{
    posix::PosixVolumeFiles real;
    FaultyVolumeFiles files{real};
};

std::vector<std::string> sorted(NameList names)
{
    std::vector<std::string> list;
    while (!names.empty())
        list.emplace_back(names.takeNext());
    std::sort(list.begin(), list.end());
    return list;
}

std::span<const std::byte> bytesOf(const std::string &text)
{
    return std::as_bytes(std::span(text));
}

} // namespace

template <class Backend>
class VolumeFilesContract : public testing::Test
{
protected:
    std::unique_ptr<Folder> volume()
    {
        auto opened = m_backend.files.openFolder(m_tree.folder("volume"), Reach::Beneath);
        EXPECT_TRUE(opened);
        return std::move(*opened);
    }

    static FileProblem problemOf(const auto &result)
    {
        EXPECT_FALSE(result);
        return result ? FileProblem::Other : result.error().problem;
    }

    test::TemporaryTree m_tree;
    Backend m_backend;
};

using Backends = testing::Types<RealFiles, FaultyFilesWithoutAFault>;
TYPED_TEST_SUITE(VolumeFilesContract, Backends);

TYPED_TEST(VolumeFilesContract, CreatesWritesAndReadsBack)
{
    const auto volume = this->volume();
    Attributes like;
    like.permissions = 0640;
    auto created = volume->createFile("file", like);
    ASSERT_TRUE(created);
    EXPECT_TRUE((*created)->write(bytesOf("world"), 6));
    EXPECT_TRUE((*created)->write(bytesOf("hello "), 0));
    EXPECT_TRUE((*created)->startWriteOut(0, File::ToTheEnd));
    EXPECT_TRUE((*created)->finishWriteOut(0, File::ToTheEnd));
    EXPECT_TRUE((*created)->close());
    EXPECT_TRUE(volume->syncVolume());
    const auto opened = volume->openFile("file", Access::Read);
    ASSERT_TRUE(opened);
    std::array<std::byte, 20> buffer{};
    EXPECT_EQ((*opened)->read(buffer, 0), 11U);
    EXPECT_EQ((*opened)->read(buffer, 11), 0U);
    EXPECT_EQ((*opened)->read(buffer, 100), 0U);
    EXPECT_EQ((*opened)->attributes()->size, 11U);
    EXPECT_EQ((*opened)->attributes()->permissions, 0640U);
}

TYPED_TEST(VolumeFilesContract, CreatingNeverTakesOverWhatHasTheName)
{
    const auto volume = this->volume();
    this->m_tree.file("volume/file", "old");
    this->m_tree.folder("volume/folder");
    this->m_tree.link("volume/dangling", "nowhere");
    for (const char *name : {"file", "folder", "dangling"})
        EXPECT_EQ(this->problemOf(volume->createFile(name, {})), FileProblem::Exists) << name;
    EXPECT_EQ(this->problemOf(volume->makeFolder("file", {})), FileProblem::Exists);
    EXPECT_EQ(this->m_tree.read("volume/file"), "old");
    EXPECT_FALSE(this->m_tree.exists("volume/nowhere"));
}

TYPED_TEST(VolumeFilesContract, NothingIsReachedOutsideOfTheVolume)
{
    const auto volume = this->volume();
    this->m_tree.file("outside/file", "safe");
    this->m_tree.link("volume/file", "../outside/file");
    this->m_tree.link("volume/absolute", this->m_tree.path("outside/file"));
    this->m_tree.link("volume/folder", "../outside");
    for (const char *path : {"file", "absolute", "folder/file", "../outside/file"})
        EXPECT_EQ(this->problemOf(volume->openFile(path, Access::Write)), FileProblem::LeadsOutOfVolume)
            << path;
    for (const char *path : {"folder/new", "../new"}) {
        EXPECT_EQ(this->problemOf(volume->createFile(path, {})), FileProblem::LeadsOutOfVolume) << path;
        EXPECT_EQ(this->problemOf(volume->makeFolder(path, {})), FileProblem::LeadsOutOfVolume) << path;
    }
    EXPECT_EQ(this->problemOf(volume->openFolder("folder")), FileProblem::LeadsOutOfVolume);
    EXPECT_EQ(test::treeOf(this->m_tree.path("outside")), (std::vector<std::string>{"file"}));
}

TYPED_TEST(VolumeFilesContract, LinksThatStayInsideAreFollowed)
{
    const auto volume = this->volume();
    this->m_tree.file("volume/folder/file", "old");
    this->m_tree.link("volume/link", "folder/file");
    EXPECT_TRUE(volume->openFile("link", Access::Write));
    EXPECT_EQ(volume->attributes("link", Links::DoNotFollow, Want::Basics)->type, FileType::SymbolicLink);
    EXPECT_EQ(volume->attributes("link", Links::Follow, Want::Basics)->type, FileType::Regular);
}

TYPED_TEST(VolumeFilesContract, OnlyRegularFilesAreOpened)
{
    const auto volume = this->volume();
    this->m_tree.folder("volume/folder");
    ASSERT_EQ(::mkfifo(this->m_tree.path("volume/fifo").c_str(), 0600), 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    this->m_tree.path("volume/socket").copy(address.sun_path, sizeof address.sun_path - 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    for (const char *name : {"folder", "fifo", "socket"}) {
        EXPECT_EQ(this->problemOf(volume->openFile(name, Access::Write)), FileProblem::NotAFile) << name;
        EXPECT_EQ(this->problemOf(volume->openFile(name, Access::Read)), FileProblem::NotAFile) << name;
    }
    ::close(socket);
}

TYPED_TEST(VolumeFilesContract, ListsNamesWithoutTheFoldersThemselves)
{
    const auto volume = this->volume();
    this->m_tree.file("volume/.dot");
    this->m_tree.file("volume/odd\n\xFF name ");
    this->m_tree.folder("volume/folder/inner");
    EXPECT_EQ(sorted(*volume->list("")), (std::vector<std::string>{".dot", "folder", "odd\n\xFF name "}));
    EXPECT_EQ(sorted(*volume->list("folder")), (std::vector<std::string>{"inner"}));
    EXPECT_TRUE(volume->list("folder/inner")->empty());
    EXPECT_EQ(this->problemOf(volume->list("missing")), FileProblem::NotFound);
    EXPECT_EQ(this->problemOf(volume->list(".dot")), FileProblem::NotAFolder);
}

TYPED_TEST(VolumeFilesContract, PathsLongerThanTheSystemTakesAtOnce)
{
    const auto volume = this->volume();
    const std::string name(200, 'n');
    std::string path;
    for (int level = 0; level < 100; ++level) {
        path += (path.empty() ? "" : "/") + name;
        ASSERT_TRUE(volume->makeFolder(path, Attributes{.permissions = 0755})) << level;
    }
    ASSERT_GT(path.size(), 4U * 4096U);
    ASSERT_TRUE(volume->createFile(path + "/file", Attributes{.permissions = 0644}));
    EXPECT_TRUE(volume->openFile(path + "/file", Access::Write));
    EXPECT_EQ(sorted(*volume->list(path)), (std::vector<std::string>{"file"}));
    // The same test from outside, by the absolute path, which is how a source is read.
    auto &anywhere = this->m_backend.files.workingFolder();
    const auto absolute = this->m_tree.path("volume/" + path);
    EXPECT_TRUE(anywhere.openFile(absolute + "/file", Access::Read));
    EXPECT_EQ(anywhere.attributes(absolute, Links::DoNotFollow, Want::HiddenExtension)->type,
              FileType::Folder);
    EXPECT_EQ(anywhere.attributes(absolute, Links::Follow, Want::Basics)->type, FileType::Folder);
    EXPECT_TRUE(this->m_backend.files.openFolder(absolute, Reach::Beneath));
}

TYPED_TEST(VolumeFilesContract, NewFolderIsOpenToItsOwnerUntilItIsProtected)
{
    const auto volume = this->volume();
    const Attributes like{.permissions = 0444};
    ASSERT_TRUE(volume->makeFolder("folder", like));
    EXPECT_EQ(volume->attributes("folder", Links::Follow, Want::Basics)->permissions, 0755U);
    EXPECT_TRUE(volume->finishFolder("folder", like));
    EXPECT_EQ(volume->attributes("folder", Links::Follow, Want::Basics)->permissions, 0555U);
}

TYPED_TEST(VolumeFilesContract, HiddenExtensionIsReadAndGiven)
{
    const auto file = this->m_tree.file("volume/file");
    if (!test::hideExtension(file))
        GTEST_SKIP() << "the temporary folder keeps no extended attributes";
    const auto volume = this->volume();
    const auto attributes = volume->attributes("file", Links::DoNotFollow, Want::HiddenExtension);
    EXPECT_TRUE(attributes->hiddenExtension);
    ASSERT_TRUE(volume->createFile("copy", *attributes));
    EXPECT_TRUE(volume->attributes("copy", Links::DoNotFollow, Want::HiddenExtension)->hiddenExtension);
    this->m_tree.file("volume/plain");
    EXPECT_FALSE(volume->attributes("plain", Links::DoNotFollow, Want::HiddenExtension)->hiddenExtension);
}

TYPED_TEST(VolumeFilesContract, RenamesAndKeepsOrReplacesWhatHasTheName)
{
    const auto volume = this->volume();
    this->m_tree.file("volume/new", "new");
    this->m_tree.file("volume/old", "old");
    EXPECT_EQ(this->problemOf(volume->rename("new", "old", Existing::Keep)), FileProblem::Exists);
    EXPECT_EQ(test::contentOf(this->m_tree.path("volume/old")), "old");
    ASSERT_TRUE(volume->rename("new", "old", Existing::Replace));
    EXPECT_EQ(test::contentOf(this->m_tree.path("volume/old")), "new");
    ASSERT_TRUE(volume->rename("old", "free", Existing::Keep));
    EXPECT_EQ(test::contentOf(this->m_tree.path("volume/free")), "new");
    EXPECT_EQ(this->problemOf(volume->rename("missing", "name", Existing::Keep)), FileProblem::NotFound);
    // Nothing is moved out of the volume, nor into it.
    this->m_tree.file("outside", "outside");
    EXPECT_EQ(this->problemOf(volume->rename("../outside", "inside", Existing::Keep)),
              FileProblem::LeadsOutOfVolume);
    EXPECT_EQ(this->problemOf(volume->rename("free", "../taken", Existing::Keep)),
              FileProblem::LeadsOutOfVolume);
}

TYPED_TEST(VolumeFilesContract, RemovesFilesLinksAndEmptyFolders)
{
    const auto volume = this->volume();
    this->m_tree.file("volume/folder/file", "content");
    std::filesystem::create_symlink("folder", this->m_tree.path("volume/link"));
    EXPECT_FALSE(volume->remove("folder"));
    EXPECT_TRUE(volume->remove("link"));
    EXPECT_TRUE(volume->remove("folder/file"));
    EXPECT_TRUE(volume->remove("folder"));
    EXPECT_EQ(this->problemOf(volume->remove("folder")), FileProblem::NotFound);
    this->m_tree.file("outside", "outside");
    EXPECT_EQ(this->problemOf(volume->remove("../outside")), FileProblem::LeadsOutOfVolume);
}

TYPED_TEST(VolumeFilesContract, FreeBytesAndTraitsAreKnown)
{
    const auto volume = this->volume();
    EXPECT_GT(*volume->freeBytes(), 0U);
    EXPECT_NE(volume->traits().device, 0U);
    EXPECT_FALSE(volume->traits().isMountRoot);
}

} // namespace orvana::platform
