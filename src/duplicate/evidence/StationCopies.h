#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace orvana
{

/// The copies of manifests that this machine has kept beside its logs. Immutable after its construction.
class StationCopies
{
public:
    StationCopies() = default;

    /// Finds all copies: "LOGS/<run>-Manifests/<copy>/<manifest>".
    explicit StationCopies(const std::string &logFolder);

    /// The paths of the copies that have the manifest's file name.
    const std::vector<std::string> &named(const std::string &fileName) const;

private:
    std::unordered_map<std::string, std::vector<std::string>> m_paths;
};

} // namespace orvana
