#include "log/LogFolder.h"

#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "log/LogFile.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>
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

// "yyyyMMdd-HHmmss-Log.txt": other names may be a stranger's, and so would be the reports beside them.
bool isNamedByARun(std::string_view name)
{
    constexpr std::string_view layout = "dddddddd-dddddd";
    if (name.size() != layout.size() + LogEnd.size() || !name.ends_with(LogEnd))
        return false;
    return std::equal(layout.begin(), layout.end(), name.begin(), [](char expected, char c) {
        return expected == 'd' ? c >= '0' && c <= '9' : c == expected;
    });
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
    if (!isNamedByARun(name))
        return reports;
    const auto base = pathOf(name.substr(0, name.size() - LogEnd.size()) + "-Report");
    if (auto path = base + ".json"; isThere(path))
        reports.push_back(std::move(path));
    for (int number = 2;; ++number) {
        auto path = base + "-" + std::to_string(number) + ".json";
        if (!isThere(path))
            return reports;
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
