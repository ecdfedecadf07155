#pragma once

#include "duplicate/report/RunSummary.h"

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

namespace orvana
{

/// The first problems of a run, for people to read; the report has them all. Callable from any thread.
class RunProblems
{
public:
    static constexpr std::size_t Kept = 1000;

    void add(const RunProblem &problem);

    /// One line each: destination, file and what is wrong. Says at the end how many more there were.
    std::vector<std::string> lines() const;

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
    std::size_t m_more = 0;
};

} // namespace orvana
