#pragma once

#include "platform/VolumeFiles.h"

#include <optional>
#include <string>

namespace orvana
{

class RunContext;

/// Knows the folders that a run does not enter when it walks through its source: its own destinations, and
/// the place of its journal. Copying them would never end, or copy what changes all the while.
class ForbiddenFolders
{
public:
    explicit ForbiddenFolders(RunContext &run) : m_run(run) {}

    /// Returns why the folder at `path` is not entered, or null. `path` may be a link that leads to it.
    const char *ruleAgainst(const std::string &path, const platform::Attributes &folder, bool isLink) const;

    /// Returns the attributes of what the path leads to.
    std::optional<platform::Attributes> followed(const std::string &path) const;

private:
    bool isDestination(const platform::Attributes &folder) const;
    bool liesInDestination(const std::string &path) const;

    RunContext &m_run;
};

} // namespace orvana
