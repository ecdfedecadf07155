#pragma once

#include "platform/VolumeFiles.h"

#include <memory>
#include <string>
#include <vector>

namespace orvana
{

namespace platform
{
class Host;
}

/// Locks that keep other runs on the machine away from one run, until this object is destroyed: its source
/// against being written to, and each destination against every other run. The locks end with the process.
///
/// The folders above, up to the top of their volume, are held too, so that a run into a folder keeps others
/// from the folders above and below it.
class RunLocks
{
public:
    /// Takes what can be had; never waits. Paths that do not exist are left to who opens them.
    RunLocks(platform::Host &host, const std::string &source, const std::vector<std::string> &destinations);

    /// False when another run writes to the source, or somewhere above it.
    bool hasSource() const { return m_hasSource; }

    /// False when another run reads from or writes to the destination, or a folder above or below it.
    bool hasDestination(std::size_t index) const { return m_hasDestination[index]; }

    bool hasAll() const;

private:
    struct Held
    {
        std::uint64_t device;
        std::uint64_t inode;
        std::unique_ptr<platform::FolderLock> lock;
    };

    bool hold(platform::VolumeFiles &files, const std::string &path, platform::Sharing sharing);
    bool holdAbove(platform::VolumeFiles &files, const std::string &path);

    std::vector<Held> m_held;
    std::vector<bool> m_hasDestination;
    bool m_hasSource = true;
};

} // namespace orvana
