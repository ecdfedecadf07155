#pragma once

#include "platform/linux/DeviceList.h"
#include "platform/linux/Mounts.h"

#include <string>
#include <vector>

namespace orvana::platform::linux_host
{

struct SystemState;

/// What the system's own tables say about disks: the sources in "fstab" and "crypttab", the sets of
/// "mdadm.conf", the volume groups of "system.devices" and the pools of "zpool.cache".
class SystemClaims
{
public:
    /// Reads the tables below `folder`, "/etc" on a real machine. Tables that are missing name no disk.
    explicit SystemClaims(const std::string &folder);

    /// Returns why the system lays claim to the disk or to one of its partitions, in words that go on from
    /// the disk's name: "is named by /etc/fstab". Empty for a disk that is free, and for the disks of the
    /// running system, which have guards of their own.
    std::string reasonFor(const SystemState &system, const Device &disk) const;

private:
    std::string tableNaming(const Device &device) const;

    struct Table
    {
        std::string file;
        std::vector<std::string> names; ///< "UUID=...", "LABEL=...", "/dev/sdb1", "MD=...", "PVID=..."
    };
    std::vector<Table> m_tables;
    bool m_isCrypttabHidden = false; ///< it is there, but only root may read it
    std::string m_pools;             ///< the bytes of "zpool.cache"
    std::string m_folder;
};

} // namespace orvana::platform::linux_host
