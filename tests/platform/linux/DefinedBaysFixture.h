#pragma once

#include "diskutil/DiskFacts.h"
#include "platform/linux/DiskPorts.h"
#include "platform/linux/LinuxFixture.h"

namespace orvana::test
{

using Lines = std::vector<std::string>;

inline constexpr const char *HubIds = "2109:0817";
inline constexpr const char *Hub = R"({"usb":"2109:0817"})";
inline constexpr const char *TwoPorts = R"({"A":{"port":"1"},"B":{"port":"2"}})";
inline constexpr const char *FourPorts =
    R"({"A":{"port":"1"},"B":{"port":"2"},"C":{"port":"3"},"D":{"port":"4"}})";

/// A made-up machine that runs from a disk of its own, with a USB controller, and definitions of its docks.
class DefinedBays : public LinuxFixture
{
protected:
    DefinedBays()
    {
        m_rootHub = m_machine.addUsbController("0000:00:14.0", 2);
        // The machine runs from a disk of its own.
        m_machine.addPartition(
            m_machine.addSataDisk(
                m_internal, 0, {.node = "sda", .serial = "INT1", .properties = {"ID_PART_TABLE_TYPE=gpt"}}),
            1);
        m_machine.mountLine("20 1 8:1 / / rw - ext4 /dev/sda1 rw");
    }

    std::string addDisk(const std::string &hub, int port, const std::string &node, const std::string &serial,
                        int lun = 0)
    {
        const auto device = lun == 0 ? m_machine.addUsb(hub, port, "152d:0578", "BRIDGE") : m_bridge;
        m_bridge = device;
        return m_machine.addUsbDisk(device, {.node = node, .serial = serial}, lun);
    }

    /// "Dock: Slot-A SN1, Slot-B SN2" for each enclosure.
    Lines enclosures()
    {
        Lines lines;
        for (const auto &enclosure : scan().tbArray()) {
            auto line = enclosure->moduleName().value_or("none") + ":";
            for (const auto &bay : baysOf(*enclosure))
                line.append(" ").append(bay).append(",");
            lines.push_back(line.substr(0, line.size() - 1));
        }
        return lines;
    }

    Lines otherDisks() const
    {
        Lines lines;
        for (const auto &disk : m_scanner->otherDiskArray())
            lines.push_back(disk->unitSerial().value_or("none"));
        return lines;
    }

    diskutil::DiskFacts facts(const std::string &node)
    {
        return diskutil::factsOf(platform::linux_host::readSystemState(files()), node, diskutil::knownDisk)
            .value();
    }

    Lines remarks() { return (scan(), host().registry().remarks()); }

    /// The reason why the disk, which a definition names, is in no bay; empty when it is in one. All who ask
    /// must get the same answer.
    std::string refusal(const std::string &node)
    {
        std::string reason;
        for (const auto &remark : remarks()) {
            if (remark.starts_with(node + " ("))
                reason = remark.substr(remark.find(')') + 2);
        }
        bool isListed = false;
        for (const auto &enclosure : m_scanner->tbArray())
            isListed = isListed || !enclosure->hddArray().empty();
        EXPECT_EQ(isListed, reason.empty());
        EXPECT_EQ(facts("/dev/" + node).isInBay, reason.empty());
        return reason;
    }

    std::string m_rootHub, m_bridge;
};

} // namespace orvana::test
