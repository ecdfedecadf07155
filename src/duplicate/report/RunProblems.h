#pragma once

#include "duplicate/report/RunSummary.h"

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

namespace orvana
{

/// The first problems of a run, for people to read. The report has all problems. Callable from any thread.
class RunProblems
{
public:
    static constexpr std::size_t Kept = 1000;

    void add(const RunProblem &problem);

    /// Returns one line for each problem: destination, file and what is wrong. A last line says how many more
    /// problems there were.
    std::vector<std::string> lines() const;

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
    std::size_t m_more = 0;
};

} // namespace orvana
