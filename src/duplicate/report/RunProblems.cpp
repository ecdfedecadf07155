#include "duplicate/report/RunProblems.h"

#include "foundation/DisplayPath.h"

namespace orvana
{

void RunProblems::add(const RunProblem &problem)
{
    const std::lock_guard lock(m_mutex);
    if (m_lines.size() == Kept) {
        ++m_more;
        return;
    }
    std::string line = displayPath(problem.destination);
    line.append(": ").append(displayPath(problem.file)).append(": ").append(nameOf(problem.kind));
    if (!problem.reason.empty())
        line.append(", ").append(problem.reason);
    m_lines.push_back(std::move(line));
}

std::vector<std::string> RunProblems::lines() const
{
    const std::lock_guard lock(m_mutex);
    auto lines = m_lines;
    if (m_more > 0)
        lines.push_back("and " + std::to_string(m_more) + " more, which the report lists");
    return lines;
}

} // namespace orvana
