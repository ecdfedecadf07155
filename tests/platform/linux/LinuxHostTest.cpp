#include "platform/linux/LinuxHost.h"

#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana::platform::linux_host
{

TEST(LinuxHost, DiskUtilityOfAnInstalledProgramLiesInLibexec)
{
    const test::TemporaryTree tree;
    tree.file("usr/bin/plurimoctl");
    const auto utility = tree.file("usr/libexec/orvana-plurimo/orvana-diskutil");
    tree.file("usr/bin/orvana-diskutil", "somebody else's");
    EXPECT_EQ(diskUtilityOf(tree.path("usr/bin/plurimoctl")), utility);
}

TEST(LinuxHost, DiskUtilityOfABuildLiesBesideTheProgram)
{
    const test::TemporaryTree tree;
    EXPECT_EQ(diskUtilityOf(tree.path("build/bin/plurimoctl")), tree.path("build/bin/orvana-diskutil"));
}

} // namespace orvana::platform::linux_host
