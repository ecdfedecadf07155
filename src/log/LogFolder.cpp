#include "log/LogFolder.h"

#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "log/LogFile.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <optional>
#include <unistd.h>

namespace fs = std::filesystem;

namespace orvana
{

using platform::Expected;
using platform::failure;
using platform::FileProblem;

namespace
{

constexpr std::string_view LogEnd = "-Log.txt";

constexpr std::string_view StampLayout = "dddddddd-dddddd";

// Recognises "yyyyMMdd-HHmmss-Log.txt", also with a number such as "-2" at the end. Returns the text after
// ".txt". Returns nullopt for other names: such a file may be a stranger's, and the reports beside it as
// well.
std::optional<std::string> numberOfRunLog(std::string_view name)
{
    const auto end = StampLayout.size() + LogEnd.size();
    if (name.size() < end || name.substr(StampLayout.size(), LogEnd.size()) != LogEnd)
        return std::nullopt;
    const auto number = name.substr(end);
    const bool isNumber = number.size() > 1 && number[0] == '-' && number[1] != '0' &&
                          number.find_first_not_of("0123456789", 1) == std::string_view::npos;
    const bool hasStamp =
        std::equal(StampLayout.begin(), StampLayout.end(), name.begin(), [](char expected, char c) {
            return expected == 'd' ? c >= '0' && c <= '9' : c == expected;
        });
    return hasStamp && (number.empty() || isNumber) ? std::optional<std::string>(number) : std::nullopt;
}

bool isThere(const std::string &path)
{
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

} // namespace

bool LogFolder::isLog(std::string_view name)
{
    return !name.starts_with('.') && name.find('/') == std::string_view::npos &&
           name.find("Log.txt") != std::string_view::npos;
}

Expected<std::vector<std::string>> LogFolder::names() const
{
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(m_path, error), end; !error && entry != end; entry.increment(error)) {
        if (auto name = entry->path().filename().native(); isLog(name))
            names.push_back(std::move(name));
    }
    if (error)
        return failure(error.value());
    std::sort(names.begin(), names.end(), std::greater<>());
    return names;
}

Expected<void> LogFolder::read(const std::string &name,
                               const std::function<void(std::string_view)> &take) const
{
    if (!isLog(name))
        return failure(FileProblem::NotSupported);
    const auto file = LogFile::open(pathOf(name));
    if (!file)
        return tl::unexpected(file.error());
    for (std::uint64_t offset = 0;;) {
        const auto piece = file->read(offset, std::size_t{1} << 20U);
        if (!piece)
            return tl::unexpected(piece.error());
        if (piece->empty())
            return {};
        take(*piece);
        offset += piece->size();
    }
}

std::vector<std::string> LogFolder::reports(const std::string &name) const
{
    std::vector<std::string> reports;
    const auto own = numberOfRunLog(name);
    if (!own)
        return reports;
    const auto stamp = name.substr(0, StampLayout.size());
    const auto base = pathOf(stamp + "-Report");
    if (!own->empty()) {
        if (auto path = base + *own + ".json"; isThere(path))
            reports.push_back(std::move(path));
        return reports;
    }
    if (auto path = base + ".json"; isThere(path))
        reports.push_back(std::move(path));
    for (int number = 2;; ++number) {
        const auto end = "-" + std::to_string(number);
        const bool isOthers = isThere(pathOf(name + end));
        auto path = base + end + ".json";
        if (!isOthers && !isThere(path))
            return reports;
        if (!isOthers)
            reports.push_back(std::move(path));
    }
}

Expected<void> LogFolder::remove(const std::string &name) const
{
    if (!isLog(name))
        return failure(FileProblem::NotSupported);
    const auto reportPaths = reports(name);
    if (::unlink(pathOf(name).c_str()) != 0)
        return failure(errno);
    for (const auto &path : reportPaths) {
        if (::unlink(path.c_str()) != 0)
            systemLog("Error removing file at path: " + platform::fileError(errno).reason() + " (" +
                      displayPath(path) + ")");
    }
    return {};
}

} // namespace orvana
