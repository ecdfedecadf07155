#include "platform/Account.h"
#include "platform/FaultyVolumeFiles.h"
#include "platform/HostFactory.h"
#include "platform/Places.h"
#include "platform/VolumeFiles.h"
#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"

#include "platform/posix/PosixCommandLauncher.h"
#include <cerrno>
#include <gtest/gtest.h>
#include <unistd.h>

namespace orvana::platform
{

TEST(FileError, ErrnoBecomesProblemAndReason)
{
    EXPECT_EQ(fileError(ENOENT).problem, FileProblem::NotFound);
    EXPECT_EQ(fileError(ENOSPC).reason(), "No space left on device");
    EXPECT_EQ(fileError(EXDEV).reason(), "The path leads out of the volume");
    EXPECT_EQ(fileError(EISDIR).reason(), "Not a regular file");
}

TEST(MachineHost, KnowsUserHomeAndPlaces)
{
    const auto host = makeMachineHost();
    EXPECT_FALSE(host->account().loginName().empty());
    EXPECT_TRUE(host->account().homeFolder().starts_with('/'));
    EXPECT_EQ(host->places().userPath("root"), "/root");
    EXPECT_EQ(host->places().userPath("no such user here"), std::nullopt);
    EXPECT_EQ(host->places().volumePath("no such volume here"), std::nullopt);
    EXPECT_EQ(host->places().volumePath("proc"), std::nullopt) << "no volume of a disk";
    const auto top = host->volumeFiles().openFolder("/proc", Reach::Beneath);
    EXPECT_TRUE(host->places().isVolumeRoot(**top));
    const auto below = host->volumeFiles().openFolder("/proc/self", Reach::Beneath);
    EXPECT_FALSE(host->places().isVolumeRoot(**below));
}

class FaultyFiles : public testing::Test
{
protected:
    FaultyFiles() { m_tree.folder("volume"); }

    std::unique_ptr<Folder> volume()
    {
        auto opened = m_files.openFolder(m_tree.path("volume"), Reach::Beneath);
        EXPECT_TRUE(opened);
        return std::move(*opened);
    }

    test::TemporaryTree m_tree;
    posix::PosixVolumeFiles m_real;
    FaultyVolumeFiles m_files{m_real};
    VolumeFaults &m_faults{m_files.volume(m_tree.path("volume"))};
};

TEST_F(FaultyFiles, CapacityIsSpentByWriting)
{
    m_faults.capacity = 6;
    const auto file = volume()->createFile("file", {}).value();
    const std::string text = "four";
    EXPECT_TRUE(file->write(std::as_bytes(std::span(text)), 0));
    const auto second = file->write(std::as_bytes(std::span(text)), 4);
    ASSERT_FALSE(second);
    EXPECT_EQ(second.error().code, ENOSPC);
}

TEST_F(FaultyFiles, OtherVolumesAreLeftAlone)
{
    m_faults.gone = true;
    m_tree.folder("volume2");
    EXPECT_TRUE(m_files.openFolder(m_tree.path("volume2"), Reach::Beneath));
    EXPECT_FALSE(m_files.openFolder(m_tree.path("volume"), Reach::Beneath));
}

TEST_F(FaultyFiles, GoneHitsWhatIsOpenAlready)
{
    const auto open = volume();
    const auto file = open->createFile("file", {}).value();
    m_faults.gone = true;
    const std::string text = "x";
    EXPECT_FALSE(file->write(std::as_bytes(std::span(text)), 0));
    EXPECT_FALSE(open->list(""));
    EXPECT_FALSE(open->syncVolume());
    EXPECT_FALSE(open->attributes("file", Links::Follow, Want::Basics));
}

TEST_F(FaultyFiles, SyncCloseAndWriteOutFailOnTheirOwn)
{
    const auto open = volume();
    const auto file = open->createFile("file", {}).value();
    m_faults.syncError = true;
    EXPECT_FALSE(open->syncVolume());
    m_faults.writeOutError = true;
    EXPECT_FALSE(file->finishWriteOut(0, File::ToTheEnd));
    m_faults.closeError = true;
    EXPECT_FALSE(file->close());
}

TEST(PosixCommandLauncher, WhatIsTypedAtTheTerminalDoesNotReachATool)
{
    posix::PosixCommandLauncher launcher;
    const auto result =
        launcher.run("/bin/sh", {"-c", "read -r words </proc/self/stat; set -- $words; echo $5"});
    ASSERT_EQ(result.status, 0);
    EXPECT_NE(std::stoi(result.output), ::getpgrp());
}

} // namespace orvana::platform
