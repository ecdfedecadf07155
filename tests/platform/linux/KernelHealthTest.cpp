#include "platform/linux/LinuxHealth.h"

#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana::platform::linux_host
{

/// A made-up folder of the system's devices with one SATA disk, as the kernel lays it out.
class KernelHealth : public testing::Test
{
protected:
    KernelHealth()
    {
        m_tree.folder("devices/pci/ata3/host2/0:0:0:0/hwmon/hwmon1");
        m_tree.folder("devices/pci/ata3/link3/ata_link/link3");
        m_tree.folder("block/sda");
        m_tree.folder("class/hwmon");
        m_tree.folder("class/ata_link");
        m_tree.link("block/sda/device", m_tree.path(m_device));
        m_tree.link("class/hwmon/hwmon1", m_tree.path(m_device + "/hwmon/hwmon1"));
        m_tree.link(m_device + "/hwmon/hwmon1/device", m_tree.path(m_device));
        m_tree.link("class/ata_link/link3", m_tree.path("devices/pci/ata3/link3/ata_link/link3"));
    }

    DiskHealth health(const std::string &name = "sda") const
    {
        DiskHealth health;
        addKernelFacts(health, m_tree.root(), name);
        return health;
    }

    const std::string m_device = "devices/pci/ata3/host2/0:0:0:0";
    test::TemporaryTree m_tree;
};

TEST_F(KernelHealth, TemperatureErrorsAndRateOfTheLinkAreRead)
{
    m_tree.file(m_device + "/hwmon/hwmon1/temp1_input", "36000\n");
    m_tree.file(m_device + "/hwmon/hwmon1/temp1_crit", "70000\n");
    m_tree.file(m_device + "/ioerr_cnt", "0x1f\n");
    m_tree.file("class/ata_device/dev3.0/ering", "[  812.370000000]timeout[  815.120000000]UNC\n");
    m_tree.file("devices/pci/ata3/link3/ata_link/link3/sata_spd", "6.0 Gbps\n");
    const auto found = health();
    EXPECT_EQ(found.celsius, 36.0);
    EXPECT_EQ(found.criticalCelsius, 70.0);
    EXPECT_EQ(found.errors, 2) << "the plain count grows with each question about the health";
    EXPECT_EQ(found.linkRate, "6.0 Gbps");
    EXPECT_EQ(verdictOf(found), HealthVerdict::NotKnown) << "the disk itself has said nothing";
}

TEST_F(KernelHealth, WhatIsMissingOrNoNumberIsNotKnown)
{
    m_tree.file(m_device + "/hwmon/hwmon1/temp1_input", "");
    m_tree.file(m_device + "/ioerr_cnt", "many\n");
    m_tree.file("devices/pci/ata3/link3/ata_link/link3/sata_spd", "<unknown>\n");
    EXPECT_EQ(health(), DiskHealth());
}

TEST_F(KernelHealth, DiskOnNoAtaPortHasThePlainCountOfErrors)
{
    m_tree.folder("devices/pci/usb1/1-2/host3/3:0:0:0");
    m_tree.folder("block/sdc");
    m_tree.link("block/sdc/device", m_tree.path("devices/pci/usb1/1-2/host3/3:0:0:0"));
    m_tree.file("devices/pci/usb1/1-2/host3/3:0:0:0/ioerr_cnt", "0x1f\n");
    EXPECT_EQ(health("sdc").errors, 31);
    EXPECT_EQ(health().errors, std::nullopt) << "no ring to be read";
    DiskHealth asked;
    asked.isFailing = false;
    addKernelFacts(asked, m_tree.root(), "sdc");
    EXPECT_EQ(asked.errors, std::nullopt) << "each question counts as an error";
}

TEST_F(KernelHealth, AlarmOfTheSensorIsRead)
{
    m_tree.file(m_device + "/hwmon/hwmon1/temp1_input", "50000\n");
    m_tree.file(m_device + "/hwmon/hwmon1/temp1_alarm", "0\n");
    EXPECT_FALSE(health().hasHeatAlarm);
    m_tree.file(m_device + "/hwmon/hwmon1/temp1_alarm", "1\n");
    EXPECT_TRUE(health().hasHeatAlarm);
    EXPECT_EQ(verdictOf(health()), HealthVerdict::Warning);
}

TEST_F(KernelHealth, SensorOfAnotherDiskIsNotTaken)
{
    m_tree.folder("devices/pci/ata4/host3/0:0:0:0");
    m_tree.folder("block/sdb");
    m_tree.link("block/sdb/device", m_tree.path("devices/pci/ata4/host3/0:0:0:0"));
    m_tree.file(m_device + "/hwmon/hwmon1/temp1_input", "36000\n");
    EXPECT_EQ(health("sdb"), DiskHealth());
}

TEST_F(KernelHealth, DiskThatIsGoneIsNotKnown)
{
    EXPECT_EQ(health("sdz"), DiskHealth());
}

} // namespace orvana::platform::linux_host
