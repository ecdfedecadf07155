#include "duplicate/engine/SelectionWalk.h"

#include "platform/Host.h"

#include <utility>

namespace orvana
{

using platform::Attributes;
using platform::FileType;
using platform::Links;
using platform::Want;

SelectionWalk::SelectionWalk(platform::Host &host, bool includeHidden, Visitor visitor,
                             std::function<bool()> isCancelled)
    : m_files(host.volumeFiles().workingFolder()), m_rules(host, includeHidden),
      m_visitor(std::move(visitor)), m_isCancelled(std::move(isCancelled))
{
}

void SelectionWalk::visit(const CopyJob &job)
{
    for (const auto &item : job.SrcFileArray)
        visitItem(item);
}

std::optional<Attributes> SelectionWalk::followed(const std::string &path) const
{
    const auto attributes = m_files.attributes(path, Links::Follow, Want::Basics);
    return attributes ? std::optional(*attributes) : std::nullopt;
}

void SelectionWalk::visitItem(const std::string &item)
{
    const auto target = followed(item);
    if (target)
        m_visitor(item, *target);
    if (!target || target->type != FileType::Folder)
        return;
    std::vector<std::string> folders;
    auto names = m_files.list(item);
    while (names && !names->empty() && !m_isCancelled()) {
        const std::string name(names->takeNext());
        if (m_rules.examine(name).skip)
            continue;
        auto path = std::string(item).append("/").append(name);
        const auto entry = followed(path);
        if (!entry)
            continue;
        m_visitor(path, *entry);
        if (entry->type == FileType::Folder)
            folders.push_back(std::move(path));
    }
    for (const auto &folder : folders)
        visitTree(folder);
}

void SelectionWalk::visitTree(const std::string &folder)
{
    m_waiting.push_back(folder);
    while (!m_waiting.empty() && !m_isCancelled()) {
        const auto current = std::move(m_waiting.back());
        m_waiting.pop_back();
        auto names = m_files.list(current);
        while (names && !names->empty())
            visitEntry(current + "/" + std::string(names->takeNext()));
    }
}

void SelectionWalk::visitEntry(const std::string &path)
{
    const auto verdict = m_rules.examine(path);
    if (verdict.skip || !verdict.attributes)
        return;
    m_visitor(path, *verdict.attributes);
    if (verdict.attributes->type == FileType::Folder)
        m_waiting.push_back(path);
}

} // namespace orvana
