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

/// Knows which files a run must not write to because they are, or may be, files of its source. A destination
/// may lie on the same file system as the source. Used by the copy thread. Workers only call `mayBeSource`.
class SourceFiles
{
public:
    SourceFiles(platform::Folder &sources, const std::vector<std::string> &ticked);

    /// Notes that the run also reads files of this device.
    void addDevice(std::uint64_t device) { m_devices.insert(device); }

    /// True when the existing file at `path` beneath `volume` is, or lies in, a ticked item. Also true when
    /// the file has several names, because one of them may lie there. Files on devices that the run does not
    /// read give false. Links are followed.
    bool mayBeSource(const platform::Folder &volume, std::string_view path,
                     const platform::Attributes &existing) const;

private:
    using Identity = std::pair<std::uint64_t, std::uint64_t>; // device, inode

    platform::Folder &m_sources;
    std::set<Identity> m_ticked;
    std::set<std::uint64_t> m_devices;
};

} // namespace orvana
