#include "duplicate/engine/RunLocks.h"

#include "platform/Host.h"

#include <algorithm>

namespace orvana
{

using platform::Links;
using platform::Sharing;
using platform::VolumeFiles;
using platform::Want;

RunLocks::RunLocks(platform::Host &host, const std::string &source,
                   const std::vector<std::string> &destinations)
{
    auto &files = host.volumeFiles();
    // Exclusive locks come first, because a run locks each folder only once.
    for (const auto &destination : destinations)
        m_hasDestination.push_back(hold(files, destination, Sharing::Exclusive));
    for (std::size_t i = 0; i < destinations.size(); ++i)
        m_hasDestination[i] = holdAbove(files, destinations[i]) && m_hasDestination[i];
    if (!source.empty())
        m_hasSource = hold(files, source, Sharing::Shared) && holdAbove(files, source);
}

bool RunLocks::hasAll() const
{
    return m_hasSource &&
           std::all_of(m_hasDestination.begin(), m_hasDestination.end(), [](bool has) { return has; });
}

bool RunLocks::hold(VolumeFiles &files, const std::string &path, Sharing sharing)
{
    const auto folder = files.workingFolder().attributes(path, Links::Follow, Want::Basics);
    if (!folder || folder->type != platform::FileType::Folder)
        return true;
    const bool isHeld = std::any_of(m_held.begin(), m_held.end(), [&](const Held &held) {
        return held.device == folder->device && held.inode == folder->inode;
    });
    if (isHeld)
        return true;
    auto lock = files.lockFolder(path, sharing);
    if (lock)
        m_held.push_back({folder->device, folder->inode, std::move(*lock)});
    return lock || lock.error().problem != platform::FileProblem::Busy;
}

bool RunLocks::holdAbove(VolumeFiles &files, const std::string &path)
{
    auto &folders = files.workingFolder();
    auto here = folders.attributes(path, Links::Follow, Want::Basics);
    for (auto above = path + "/.."; here; above += "/..") {
        const auto next = folders.attributes(above, Links::Follow, Want::Basics);
        if (!next || next->device != here->device || next->inode == here->inode)
            return true;
        if (!hold(files, above, Sharing::Shared))
            return false;
        here = next;
    }
    return true;
}

} // namespace orvana
