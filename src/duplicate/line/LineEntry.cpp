#include "duplicate/line/LineEntry.h"

#include <array>
#include <cstdio>

namespace orvana
{

const char *wordOf(LineVerdict verdict)
{
    switch (verdict) {
    case LineVerdict::Passed:
        return "passed";
    case LineVerdict::NotProven:
        return "done, not proven";
    case LineVerdict::Failed:
        return "failed";
    }
    return "";
}

std::optional<LineVerdict> lineVerdictOf(std::string_view word)
{
    for (const auto verdict : {LineVerdict::Passed, LineVerdict::NotProven, LineVerdict::Failed}) {
        if (word == wordOf(verdict))
            return verdict;
    }
    return std::nullopt;
}

std::string idOf(const LineHead &head, std::int64_t number)
{
    std::array<char, 24> digits{};
    std::snprintf(digits.data(), digits.size(), "%04lld", static_cast<long long>(number));
    return head.station + "/" + head.id + "/" + digits.data();
}

LineCounts countsOf(std::int64_t wanted, const std::vector<LineEntry> &entries)
{
    LineCounts counts;
    counts.wanted = wanted;
    for (const auto &entry : entries) {
        if (!entry.result)
            ++counts.inWork;
        else if (entry.result->verdict == LineVerdict::Passed)
            ++counts.passed;
        else if (entry.result->verdict == LineVerdict::NotProven)
            ++counts.notProven;
        else
            ++counts.failed;
    }
    return counts;
}

std::string textOf(const LineCounts &counts)
{
    auto text = std::to_string(counts.passed) + " of " + std::to_string(counts.wanted);
    if (counts.failed > 0)
        text += ", " + std::to_string(counts.failed) + " failed";
    if (counts.notProven > 0)
        text += ", " + std::to_string(counts.notProven) + " not proven";
    if (counts.inWork > 0)
        text += ", " + std::to_string(counts.inWork) + " in work";
    return text;
}

} // namespace orvana
