// The kernel's files tell the health of disks; here on a machine that is made up below the C library.

#include "platform/linux/LinuxFixture.h"

#include <cstdlib>
#include <filesystem>

namespace orvana::platform::linux_host
{

class MadeUpHealth : public test::LinuxFixture
{
protected:
    /// Adds a disk on a port of the internal controller, with a sensor that tells `thousandths` of a degree.
    std::string addDisk(int port, const std::string &node, const std::string &thousandths)
    {
        const auto disk = m_machine.addSataDisk(m_internal, port, {.node = node});
        const auto scsi = pathAbove(pathAbove(disk));
        const char *root = std::getenv("UMOCKDEV_DIR");
        std::filesystem::create_directory_symlink("../..", root + disk + "/device"); // as the kernel has it
        const auto sensor = "hwmon" + std::to_string(port);
        m_machine.add(scsi + "/hwmon/" + sensor, "hwmon",
                      {"A: name=drivetemp", "A: temp1_input=" + thousandths, "L: device=../.."});
        return disk;
    }

    static DiskHealth healthOf(const std::string &name)
    {
        DiskHealth health;
        addKernelFacts(health, "/sys", name);
        return health;
    }
};

TEST_F(MadeUpHealth, EachDiskHasTheTemperatureOfItsOwnSensor)
{
    addDisk(1, "sda", "36000");
    addDisk(2, "sdb", "61000");
    m_machine.addSataDisk(m_internal, 3, {.node = "sdc"});
    EXPECT_EQ(healthOf("sda").celsius, 36.0);
    EXPECT_EQ(healthOf("sdb").celsius, 61.0);
    EXPECT_EQ(healthOf("sdc").celsius, std::nullopt);
}

TEST_F(MadeUpHealth, DiskThatWasPulledTellsNothing)
{
    const auto disk = addDisk(1, "sda", "36000");
    ASSERT_EQ(healthOf("sda").celsius, 36.0);
    m_machine.pull(disk);
    EXPECT_EQ(healthOf("sda").celsius, std::nullopt);
}

} // namespace orvana::platform::linux_host
