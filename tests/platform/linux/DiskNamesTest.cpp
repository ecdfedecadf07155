#include "platform/linux/LinuxFixture.h"

namespace orvana::test
{

namespace linux_host = platform::linux_host;

class LinuxDiskNames : public testing::Test
{
protected:
    static linux_host::Disk disk(const std::string &path, std::optional<std::uint64_t> sequence,
                                 const std::string &serial)
    {
        static std::map<std::string, linux_host::Device> devices;
        auto &device = devices[path];
        device.path = path;
        linux_host::Disk made;
        made.device = &device;
        made.sequence = sequence;
        made.serial = serial;
        made.blocks = 100;
        return made;
    }

    linux_host::DiskNames m_names;
};

TEST_F(LinuxDiskNames, DiskKeepsItsNumber)
{
    m_names.bind({disk("/a", 1, "A"), disk("/b", 2, "B")});
    m_names.bind({disk("/b", 2, "B"), disk("/a", 1, "A")});
    EXPECT_EQ(m_names.numberOf(disk("/a", 1, "A")), 0);
    EXPECT_EQ(m_names.numberOf(disk("/b", 2, "B")), 1);
}

TEST_F(LinuxDiskNames, NumberIsNeverHandedOutTwice)
{
    m_names.bind({disk("/a", std::nullopt, "A")});
    m_names.bind({});
    EXPECT_EQ(m_names.numberOf(disk("/a", std::nullopt, "A")), std::nullopt);
    m_names.bind({disk("/a", std::nullopt, "A")});
    EXPECT_EQ(m_names.numberOf(disk("/a", std::nullopt, "A")), 1) << "it came back";
}

TEST_F(LinuxDiskNames, AnotherArrivalSerialOrPlaceIsAnotherDisk)
{
    m_names.bind({disk("/a", 1, "A")});
    for (const auto &other : {disk("/a", 2, "A"), disk("/a", 1, "B"), disk("/b", 1, "A")})
        EXPECT_EQ(m_names.numberOf(other), std::nullopt);
}

} // namespace orvana::test
