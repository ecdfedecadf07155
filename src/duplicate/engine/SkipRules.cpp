#include "duplicate/engine/SkipRules.h"

#include "platform/Host.h"

#include <vector>

namespace orvana
{

using platform::Attributes;
using platform::FileType;
using platform::Links;
using platform::Want;

SkipRules::SkipRules(platform::Host &host, bool includeHidden, bool keepsLinks)
    : m_files(host.volumeFiles().workingFolder()), m_reserved(host), m_includeHidden(includeHidden),
      m_keepsLinks(keepsLinks)
{
}

SkipRules::Verdict SkipRules::examine(const std::string &pathOrName) const
{
    const auto read = m_files.attributes(pathOrName, Links::DoNotFollow, Want::HiddenExtension);
    return examine(pathOrName, read ? std::optional(*read) : std::nullopt);
}

SkipRules::Verdict SkipRules::examine(const std::string &path,
                                      const std::optional<Attributes> &attributes) const
{
    Verdict verdict;
    verdict.attributes = attributes;
    const bool isLink = verdict.attributes && verdict.attributes->type == FileType::SymbolicLink;
    const bool isHidden = verdict.attributes && verdict.attributes->hiddenExtension;
    if (isLink && !m_keepsLinks)
        verdict.rule = "it is a symbolic link";
    else if (!belongsToPackage(path) && isHidden && !m_includeHidden)
        verdict.rule = "its extension is hidden";
    else if (m_reserved.contains(path))
        verdict.rule = "its place is one that is never copied";
    else
        return verdict;
    verdict.skip = true;
    return verdict;
}

// True when the entry with the attributes `own` is a folder to count in. A folder that a link leads to is
// entered once, because links may lead in circles.
bool SkipRules::isFolderToEnter(const std::string &path, const std::optional<Attributes> &own,
                                std::set<FolderIdentity> &linked) const
{
    if (!own || own->type != FileType::SymbolicLink)
        return own && own->type == FileType::Folder;
    const auto target = m_files.attributes(path, Links::Follow, Want::Basics);
    return target && target->type == FileType::Folder &&
           linked.insert({target->device, target->inode}).second;
}

std::int64_t SkipRules::numbersOfFolder(const std::string &path) const
{
    const auto attributesOf = [this](const std::string &of) {
        const auto read = m_files.attributes(of, Links::DoNotFollow, Want::HiddenExtension);
        return read ? std::optional(*read) : std::nullopt;
    };
    std::set<FolderIdentity> linked;
    if (!isFolderToEnter(path, attributesOf(path), linked))
        return 1;
    std::int64_t count = 0;
    // A list instead of a recursion: a tree may be deeper than the stack allows.
    std::vector<std::string> waiting{path};
    while (!waiting.empty()) {
        const auto folder = std::move(waiting.back());
        waiting.pop_back();
        auto names = m_files.list(folder);
        while (names && !names->empty()) {
            const auto name = names->takeNext();
            auto entry = folder + "/" + std::string(name);
            const auto attributes = attributesOf(entry);
            const bool isHidden = name.starts_with('.') || (attributes && attributes->hiddenExtension);
            if (isHidden && !m_includeHidden)
                continue;
            if (isFolderToEnter(entry, attributes, linked))
                waiting.push_back(std::move(entry));
            else
                ++count;
        }
    }
    return count;
}

} // namespace orvana
