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

/// Locks that keep other runs on the machine away from one run until this object is destroyed. No other run
/// may write to its source, and no other run may read from or write to its destinations. The locks end with
/// the process at the latest.
///
/// The folders above, up to the top of their volume, are locked too. So a run into a folder keeps out other
/// runs that write to a folder above it, or that use a folder below it.
class RunLocks
{
public:
    /// Takes the locks that are free; never waits. A path that does not exist is not locked: opening it will
    /// report the error.
    RunLocks(platform::Host &host, const std::string &source, const std::vector<std::string> &destinations);

    /// False when another run writes to the source, or to a folder above it.
    bool hasSource() const { return m_hasSource; }

    /// False when another run writes to the destination, or to a folder above or below it, or reads from the
    /// destination or a folder below it.
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
