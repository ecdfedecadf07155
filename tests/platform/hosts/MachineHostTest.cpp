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

TEST(MachineHost, KnowsUserHomeAndPlaces)
{
    const auto host = makeMachineHost();
    EXPECT_FALSE(host->account().loginName().empty());
    EXPECT_TRUE(host->account().homeFolder().starts_with('/'));
    EXPECT_EQ(host->places().userPath("root"), "/root");
    EXPECT_EQ(host->places().userPath("no such user here"), std::nullopt);
    const auto top = host->volumeFiles().openFolder("/proc", Reach::Beneath);
    EXPECT_TRUE(host->places().isVolumeRoot(**top));
    const auto below = host->volumeFiles().openFolder("/proc/self", Reach::Beneath);
    EXPECT_FALSE(host->places().isVolumeRoot(**below));
}

} // namespace orvana::platform
