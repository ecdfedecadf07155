// Runs that keep dates, or all that a source has besides its content.

#include "duplicate/engine/KeepFixture.h"

#include <sys/xattr.h>

namespace orvana
{

TEST_F(KeepTest, CopyHasItsOwnDateWithoutTheOption)
{
    oldFile("folder/file");
    keep(Keep::Nothing);
    EXPECT_FALSE(hasOldDate(copy("a", "folder/file")));
}

TEST_F(KeepTest, DatesOfFilesAndFoldersAreKept)
{
    oldFile("folder/inner/file");
    oldFile("folder/large", std::string(2 * BlockSize + 1, 'x'));
    setDate(source("folder/inner"));
    setDate(source("folder"));
    keep(Keep::Dates, {"folder"}, {"a", "b"});
    for (const auto *name : {"a", "b"}) {
        for (const auto *entry : {"folder", "folder/inner", "folder/inner/file", "folder/large"})
            EXPECT_TRUE(hasOldDate(copy(name, entry))) << entry;
    }
    EXPECT_FALSE(report()["destinations"][0].contains("notKept"));
}

TEST_F(KeepTest, FoldersAboveTickedItemsKeepTheirDates)
{
    oldFile("top/left/one");
    oldFile("top/right/two");
    for (const auto *folder : {"top/left", "top/right", "top"})
        setDate(source(folder));
    keep(Keep::Dates, {"top/left/one", "top/right/two"});
    for (const auto *folder : {"top/left", "top/right", "top"})
        EXPECT_TRUE(hasOldDate(copy("a", folder))) << folder;
}

TEST_F(KeepTest, EqualCopyGetsItsDateWithoutBeingWritten)
{
    oldFile("file");
    m_tree.file("a/file", "content");
    keep(Keep::Dates, {""}, {"a"}, {.update = true});
    EXPECT_TRUE(hasOldDate(copy("a", "file")));
    EXPECT_EQ(destination()["bytes"], 0);
    EXPECT_EQ(destination()["alreadyThere"], 1);
}

TEST_F(KeepTest, DatesBefore1970AreKept)
{
    m_tree.file("source/old", "x");
    setDate(source("old"), -473'385'600);
    keep(Keep::Dates);
    EXPECT_EQ(statusOf(copy("a", "old")).st_mtim.tv_sec, -473'385'600);
    EXPECT_EQ(statusOf(copy("a", "old")).st_mtim.tv_nsec, 123'456'789);
}

TEST_F(KeepTest, DatesAloneLeaveLinksOut)
{
    m_tree.folder("source/folder/sub");
    m_tree.link("source/folder/sub/link", "nowhere");
    keep(Keep::Dates);
    EXPECT_FALSE(std::filesystem::is_symlink(m_tree.path("a/folder/sub/link")));
    EXPECT_EQ(report()["leftOut"], 1);
}

TEST_F(KeepTest, LinksAreCopiedAsLinks)
{
    m_tree.folder("source/folder/sub");
    m_tree.link("source/folder/sub/nowhere", "/not/there");
    m_tree.link("source/folder/circle", "circle");
    m_tree.link("source/up", "..");
    setDate(source("up"));
    keepAll();
    EXPECT_EQ(textOf("a/folder/sub/nowhere"), "/not/there");
    EXPECT_EQ(textOf("a/folder/circle"), "circle");
    EXPECT_EQ(textOf("a/up"), "..");
    EXPECT_TRUE(hasOldDate(copy("a", "up")));
    EXPECT_EQ(report()["leftOut"], 0);
    EXPECT_EQ(destination()["copied"], 3);
}

TEST_F(KeepTest, TickedLinkGetsTheFoldersAboveIt)
{
    m_tree.folder("source/folder");
    m_tree.link("source/folder/link", "elsewhere");
    setDate(source("folder"));
    keepAll({"folder/link"});
    EXPECT_EQ(textOf("a/folder/link"), "elsewhere");
    EXPECT_TRUE(hasOldDate(copy("a", "folder")));
}

TEST_F(KeepTest, LinkThatIsThereIsReplacedAndAFileIsNot)
{
    m_tree.link("source/link", "new");
    m_tree.link("source/other", "new");
    m_tree.folder("a");
    m_tree.link("a/link", "old");
    m_tree.file("a/other", "a file of somebody");
    keepAll();
    EXPECT_EQ(textOf("a/link"), "new");
    EXPECT_EQ(m_tree.read("a/other"), "a file of somebody");
    EXPECT_EQ(destination()["failed"], 1);
}

TEST_F(KeepTest, NothingIsWrittenThroughALinkOfAnEarlierRun)
{
    m_tree.file("source/file", "new file");
    m_tree.file("source/folder/inside", "new inside");
    m_tree.file("a/precious", "precious");
    m_tree.file("a/store/inside", "stored");
    m_tree.link("a/file", "precious");
    m_tree.link("a/folder", "store");
    keepAll();
    EXPECT_EQ(m_tree.read("a/precious"), "precious");
    EXPECT_EQ(m_tree.read("a/store/inside"), "stored");
    EXPECT_EQ(m_tree.read("a/file"), "new file");
    EXPECT_EQ(m_tree.read("a/folder/inside"), "new inside");
    EXPECT_FALSE(std::filesystem::is_symlink(m_tree.path("a/folder")));
}

TEST_F(KeepTest, NamesOfOneFileStayTogether)
{
    oldFile("one/first", "shared");
    m_tree.folder("source/two");
    std::filesystem::create_hard_link(source("one/first"), source("two/second"));
    std::filesystem::create_hard_link(source("one/first"), source("third"));
    keepAll({"one", "third", "two"}, {"a", "b"});
    for (const std::string name : {"a", "b"}) {
        EXPECT_TRUE(isOneFile(name + "/one/first", name + "/two/second"));
        EXPECT_TRUE(isOneFile(name + "/one/first", name + "/third"));
        EXPECT_EQ(m_tree.read(name + "/third"), "shared");
        EXPECT_TRUE(hasOldDate(m_tree.path(name + "/third")));
    }
    EXPECT_EQ(destination()["copied"], 3);
    EXPECT_EQ(destination()["bytes"], 6);
}

TEST_F(KeepTest, NamesOfOneFileAreVerifiedEach)
{
    oldFile("first", std::string(BlockSize + 5, 'v'));
    std::filesystem::create_hard_link(source("first"), source("second"));
    m_engine.setBVerifyFiles(true);
    keepAll();
    EXPECT_TRUE(isOneFile("a/first", "a/second"));
    EXPECT_EQ(destination()["verified"], 2);
    EXPECT_EQ(destination()["unverified"], 0);
}

TEST_F(KeepTest, SeparateCopiesOfAnEarlierRunBecomeOneFile)
{
    oldFile("first", "shared");
    std::filesystem::create_hard_link(source("first"), source("second"));
    keep(Keep::Nothing);
    ASSERT_FALSE(isOneFile("a/first", "a/second"));
    keepAll();
    EXPECT_TRUE(isOneFile("a/first", "a/second"));
    EXPECT_EQ(destination()["failed"], 0);
    EXPECT_EQ(m_tree.read("a/second"), "shared");
}

TEST_F(KeepTest, NameThatIsANameOfTheSourceStays)
{
    oldFile("first", "shared");
    std::filesystem::create_hard_link(source("first"), source("second"));
    m_tree.folder("a");
    // The destination holds a name of a file of the source.
    m_tree.file("source/third", "third");
    std::filesystem::create_hard_link(source("third"), m_tree.path("a/second"));
    keepAll();
    EXPECT_EQ(m_tree.read("source/third"), "third");
    EXPECT_TRUE(isOneFile("source/third", "a/second")) << "the entry is not replaced";
    EXPECT_EQ(destination()["failed"], 1);
}

TEST_F(KeepTest, FileThatChangedBetweenItsNamesIsNotJoined)
{
    m_tree.file("source/a-first", "old");
    std::filesystem::create_hard_link(source("a-first"), source("z-last"));
    m_recorder.onEach([&](const std::string &line) {
        if (line.ends_with("z-last"))
            m_tree.file("source/a-first", "new content");
    });
    keepAll({"a-first", "z-last"});
    EXPECT_EQ(m_tree.read("a/z-last"), "new content");
    EXPECT_EQ(m_tree.read("a/a-first"), "old");
}

TEST_F(KeepTest, PermissionsOfExistingFilesAndFoldersAreKept)
{
    m_tree.file("source/folder/file", "x");
    ::chmod(source("folder/file").c_str(), 0640);
    ::chmod(source("folder").c_str(), 0710);
    m_tree.file("a/folder/file", "old");
    keepAll();
    EXPECT_EQ(statusOf(copy("a", "folder/file")).st_mode & 07777U, 0640U);
    EXPECT_EQ(statusOf(copy("a", "folder")).st_mode & 07777U, 0710U);
}

TEST_F(KeepTest, ExtendedAttributesAreThoseOfTheSource)
{
    oldFile("folder/file");
    if (::setxattr(source("folder/file").c_str(), "user.note", "kept", 4, 0) != 0)
        GTEST_SKIP() << "no extended attributes here";
    m_tree.file("a/folder/file", "old");
    ASSERT_EQ(::setxattr(copy("a", "folder/file").c_str(), "user.other", "gone", 4, 0), 0);
    keepAll();
    char value[16]{};
    EXPECT_EQ(::getxattr(copy("a", "folder/file").c_str(), "user.note", value, sizeof value), 4);
    EXPECT_EQ(std::string_view(value, 4), "kept");
    EXPECT_EQ(::getxattr(copy("a", "folder/file").c_str(), "user.other", value, sizeof value), -1);
}

TEST_F(KeepTest, WhatAVolumeCannotHoldIsCounted)
{
    oldFile("first");
    std::filesystem::create_hard_link(source("first"), source("second"));
    oldFile("third");
    m_tree.folder("source/folder/sub");
    m_tree.link("source/folder/sub/link", "nowhere");
    m_tree.folder("b");
    faultsOf("b").isPlain = true;
    keepAll({""}, {"a", "b"});
    EXPECT_FALSE(destination(0).contains("notKept"));
    EXPECT_EQ(destination(1)["notKept"], Json({{"owner", 3}, {"link", 1}, {"hardLink", 1}}));
    EXPECT_EQ(m_tree.read("b/second"), "content");
    EXPECT_EQ(destination(1)["failed"], 0);
    EXPECT_EQ(destination(1)["copied"], 3) << "the link is not among them";
}

TEST_F(KeepTest, RunThatKeepsMoreThanTheJournalDoesNotLeaveACopyAlone)
{
    oldFile("file");
    runThatBreaks();
    m_engine.setManner({.keep = Keep::Dates});
    run(true);
    EXPECT_TRUE(hasOldDate(copy("a", "file")));
    EXPECT_EQ(destination()["bytes"], 0);
}

TEST_F(KeepTest, RunThatKeepsLessThanTheJournalLeavesACopyAlone)
{
    oldFile("file");
    m_engine.setManner({.keep = Keep::All});
    runThatBreaks();
    const auto before = statusOf(copy("a", "file"));
    m_engine.setManner({.keep = Keep::Dates});
    run(true);
    EXPECT_EQ(statusOf(copy("a", "file")).st_ctim.tv_nsec, before.st_ctim.tv_nsec);
    EXPECT_EQ(destination()["alreadyThere"], 1);
}

} // namespace orvana
