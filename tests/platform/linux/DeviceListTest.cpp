#include "platform/linux/DeviceList.h"

#include <gtest/gtest.h>

namespace orvana::platform::linux_host
{

namespace
{

Device block(const std::string &path, const std::string &type, const std::string &number)
{
    Device device;
    device.path = path;
    device.subsystem = "block";
    device.type = type;
    device.name = path.substr(path.rfind('/') + 1);
    device.properties["DEVNAME"] = "/dev/" + device.name;
    device.properties["MAJOR"] = number.substr(0, number.find(':'));
    device.properties["MINOR"] = number.substr(number.find(':') + 1);
    device.attributes["dev"] = number;
    return device;
}

} // namespace

TEST(DeviceList, PartitionsComeInTheOrderOfTheirNumbers)
{
    DeviceList list;
    list.add(block("/sys/devices/ata1/sda", "disk", "8:0"));
    for (const int number : {10, 2, 1}) {
        auto partition = block("/sys/devices/ata1/sda/sda" + std::to_string(number), "partition",
                               "8:" + std::to_string(number));
        partition.attributes["partition"] = std::to_string(number);
        list.add(std::move(partition));
    }
    std::vector<std::string> names;
    for (const auto *partition : list.partitionsOf(*list.blockNamed("sda")))
        names.push_back(partition->name);
    EXPECT_EQ(names, (std::vector<std::string>{"sda1", "sda2", "sda10"}));
    EXPECT_EQ(list.blockNamed("sdb"), nullptr);
    EXPECT_EQ(list.at("/sys/devices/ata1/sda/sda2")->type, "partition");
}

TEST(DeviceList, NumbersAreReadPlainOrBehind0xAndAnythingElseIsNone)
{
    EXPECT_EQ(hexNumber("0x8086"), 0x8086);
    EXPECT_EQ(hexNumber("1b21"), 0x1b21);
    EXPECT_EQ(hexNumber("0x"), -1);
    EXPECT_EQ(decimalNumber("12"), 12);
    EXPECT_EQ(decimalNumber("12x"), -1);
    EXPECT_EQ(decimalNumber(""), -1);
}

TEST(DeviceList, BelowIsAWholeComponentAndNotABeginning)
{
    EXPECT_TRUE(isBelow("/sys/a/b", "/sys/a"));
    EXPECT_FALSE(isBelow("/sys/ab", "/sys/a"));
    EXPECT_FALSE(isBelow("/sys/a", "/sys/a"));
    EXPECT_EQ(pathAbove("/sys/a/b"), "/sys/a");
    EXPECT_EQ(pathAbove("b"), "");
}

} // namespace orvana::platform::linux_host
