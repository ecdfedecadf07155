#include "platform/linux/LinuxFixture.h"

namespace orvana::test
{

namespace linux_host = platform::linux_host;

TEST(DiskFreeText, HasTheColumnsOfTheListing)
{
    const auto measure = [](const std::string &) {
        return linux_host::VolumeRoom{
            .blocks = 1000, .freeBlocks = 400, .availableBlocks = 300, .files = 10, .freeFiles = 4};
    };
    EXPECT_EQ(linux_host::diskFreeText({{"/dev/disk3s1", "/media/COPY 1"}}, measure),
              "Filesystem 512-blocks Used Available Capacity iused ifree %iused Mounted on\n"
              "/dev/disk3s1 1000 600 300 67% 6 4 60% /media/COPY 1\n");
}

TEST(DiskFreeText, VolumeThatDoesNotAnswerIsLeftOut)
{
    const auto silent = [](const std::string &) { return std::optional<linux_host::VolumeRoom>(); };
    const auto text = linux_host::diskFreeText({{"/dev/disk3s1", "/media/COPY"}}, silent);
    EXPECT_EQ(text.find("disk3"), std::string::npos);
}

} // namespace orvana::test
