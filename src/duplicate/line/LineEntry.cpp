#include "duplicate/line/LineEntry.h"

#include <algorithm>
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

std::string certificateNameOf(const LineHead &head, std::int64_t number)
{
    auto name = idOf(head, number);
    std::replace(name.begin(), name.end(), '/', '-');
    return name;
}

LineCounts countsOf(std::int64_t wanted, const std::vector<LineEntry> &entries)
{
    LineCounts counts;
    counts.wanted = wanted;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const auto &entry = entries[i];
        // A disk that is written once more no longer holds what it passed with.
        const bool isOverwritten =
            !entry.disk.serial.empty() &&
            std::any_of(entries.begin() + static_cast<std::ptrdiff_t>(i) + 1, entries.end(),
                        [&](const LineEntry &later) { return later.disk.serial == entry.disk.serial; });
        if (isOverwritten && entry.result && entry.result->verdict == LineVerdict::Passed)
            continue;
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
