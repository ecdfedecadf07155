#pragma once

#include "filetree/ReservedPaths.h"
#include "platform/DeepFolder.h"

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

/// Decides which items a run leaves out. Used on one thread.
class SkipRules
{
public:
    /// With `includeHidden`, items whose extension is hidden are not left out. Counting then also includes
    /// names that begin with a dot. With `keepsLinks`, symbolic links are not left out.
    SkipRules(platform::Host &host, bool includeHidden, bool keepsLinks = false);

    struct Verdict
    {
        bool skip = false;
        const char *rule = "";                          ///< why the item is left out, in plain words
        std::optional<platform::Attributes> attributes; ///< as read for the test; nullopt if unreadable
    };

    /// Tests a full path, or the bare name of an entry directly in a ticked folder. A bare name resolves
    /// against the working folder, so for a bare name a link or a hidden extension is not recognised.
    Verdict examine(const std::string &pathOrName) const;

    /// Tests a full path whose attributes were read before, with Want::HiddenExtension.
    Verdict examine(const std::string &path, const std::optional<platform::Attributes> &attributes) const;

    /// Counts the files under `path`. Anything that is no folder counts as 1. A folder counts as the sum of
    /// its entries, without entries that are hidden by extension or by a dot. Links are followed. If a second
    /// link leads to the same folder, that link counts as one file.
    std::int64_t numbersOfFolder(const std::string &path) const;

private:
    using FolderIdentity = std::pair<std::uint64_t, std::uint64_t>; // device and inode

    bool isFolderToEnter(const std::string &path, const std::optional<platform::Attributes> &own,
                         std::set<FolderIdentity> &linked) const;

    platform::DeepFolder m_files;
    ReservedPaths m_reserved;
    bool m_includeHidden;
    bool m_keepsLinks;
};

} // namespace orvana
