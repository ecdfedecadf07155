#pragma once

#include "filetree/ReservedPaths.h"
#include "platform/VolumeFiles.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace orvana
{

namespace platform
{
class Host;
}

/// Which items a run leaves out. Used on one thread.
class SkipRules
{
public:
    /// With `includeHidden`, items whose extension is hidden, and in counting names that begin with a dot,
    /// are not left out.
    SkipRules(platform::Host &host, bool includeHidden);

    struct Verdict
    {
        bool skip = false;
        const char *rule = "";                          ///< why, in plain words
        std::optional<platform::Attributes> attributes; ///< as read for the test; nothing if unreadable
    };

    /// Tests a full path, or the bare name of an entry directly in a ticked folder. A bare name resolves
    /// against the working folder: so a link or a hidden extension is not recognised there.
    Verdict examine(const std::string &pathOrName) const;

    /// Files under `path`: 1 for anything that is no folder, else the sum over its entries without those
    /// that are hidden by extension or by a dot. Links are followed; a folder that a second link leads to
    /// counts as one file.
    std::int64_t numbersOfFolder(const std::string &path) const;

private:
    using FolderIdentity = std::pair<std::uint64_t, std::uint64_t>; // device and inode

    bool isFolderToEnter(const std::string &path, const std::optional<platform::Attributes> &own,
                         std::set<FolderIdentity> &linked) const;

    platform::Folder &m_files;
    ReservedPaths m_reserved;
    bool m_includeHidden;
};

} // namespace orvana
