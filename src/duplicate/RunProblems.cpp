#include "duplicate/RunProblems.h"

#include <nlohmann/json.hpp>

namespace orvana
{

void RunProblems::add(const Json &problem)
{
    const std::lock_guard lock(m_mutex);
    if (m_lines.size() == Kept) {
        ++m_more;
        return;
    }
    std::string line = problem.value("destination", "");
    line.append(": ").append(problem.value("file", "")).append(": ").append(problem.value("kind", ""));
    if (const auto reason = problem.value("reason", ""); !reason.empty())
        line.append(", ").append(reason);
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
