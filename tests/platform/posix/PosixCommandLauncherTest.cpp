#include "platform/posix/PosixCommandLauncher.h"
#include "platform/Account.h"
#include "platform/FaultyVolumeFiles.h"
#include "platform/Places.h"
#include "platform/VolumeFiles.h"
#include "platform/hosts/HostFactory.h"
#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"
#include <cerrno>
#include <gtest/gtest.h>
#include <unistd.h>

namespace orvana::platform
{

TEST(PosixCommandLauncher, WhatIsTypedAtTheTerminalDoesNotReachATool)
{
    posix::PosixCommandLauncher launcher;
    const auto result =
        launcher.run("/bin/sh", {"-c", "read -r words </proc/self/stat; set -- $words; echo $5"});
    ASSERT_EQ(result.status, 0);
    EXPECT_NE(std::stoi(result.output), ::getpgrp());
}

} // namespace orvana::platform
