#include "duplicate/engine/SourceFiles.h"

namespace orvana
{

using platform::Attributes;
using platform::Links;
using platform::Want;

SourceFiles::SourceFiles(platform::Folder &sources, const std::vector<std::string> &ticked)
    : m_sources(sources)
{
    for (const auto &item : ticked) {
        const auto read = sources.attributes(item, Links::Follow, Want::Basics);
        if (!read)
            continue;
        m_ticked.emplace(read->device, read->inode);
        m_devices.insert(read->device);
    }
}

bool SourceFiles::mayBeSource(const platform::Folder &volume, std::string_view path,
                              const Attributes &existing) const
{
    if (existing.type != platform::FileType::Regular || !m_devices.contains(existing.device))
        return false;
    if (existing.links > 1 || m_ticked.contains({existing.device, existing.inode}))
        return true;
    const auto place = volume.realPath(path);
    if (!place)
        return true;
    // Folders are compared by identity, because several paths may lead to one folder.
    for (auto folder = place->substr(0, place->rfind('/')); !folder.empty();
         folder = folder.substr(0, folder.rfind('/'))) {
        const auto read = m_sources.attributes(folder, Links::Follow, Want::Basics);
        if (!read || m_ticked.contains({read->device, read->inode}))
            return true;
        if (read->device != existing.device)
            return false;
    }
    return false;
}

} // namespace orvana
