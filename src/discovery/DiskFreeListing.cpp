#include "discovery/DiskFreeListing.h"

#include "foundation/DisplayPath.h"

#include <charconv>

namespace orvana
{

namespace
{

constexpr std::size_t MountPointColumn = 8;

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

std::vector<std::string_view> columnsOf(std::string_view line)
{
    std::vector<std::string_view> columns;
    for (std::size_t i = 0; i < line.size();) {
        std::size_t end = i;
        while (end < line.size() && !isBlank(line[end]))
            ++end;
        if (end > i)
            columns.push_back(line.substr(i, end - i));
        i = end + 1;
    }
    return columns;
}

std::optional<std::int64_t> numberIn(const std::vector<std::string_view> &columns, std::size_t index)
{
    if (index >= columns.size())
        return std::nullopt;
    const auto text = columns[index];
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

DiskFreeLine lineOf(const std::vector<std::string_view> &columns)
{
    DiskFreeLine line{.device = std::string(columns[0]),
                      .capacity = numberIn(columns, 1),
                      .used = numberIn(columns, 2),
                      .available = numberIn(columns, 3),
                      .mountPoint = {}};
    for (std::size_t i = MountPointColumn; i < columns.size(); ++i) {
        if (i > MountPointColumn)
            line.mountPoint += ' ';
        line.mountPoint += columns[i];
    }
    return line;
}

} // namespace

std::vector<DiskFreeLine> parseDiskFree(std::string_view listing, std::string_view filter)
{
    std::vector<DiskFreeLine> lines;
    if (!isUtf8(listing))
        return lines;
    while (!listing.empty()) {
        const auto end = std::min(listing.find('\n'), listing.size());
        const auto text = listing.substr(0, end);
        listing.remove_prefix(std::min(end + 1, listing.size()));
        if (text.find(filter) == std::string_view::npos)
            continue;
        if (const auto columns = columnsOf(text); !columns.empty())
            lines.push_back(lineOf(columns));
    }
    return lines;
}

} // namespace orvana
