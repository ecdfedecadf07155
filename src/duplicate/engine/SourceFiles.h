#pragma once

#include "duplicate/engine/CopyJob.h"
#include "platform/VolumeFiles.h"

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvana
{

/// Knows which files a run must not write to because they are, or may be, files of its source: a destination
/// may lie on the source's own file system. Used by the copy thread, and by workers only through
/// `mayBeSource`.
class SourceFiles
{
public:
    SourceFiles(platform::Folder &sources, const std::vector<std::string> &ticked);

    /// Notes that files of this device are read, too.
    void addDevice(std::uint64_t device) { m_devices.insert(device); }

    /// True when the existing file at `path` beneath `volume` lies in a ticked item, or has several names, of
    /// which one may do so. Only files on a device of the source are looked at. Links are followed.
    bool mayBeSource(const platform::Folder &volume, std::string_view path,
                     const platform::Attributes &existing) const;

private:
    using Identity = std::pair<std::uint64_t, std::uint64_t>; // device, inode

    platform::Folder &m_sources;
    std::set<Identity> m_ticked;
    std::set<std::uint64_t> m_devices;
};

} // namespace orvana
