#include "platform/FaultyVolumeFiles.h"
#include "platform/Account.h"
#include "platform/Places.h"
#include "platform/VolumeFiles.h"
#include "platform/hosts/HostFactory.h"
#include "platform/posix/PosixCommandLauncher.h"
#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"
#include <cerrno>
#include <gtest/gtest.h>
#include <unistd.h>

namespace orvana::platform
{

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

} // namespace orvana::platform
