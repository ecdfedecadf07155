#pragma once

#include "duplicate/engine/CopyJob.h"
#include "duplicate/engine/SkipRules.h"
#include "platform/DeepFolder.h"

#include <functional>
#include <string>
#include <vector>

namespace orvana
{

/// Walks through the items of a job by the rules of the copy that will follow, and copies nothing. Used on
/// one thread.
class SelectionWalk
{
public:
    /// Called for each file and folder, with its path and attributes: those of what a link leads to where
    /// the copy follows the link. The entries of one folder come one after another.
    using Visitor = std::function<void(const std::string &path, const platform::Attributes &attributes)>;

    SelectionWalk(platform::Host &host, bool includeHidden, Visitor visitor,
                  std::function<bool()> isCancelled);

    void visit(const CopyJob &job);

private:
    void visitItem(const std::string &item);
    std::optional<platform::Attributes> followed(const std::string &path) const;
    void visitTree(const std::string &folder);
    void visitEntry(const std::string &path);

    platform::DeepFolder m_files;
    SkipRules m_rules;
    Visitor m_visitor;
    std::function<bool()> m_isCancelled;
    std::vector<std::string> m_waiting;
};

} // namespace orvana
