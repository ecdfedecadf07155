#pragma once

#include "duplicate/report/RunSummary.h"

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

namespace orvana
{

/// The problems of one destination that have the same kind and the same reason.
struct ProblemGroup
{
    std::string destination; ///< its root, bytes as they are on the disk
    ProblemKind kind = ProblemKind::Failed;
    std::string reason; ///< empty for a mismatch, and for a group of many reasons
    std::int64_t count = 0;
    std::vector<std::string> files; ///< the first of them: paths of the source, bytes
};

/// The problems of a run, grouped for people to read. The report file lists every one. Callable from any
/// thread. The memory does not grow with the number of problems.
class RunProblems
{
public:
    static constexpr std::size_t FilesOfAGroup = 10;
    /// Reasons beyond this number go into one group for each kind and destination.
    static constexpr std::size_t MostReasons = 100;

    void add(const RunProblem &problem);

    /// Returns the groups in the order in which their first problems came.
    std::vector<ProblemGroup> groups() const;

private:
    mutable std::mutex m_mutex;
    std::vector<ProblemGroup> m_groups;
};

/// Returns the group as lines: a heading "12 failed: No space left on device", then the first paths as they
/// are below `sourceRoot`, and how many more there are.
std::vector<std::string> linesOf(const ProblemGroup &group, const std::string &sourceRoot);

} // namespace orvana
