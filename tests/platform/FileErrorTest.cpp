#include "platform/Account.h"
#include "platform/FaultyVolumeFiles.h"
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

TEST(FileError, ErrnoBecomesProblemAndReason)
{
    EXPECT_EQ(fileError(ENOENT).problem, FileProblem::NotFound);
    EXPECT_EQ(fileError(ENOSPC).reason(), "No space left on device");
    EXPECT_EQ(fileError(EXDEV).reason(), "The path leads out of the volume");
    EXPECT_EQ(fileError(EISDIR).reason(), "Not a regular file");
}

} // namespace orvana::platform
