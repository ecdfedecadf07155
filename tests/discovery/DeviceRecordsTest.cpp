#include "discovery/ScanFixture.h"

namespace orvana
{

using platform::RegistryNode;
using platform::RegistryProperties;

TEST(DeviceRecords, NewOnesAreEmpty)
{
    const ORVHddInfo disk;
    EXPECT_TRUE(disk.bsdPathArray().empty());
    EXPECT_FALSE(disk.isUnFormated());
    EXPECT_FALSE(disk.isRaidFormated());
    EXPECT_FALSE(disk.slotPath());
    const ORVThunderboltInfo enclosure;
    EXPECT_TRUE(enclosure.hddArray().empty());
    EXPECT_FALSE(enclosure.state());
    const ORVBsdInfo volume;
    EXPECT_EQ(volume.devPath(), "");
    EXPECT_EQ(volume.mountPoint(), nullptr);
}

} // namespace orvana
